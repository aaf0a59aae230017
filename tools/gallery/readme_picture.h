#pragma once

#include <filesystem>
#include <span>

#include "tools/gallery/pictures.h"

/// Some screens of a walk side by side, for those who see the project for the first time. Each writes or compares a PNG
/// file.
/// @throws std::runtime_error when the walk did not come past one of them, or the file cannot be written
void WriteReadmePicture(const std::filesystem::path& path, std::span<const PanelPicture> walk);
[[nodiscard]] bool IsReadmePicture(const std::filesystem::path& path, std::span<const PanelPicture> walk);
