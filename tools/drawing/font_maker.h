#pragma once

#include <filesystem>
#include <vector>

#include "tools/formats/resource_file.h"

/// Makes the panel's fonts from outline fonts, as a fonts file (JSON) asks for: faces, named ranges of characters, and
/// for each font its size, face and ranges, in the order of their numbers.
///
/// Every range of a font is one page; a character that the face lacks comes from the fallback face, and one that both
/// lack has no width. Cells are as wide as their characters advance, wider where one leans out of its own place;
/// figures share one width.
/// @throws SourceError when a face cannot be read, a range is none, or numbers do not follow each other from 32 up
[[nodiscard]] std::vector<Font> MakeFonts(const std::filesystem::path& path);
