#include "simulator/panel/devices.h"

namespace panel {

std::int32_t Backlight::Control(std::uint32_t request, std::int32_t argument) {
    switch (request) {
        case BL_IOCTL_ENABLE: on = argument != 0; return 0;
        case BL_IOCTL_SET_LEVEL:
            if (argument < 0 || argument > kBrightest) return -1;
            level = argument;
            return 0;
        case BL_IOCTL_GET_LEVEL: return level;
        case BL_IOCTL_SETUP_A:
        case BL_IOCTL_SETUP_B: return 0;
    }
    return -1;
}

std::int32_t OutputPort::Control(std::uint32_t request, std::int32_t mask) {
    switch (request) {
        case GPIO_IOCTL_SET: high |= static_cast<std::uint32_t>(mask); return 0;
        case GPIO_IOCTL_CLEAR: high &= ~static_cast<std::uint32_t>(mask); return 0;
    }
    return -1;
}

}  // namespace panel
