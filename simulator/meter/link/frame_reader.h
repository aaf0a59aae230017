#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace meter {

/// One call as it came over the link.
struct Frame {
    std::string name;
    std::vector<std::byte> payload;
    std::uint32_t responseSize = 0;
};

/// Takes calls out of a stream of bytes, however it was cut. Holds never more than one frame of the largest size.
class FrameReader {
public:
    enum class Result { NeedMore, Ready, Broken };

    void Feed(std::span<const std::byte> bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }

    /// Takes the next call out. Broken: the bytes are no frame; the connection is of no more use.
    Result Next(Frame& frame);

    static constexpr std::uint32_t kMaxName = 128;  // with its terminator
    static constexpr std::uint32_t kMaxPayload = 4096;
    static constexpr std::uint32_t kMaxResponse = 256 * 1024;

private:
    std::vector<std::byte> m_bytes;
};

}  // namespace meter
