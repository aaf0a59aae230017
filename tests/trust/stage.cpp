#include "tests/trust/stage.h"

#include <algorithm>
#include <string_view>

#include "localization/localization.h"
#include "navigation/navigation_handler.h"
#include "simulator/session/descriptors.h"

namespace {

constexpr session::Instant kComeUp = 2500;
constexpr std::int32_t kHomeCode = 5;  // of the keys device
constexpr std::int32_t kPressed = 0;
constexpr std::int32_t kReleased = 1;

}  // namespace

std::int32_t CountingBoard::Control(std::string_view device, std::uint32_t request, std::int32_t argument) {
    ++controls[std::string(device)];
    if (device == "/db9000_bl") return backlight.Control(request, argument);
    return ports[device.ends_with('1') ? 1 : 0].Control(request, argument);
}

session::Setting Stage::Usual() {
    session::Setting setting;
    setting.romfs = ROMFS_DIR;
    return setting;
}

session::Setting Stage::InGerman() {
    session::Setting setting = Usual();
    setting.language = "de";
    return setting;
}

void Stage::RaiseAnAlarm() {
    constexpr session::Instant kWhile = 5000;
    Execute("alarm on Phase loss");
    Model().Advance(kWhile);
}

void Stage::StartDisplay() {
    session::StartDisplay();
    Run(kComeUp);
}

std::string Stage::Picture() const {
    const panel::Frame& frame = NewestFrame();
    const std::string_view bytes(reinterpret_cast<const char*>(frame.data()), frame.size());
    return std::to_string(std::hash<std::string_view>{}(bytes));
}

std::string Stage::FlashingPicture() {
    constexpr session::Instant kFlash = 1000;
    const std::string first = Picture();
    Run(kFlash);
    const std::string second = Picture();
    return std::min(first, second) + " and " + std::max(first, second);
}

bool Stage::IsServing() { return session::Descriptors::Instance().Listener() != nullptr; }

int Stage::ShownScreen() { return navigationHandlerClass::getInstance().getCurrentScreenId(); }

bool Stage::IsGerman() {
    constexpr std::u16string_view kEnglish = u"Language";
    return localizationClass::getInstance().translate(kEnglish.data(), 1) != kEnglish;
}

void Stage::PressHome() {
    Press(kHomeCode, kPressed);
    Press(kHomeCode, kReleased);
}
