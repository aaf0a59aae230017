#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

/// Red, green and blue, a byte each, rows top to bottom.
using RgbPixels = std::vector<std::uint8_t>;

/// RGB565 as the panel's page shows it.
RgbPixels Expand(std::span<const std::uint16_t> frame);

/// Writes a picture, the same bytes for the same picture, and makes its folder where there is none.
[[nodiscard]] bool WritePngFile(const std::filesystem::path& path, const RgbPixels& pixels, int width, int height);

/// @return false when the file cannot be read or has another size
[[nodiscard]] bool ReadPngFile(const std::filesystem::path& path, RgbPixels& pixels, int width, int height);
