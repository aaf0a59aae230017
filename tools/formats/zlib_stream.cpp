#include "tools/formats/zlib_stream.h"

#include <zlib.h>

#include <stdexcept>

Bytes Deflate(std::span<const std::uint8_t> bytes) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    Bytes stream(size);
    if (compress2(stream.data(), &size, bytes.data(), static_cast<uLong>(bytes.size()), Z_BEST_COMPRESSION) != Z_OK) {
        throw std::runtime_error("zlib cannot compress");
    }
    stream.resize(size);
    return stream;
}

std::optional<Bytes> Inflate(std::span<const std::uint8_t> stream, std::size_t size) {
    Bytes bytes(size + 1);  // one byte more than expected shows a stream that is too long
    auto filled = static_cast<uLongf>(bytes.size());
    if (uncompress(bytes.data(), &filled, stream.data(), static_cast<uLong>(stream.size())) != Z_OK) return {};
    if (filled != size) return {};
    bytes.resize(size);
    return bytes;
}
