#include "app/panel_hardware.h"

#include <array>
#include <cstddef>
#include <cstring>

#include "platform/device.h"
#include "platform/panel.h"
#include "platform/task.h"

namespace {

constexpr const char* kBacklight = "/db9000_bl";
constexpr const char* kButtons = "/buttons";

constexpr int BL_IOCTL_ENABLE = 0x20047A20;
constexpr int BL_IOCTL_SET_LEVEL = 0x20047A2D;
constexpr int BL_IOCTL_GET_LEVEL = 0x20047A36;
constexpr int BL_IOCTL_SETUP_A = 0x20047A38;
constexpr int BL_IOCTL_SETUP_B = 0x20047A3B;
constexpr int GPIO_IOCTL_SET = 0x20047A27;
constexpr int GPIO_IOCTL_CLEAR = 0x20047A28;

constexpr int kSetupA = 1;
constexpr int kSetupB = 374;
constexpr int kLargestLevel = 255;

struct OutputLine {
    const char* device;
    int mask;
};
constexpr auto kOutputLines = std::to_array<OutputLine>({
    {"/rasGpio1/0", 0x10},
    {"/rasGpio1/0", 0x08},
    {"/rasGpio1/1", 0x08},
});

/// The key index of each button code, which count from 1.
constexpr std::array<std::uint32_t, 6> kKeyIndexes = {1, 2, 3, 4, 0, 5};

struct ButtonRecord {
    std::int32_t code;
    std::int32_t state;  // 0 and 2: pressed
};
static_assert(sizeof(ButtonRecord) == 8);

/// A device that is open until the end of the block.
class Device {
public:
    Device(const char* path, int mode) : m_descriptor(os::open(path, mode)) {}
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    ~Device() {
        if (m_descriptor >= 0) os::close(m_descriptor);
    }
    bool IsOpen() const { return m_descriptor >= 0; }
    int Descriptor() const { return m_descriptor; }
    int Control(int request, int argument) const { return os::ioctl(m_descriptor, request, argument); }

private:
    int m_descriptor;
};

int ControlDevice(const char* path, int request, int argument) {
    const Device device(path, os::kReadWrite);
    if (!device.IsOpen()) return -1;
    device.Control(request, argument);
    return 0;
}

/// Waits for a key record. @return 1, 0 when the time is over, -1 when waiting fails
int WaitForRecord(int descriptor, int timeoutSeconds) {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(descriptor, &readable);
    timeval limit{timeoutSeconds, 0};
    return os::select(descriptor + 1, &readable, timeoutSeconds < 0 ? nullptr : &limit);
}

}  // namespace

int VEKHWIF_init() {
    const Device backlight(kBacklight, os::kReadWrite);
    if (!backlight.IsOpen()) return -1;
    backlight.Control(BL_IOCTL_SETUP_A, kSetupA);
    backlight.Control(BL_IOCTL_SETUP_B, kSetupB);
    const auto level = static_cast<std::uint32_t>(backlight.Control(BL_IOCTL_GET_LEVEL, 0));
    backlight.Control(BL_IOCTL_SET_LEVEL, static_cast<int>(level * 25 / 100));
    backlight.Control(BL_IOCTL_ENABLE, 1);
    return 0;
}

int VEKHWIF_readButton(ButtonEvent& event, int timeoutSeconds) {
    const Device buttons(kButtons, os::kReadOnly);
    if (buttons.Descriptor() < 1) {
        // Without keys the caller would ask again at once, for ever.
        os::taskDelay(os::sysClkRateGet());
        return -1;
    }
    const int ready = WaitForRecord(buttons.Descriptor(), timeoutSeconds);
    if (ready < 0) os::taskDelay(os::sysClkRateGet());
    if (ready <= 0) return -1;

    ButtonRecord record{};
    if (os::read(buttons.Descriptor(), &record, sizeof record) != static_cast<ssize_t>(sizeof record)) {
        constexpr int kPauseTicks = 50;
        os::taskDelay(kPauseTicks);
        return -1;
    }
    if (record.code < 1 || record.code > static_cast<std::int32_t>(kKeyIndexes.size())) return -1;
    event = {.kind = kPanelKey,
             .pressed = record.state == 0 || record.state == 2 ? 1U : 0U,
             .value = kKeyIndexes[static_cast<std::size_t>(record.code - 1)],
             .extra = 0};
    return 0;
}

int VEKHWIF_setBacklight(int on) { return ControlDevice(kBacklight, BL_IOCTL_ENABLE, on); }

int VEKHWIF_setBrightness(int percent) {
    return ControlDevice(kBacklight, BL_IOCTL_SET_LEVEL, percent * kLargestLevel / 100);
}

int VEKHWIF_setGpio(int line, int level) {
    if (line < 0 || line >= static_cast<int>(kOutputLines.size())) return -1;
    const OutputLine& output = kOutputLines[static_cast<std::size_t>(line)];
    return ControlDevice(output.device, level != 0 ? GPIO_IOCTL_SET : GPIO_IOCTL_CLEAR, output.mask);
}

int VEKHWIF_getScreenWidth() { return kPanelWidth; }

int VEKHWIF_getScreenHeight() { return kPanelHeight; }

std::uint32_t VEKHWIF_getHwId() { return kHardwareId; }

int VEKHWIF_getTemperature(std::int32_t&) { return -1; }

int VEKHWIF_getSerialNumber(std::span<char>) { return -1; }

int VEKHWIF_getKernelVersion(std::uint32_t*) { return -1; }

int VEKHWIF_getOsPkgVersion(std::uint32_t*) { return -1; }
