# One room of the house is one static library. Its sources are the .cpp files of its folders, so that a new file needs
# no line here.

# What every target of the project is compiled with.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(project_options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
# What ships is the same wherever it is built: it names no folder above the project.
target_compile_options(project_options INTERFACE
    $<$<CONFIG:Release,MinSizeRel>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)
# GCC 12 sees overlaps in the concatenation of strings that are not there.
target_compile_options(project_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(DISPLAY_SANITIZERS)
    target_compile_options(project_options INTERFACE -fsanitize=${DISPLAY_SANITIZERS} -fno-omit-frame-pointer)
    target_link_options(project_options INTERFACE -fsanitize=${DISPLAY_SANITIZERS})
    # With sanitizers, GCC 12 sees uninitialised words in the regular expressions of its own library.
    target_compile_options(project_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    if(DISPLAY_SANITIZERS MATCHES undefined)
        # The check of dynamic types needs the type information that the display does without.
        target_compile_options(project_options INTERFACE -fno-sanitize-recover=undefined -fno-sanitize=vptr)
    endif()
endif()

# What runs on the panel besides: no exceptions, no run-time type information.
add_library(display_options INTERFACE)
target_link_libraries(display_options INTERFACE project_options)
target_compile_options(display_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti>)

# display_library(NAME [FOLDERS folder... | SOURCES file...] [DEPENDS library...])
#
# A library of the display process from the sources of the current folder, or of the named folders below it, or from
# the named sources where a folder holds two libraries.
function(display_library name)
    cmake_parse_arguments(ROOM "" "" "FOLDERS;SOURCES;DEPENDS" ${ARGN})
    if(NOT ROOM_FOLDERS AND NOT ROOM_SOURCES)
        set(ROOM_FOLDERS .)
    endif()
    set(sources ${ROOM_SOURCES})
    foreach(folder IN LISTS ROOM_FOLDERS)
        file(GLOB found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
        list(APPEND sources ${found})
    endforeach()
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC ${ROOM_DEPENDS} PRIVATE display_options)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
endfunction()
