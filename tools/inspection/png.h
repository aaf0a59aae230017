#pragma once

#include <filesystem>

#include "tools/formats/pixels.h"

/// Writes a picture as a PNG file with transparency, the same bytes for the same picture.
/// @throws SourceError when the file cannot be written
void WritePng(const std::filesystem::path& path, const Image& image);
