#pragma once

#include <filesystem>

#include "tools/formats/byte_writer.h"

/// The whole of a file; SourceError when it cannot be read.
[[nodiscard]] Bytes ReadFile(const std::filesystem::path& path);
[[nodiscard]] std::string ReadTextFile(const std::filesystem::path& path);

/// Replaces a file in one step, making its folder where there is none: a failed write leaves the old file.
void WriteFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
