#include "peg/port/win_screen.h"

#include "platform/device.h"

namespace {
constexpr const char* kFrameBuffer = "/db9000_fb";
}

void PegWinScreen::FlushToDevice() {
    const int device = os::open(kFrameBuffer, os::kReadWrite);
    if (device < 0) return;
    static_cast<void>(os::write(device, Row(0), FrameBytes()));
    os::close(device);
}
