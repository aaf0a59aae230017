#pragma once

#include <cstdint>

/// The drivers of the board that take control requests, and what they drive.
namespace panel {

inline constexpr std::uint32_t BL_IOCTL_ENABLE = 0x20047A20;
inline constexpr std::uint32_t BL_IOCTL_SET_LEVEL = 0x20047A2D;
inline constexpr std::uint32_t BL_IOCTL_GET_LEVEL = 0x20047A36;
inline constexpr std::uint32_t BL_IOCTL_SETUP_A = 0x20047A38;
inline constexpr std::uint32_t BL_IOCTL_SETUP_B = 0x20047A3B;
inline constexpr std::uint32_t GPIO_IOCTL_SET = 0x20047A27;
inline constexpr std::uint32_t GPIO_IOCTL_CLEAR = 0x20047A28;

inline constexpr std::int32_t kBrightest = 255;

/// The light behind the glass. At power-on it is on, as bright as it can be.
struct Backlight {
    std::int32_t level = kBrightest;  // 0 to kBrightest
    bool on = true;

    /// @return the level when it was asked for, 0 when the request was carried out, -1 when it means nothing here
    std::int32_t Control(std::uint32_t request, std::int32_t argument);
};

/// Up to 32 output lines, one bit each.
struct OutputPort {
    std::uint32_t high = 0;  // the lines that are driven high

    /// @return 0 when the request was carried out, -1 when it means nothing here
    std::int32_t Control(std::uint32_t request, std::int32_t mask);
};

}  // namespace panel
