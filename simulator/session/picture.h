#pragma once

#include <filesystem>

#include "simulator/panel/frame.h"

namespace session {

/// Writes a frame as PNG to a file, or to the open `output` when the path is "-".
/// @throws std::runtime_error when it cannot be written whole
void WritePicture(const panel::Frame& frame, const std::filesystem::path& path, int output);

}  // namespace session
