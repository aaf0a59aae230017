#pragma once

#include <filesystem>
#include <string>

#include "tools/formats/pixels.h"

/// Draws an SVG file at its own size, which must be whole pixels. `style` is added to its style rules.
/// @throws SourceError when the file cannot be drawn
[[nodiscard]] Image DrawSvg(const std::filesystem::path& path, const std::string& style);
