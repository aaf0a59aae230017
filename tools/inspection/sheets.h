#pragma once

#include <filesystem>

#include "tools/formats/resource_file.h"

/// One PNG a font (font-32.png ...): a line of figures and letters, then every character of its pages.
void WriteFontSheets(const std::filesystem::path& folder, const ResourceFile& file);

/// One PNG a bitmap (bitmap-70.png ...) and sheet.png with all of them and their numbers.
void WriteBitmapSheets(const std::filesystem::path& folder, const ResourceFile& file);
