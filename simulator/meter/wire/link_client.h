#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace meter {

/// Why a call did not succeed, as a sentence for a person.
class CallFailed : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The bytes of one call.
std::vector<std::byte> FrameOf(std::string_view operation, std::span<const std::byte> payload, std::uint32_t replySize);

/// Makes one call over a connection of its own, from the host's side of the link.
/// @param address  dotted IPv4 text
/// @return the reply of exactly `replySize` bytes
/// @throws CallFailed when nobody listens, or when a step takes longer than `patience`
std::vector<std::byte> CallOnce(const std::string& address, std::uint16_t port, std::string_view operation,
                                std::span<const std::byte> payload, std::uint32_t replySize,
                                std::chrono::milliseconds patience);

}  // namespace meter
