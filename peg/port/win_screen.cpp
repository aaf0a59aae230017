#include "peg/port/win_screen.h"

#include "platform/device.h"

namespace {
constexpr const char* kFrameBuffer = "/db9000_fb";
}

void PegWinScreen::FlushToDevice() {
    const int device = os::open(kFrameBuffer, os::kReadWrite);
    m_behind = device < 0 || os::write(device, Row(0), FrameBytes()) != static_cast<ssize_t>(FrameBytes());
    if (device < 0) return;
    os::close(device);
}
