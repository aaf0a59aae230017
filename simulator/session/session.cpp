#include "simulator/session/session.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "app/startup_screen.h"
#include "navigation/navigation_handler.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/toolkit.h"
#include "simulator/session/descriptors.h"

namespace session {
namespace {

constexpr Instant kStep = 50;         // between two looks at what settings changed
constexpr Instant kSplash = 2500;     // until the display has handed over
constexpr Instant kComeUp = 900'000;  // at most, with a slow meter
constexpr Instant kSettle = 3'000;    // three refreshes of a screen
constexpr Instant kSlowest = 60'000;  // to reach a screen while the meter is slow

constexpr auto kLanguages = std::to_array<std::string_view>({"en", "de", "fr", "es", "it", "ru"});
constexpr auto kModes = std::to_array<std::string_view>({"normal", "alt", "test"});
// In the order of the codes of the keys device, from 1.
constexpr auto kKeys = std::to_array<std::string_view>({"soft1", "soft2", "soft3", "soft4", "home", "soft23"});
constexpr std::int32_t kDown = 0;
constexpr std::int32_t kUp = 1;

template <std::size_t Count>
std::size_t PlaceOf(std::string_view word, const std::array<std::string_view, Count>& words, const char* what) {
    const auto found = std::ranges::find(words, word);
    if (found != words.end()) return static_cast<std::size_t>(found - words.begin());
    std::string list;
    for (const std::string_view one : words) list += (list.empty() ? "" : ", ") + std::string(one);
    throw std::invalid_argument("there is no " + std::string(what) + " \"" + std::string(word) + "\"; there are " +
                                list);
}

/// Whether the link works, but not as it should.
bool IsHindered(meter::Fault fault) { return fault != meter::Fault::None && fault != meter::Fault::Absent; }

}  // namespace

int LanguageNumber(std::string_view word) { return static_cast<int>(PlaceOf(word, kLanguages, "language")); }

std::int32_t BoardPort::Control(std::string_view device, std::uint32_t request, std::int32_t argument) {
    if (device == "/db9000_bl") return m_backlight.Control(request, argument);
    return m_ports[device.ends_with('1') ? 1 : 0].Control(request, argument);
}

Session::Session(const Setting& setting, BoardPort& board, Listener* listener)
    : m_setting(setting),
      m_board(board),
      m_listener(listener),
      m_meter(setting.seed, setting.start * 1000),
      m_server(m_meter),
      m_display([this](std::string_view operation, std::span<const std::byte> payload, std::uint32_t size) {
          if (m_listener != nullptr && Descriptors::Instance().Listener() != nullptr)
              m_listener->OnCommand(operation, payload, size);
          return CommandDisplay(operation, payload, size);
      }),
      m_console(m_meter, m_server, m_display, setting.seed) {
    PlaceOf(setting.mode, kModes, "mode");
    if (!m_console.Play(setting.scenario))
        throw std::invalid_argument("there is no scenario \"" + setting.scenario + "\"");
    m_console.Execute("language " + std::to_string(LanguageNumber(setting.language)));
    for (std::int64_t lived = 0; lived < std::int64_t{setting.at} * 1000; lived += kStep) {
        m_meter.Advance(kStep);
        m_console.Serve();
    }
    SetWorld(*this);
}

void Session::Start() {
    Scheduler& scheduler = Scheduler::Instance();
    TellListening();
    StartDisplay();
    Run(kSplash);
    while (!HasHandedOver() && IsHindered(m_server.GetFault()) && scheduler.Now() < kComeUp) Run(kStep);
    if (m_setting.mode != "normal") Execute(m_setting.mode + "-mode 1");
    if (m_setting.screen != 0 && !Show(m_setting.screen))
        throw std::runtime_error("the display does not go to screen " + std::to_string(m_setting.screen));
}

bool Session::Show(int screen) {
    if (!HasHandedOver()) return false;
    const auto& navigation = navigationHandlerClass::getInstance();
    const Instant end = Scheduler::Instance().Now() + kSlowest;
    if (Execute("navigate " + std::to_string(screen)) != "ok") return false;
    Run(kSettle);
    while (navigation.getCurrentScreenId() != screen && m_server.GetFault() != meter::Fault::None &&
           Scheduler::Instance().Now() < end)
        Run(kStep);
    return navigation.getCurrentScreenId() == screen;
}

bool Session::HasHandedOver() {
    const PegThing* shown = toolkit.manager != nullptr ? toolkit.manager->FirstChild() : nullptr;
    return shown != nullptr && shown != &startupScreen::getInstance();
}

void Session::RunUntil(Instant when) {
    Scheduler& scheduler = Scheduler::Instance();
    while (scheduler.Now() < when) {
        scheduler.RunUntil(std::min(when, scheduler.Now() + kStep));
        AdvanceMeter();
        m_console.Serve();
        TellListening();
    }
}

std::string Session::Execute(std::string_view line) {
    constexpr std::string_view kPress = "press ";
    AdvanceMeter();
    if (line.starts_with(kPress)) return PressByName(line.substr(kPress.size()));
    std::string answer = m_console.Execute(line);
    TellListening();
    return answer;
}

void Session::TellListening() {
    if (m_listener == nullptr || m_listened == MeterListens()) return;
    m_listened = MeterListens();
    m_listener->OnListening(m_listened);
}

std::string Session::PressByName(std::string_view words) {
    const std::size_t space = std::min(words.find(' '), words.size());
    const std::string_view state = words.substr(std::min(space + 1, words.size()));
    const auto key = std::ranges::find(kKeys, words.substr(0, space));
    if (key == kKeys.end()) return "error no such key";
    if (!state.empty() && state != "down" && state != "up") return "error a key is down or up";
    const auto code = static_cast<std::int32_t>(key - kKeys.begin()) + 1;
    if (state != "up") Press(code, kDown);
    if (state != "down") Press(code, kUp);
    return "ok";
}

void Session::Press(std::int32_t code, std::int32_t state) {
    if (m_listener != nullptr) m_listener->OnKey(code, state);
    PressKey(code, state);
}

void Session::TakeFrame(std::span<const std::byte> pixels) {
    std::memcpy(m_frame->data(), pixels.data(), std::min(pixels.size(), m_frame->size()));
    if (m_listener != nullptr) m_listener->OnFrame(*m_frame);
    m_board.TakeFrame(*m_frame);
}

std::int32_t Session::Control(std::string_view device, std::uint32_t request, std::int32_t argument) {
    return m_board.Control(device, request, argument);
}

meter::CallOutcome Session::TakeCall(const meter::Frame& call) {
    AdvanceMeter();
    meter::CallOutcome outcome = m_server.Take(call);
    if (m_listener != nullptr) m_listener->OnCall(call, outcome);
    return outcome;
}

void Session::AdvanceMeter() {
    const Instant now = Scheduler::Instance().Now();
    if (!m_frozen) m_meter.Advance(now - m_meterTime);
    m_meterTime = now;
}

}  // namespace session
