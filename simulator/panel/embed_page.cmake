# Writes the files named after "--" into the source OUTPUT, as the table that page_files.h declares.

set(arrays "")
set(rows "")
set(index 0)
set(after_dashes FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(at RANGE ${last})
    set(file "${CMAKE_ARGV${at}}")
    if(NOT after_dashes)
        if(file STREQUAL "--")
            set(after_dashes TRUE)
        endif()
        continue()
    endif()
    file(READ "${file}" hex HEX)
    string(REGEX REPLACE "(..)" "0x\\1," bytes "${hex}")
    get_filename_component(name "${file}" NAME)
    string(APPEND arrays "constexpr unsigned char kFile${index}[] = {${bytes}};\n")
    string(APPEND rows "    {\"${name}\", kFile${index}},\n")
    math(EXPR index "${index} + 1")
endforeach()

file(WRITE "${OUTPUT}" "#include \"simulator/panel/page_files.h\"

namespace panel {
namespace {

${arrays}
constexpr PageFile kFiles[] = {
${rows}};

}  // namespace

std::span<const PageFile> PageFiles() { return kFiles; }

}  // namespace panel
")
