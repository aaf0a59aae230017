#pragma once

#include <cstddef>
#include <cstdint>

/// The form of a request: magic, name size, name with its terminator, payload size, payload, response size. All numbers
/// are 32-bit, least significant byte first. The reply is the bare bytes that were asked for.
namespace rda {

inline constexpr std::uint32_t kMagic = 0x52522525;  // "%%RR"
inline constexpr std::size_t kFrameNumbers = 4 * sizeof(std::uint32_t);

/// The address at which meter and display find each other on the unit, and their ports.
inline constexpr const char* kLocalAddress = "127.0.0.1";
inline constexpr std::uint16_t kMeterPort = 31415;
inline constexpr std::uint16_t kDisplayPort = 31416;

}  // namespace rda
