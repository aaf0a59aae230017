#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "tools/formats/byte_writer.h"

/// Bytes as a zlib stream, at the best compression.
[[nodiscard]] Bytes Deflate(std::span<const std::uint8_t> bytes);

/// The bytes of a zlib stream, or nothing when it is damaged or does not hold exactly `size` bytes.
[[nodiscard]] std::optional<Bytes> Inflate(std::span<const std::uint8_t> stream, std::size_t size);
