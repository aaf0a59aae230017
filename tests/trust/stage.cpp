#include "tests/trust/stage.h"

#include <algorithm>
#include <new>

#include "localization/localization.h"
#include "navigation/navigation_handler.h"
#include "simulator/session/descriptors.h"

namespace {

constexpr session::Instant kComeUp = 2500;

session::Setting SettingIn(const std::string& language) {
    session::Setting setting;
    setting.romfs = ROMFS_DIR;
    setting.language = language;
    return setting;
}

Stage* theStage = nullptr;

}  // namespace

/// What the display takes from the heap prepared to get nothing.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    const bool isAsked = theStage != nullptr && session::Scheduler::Instance().Self() != session::Scheduler::kOutside;
    if (isAsked && theStage->Fails(session::OsCall::Allocate, {})) return nullptr;
    return ::operator new[](size);
}

std::int32_t CountingBoard::Control(std::string_view device, std::uint32_t request, std::int32_t argument) {
    if (device == "/db9000_bl") return backlight.Control(request, argument);
    if (device == "/rasGpio1/0") return ports[0].Control(request, argument);
    ++lampRequests;
    return ports[1].Control(request, argument);
}

Stage::Stage(const std::string& language) : Session(SettingIn(language), *this) {
    FreezeMeter();
    theStage = this;
}

Stage::~Stage() { theStage = nullptr; }

bool Stage::Fails(session::OsCall call, std::string_view what) {
    using enum session::OsCall;
    switch (call) {
        case Open: m_opened = what; break;
        case Read:
        case Write:
        case Control:
        case Seek: what = m_opened; break;
        case CreateTask: m_createdTask = what; break;
        case ActivateTask: what = m_createdTask; break;
        default: break;
    }
    if (!fails) return false;
    std::string name(NameOf(call));
    if (!what.empty()) name.append(" ").append(what);
    return fails(call, name);
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

void Stage::GoTo(int screen) {
    if (screen == SCREEN_ID_FACTORY_TEST) {
        navigationHandlerClass::postDispTest();
    } else {
        navigationHandlerClass::postNavigateTo(static_cast<std::uint32_t>(screen));
    }
    Run(kTwoRefreshes);
}

std::string Stage::Picture() const {
    const panel::Frame& frame = NewestFrame();
    const std::string_view bytes(reinterpret_cast<const char*>(frame.data()), frame.size());
    return std::to_string(std::hash<std::string_view>{}(bytes));
}

std::string Stage::FlashingPicture() {
    const std::string first = Picture();
    Run(kSecond);
    const std::string second = Picture();
    return std::min(first, second) + " and " + std::max(first, second);
}

bool Stage::IsServing() { return session::Descriptors::Instance().Listener() != nullptr; }

int Stage::ShownScreen() { return navigationHandlerClass::getInstance().getCurrentScreenId(); }

bool Stage::IsGerman() {
    constexpr std::u16string_view kEnglish = u"Language";
    return localizationClass::getInstance().translate(kEnglish.data(), 1) != kEnglish;
}
