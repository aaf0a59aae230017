#pragma once

#include <memory>
#include <vector>

#include "peg/resources/file.h"
#include "peg/resources/resource_set.h"
#include "peg/resources/string_table.h"

/// What a resource file holds, read and checked: sizes, counts and offsets agree with each other and with the file.
struct ResourceFileContent {
    std::vector<std::unique_ptr<PegResourceSet>> sets;
    std::unique_ptr<StringTable> strings;  // null: the file has none
    std::uint16_t stringCount = 0;
};

enum class FileVerdict { Whole, ForeignFormat, Broken };

/// Reads a resource file of either byte order into `content`.
/// @return ForeignFormat when the header is not a resource file's; Broken when a record is not what it should be: the
/// sets before it are in `content`, whole
[[nodiscard]] FileVerdict ReadResourceFile(PegFile& file, ResourceFileContent& content);
