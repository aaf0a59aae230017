#pragma once

#include <span>
#include <string_view>

namespace panel {

/// A file of the folder page/, as it was when the program was built.
struct PageFile {
    std::string_view name;
    std::span<const unsigned char> bytes;
};

std::span<const PageFile> PageFiles();

}  // namespace panel
