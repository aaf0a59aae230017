# What leaves the house: the programs of the display, its simulators and its tools, the two files that the panel reads,
# and the list of the parts that they are made of.

# Sets OUT to the programs of a folder of the source tree and those below it.
function(programs_of folder out)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    set(programs "")
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL EXECUTABLE)
            list(APPEND programs ${target})
        endif()
    endforeach()
    foreach(below IN LISTS folders)
        programs_of(${below} more)
        list(APPEND programs ${more})
    endforeach()
    set(${out} ${programs} PARENT_SCOPE)
endfunction()

set(programs "")
foreach(room app simulator tools)
    programs_of(${room} found)
    list(APPEND programs ${found})
endforeach()
set(names "")
foreach(program IN LISTS programs)
    list(APPEND names bin/$<TARGET_FILE_NAME:${program}>)
endforeach()

set(parts ${PROJECT_SOURCE_DIR}/tools/parts)
set(parts_list ${CMAKE_BINARY_DIR}/integrated-display.spdx.json)
add_custom_command(
    OUTPUT ${parts_list}
    COMMAND ${parts}/list ${CMAKE_BINARY_DIR} ${names} romfs/resources.pbr romfs/localization.dat > ${parts_list}
    DEPENDS ${programs} ${ROMFS_DIR}/resources.pbr ${ROMFS_DIR}/localization.dat
            ${parts}/list ${parts}/parts.txt ${parts}/spdx.jq
    VERBATIM)
add_custom_target(product ALL DEPENDS ${parts_list} ${programs} romfs)
