#include "simulator/meter/link/console.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>

#include "rda/wire.h"
#include "simulator/meter/link/condition_lines.h"
#include "simulator/meter/wire/codec.h"

namespace meter {
namespace {

constexpr std::uint32_t kTextSize = 32;  // bytes asked for in a text query

/// How a command of the display is called.
enum class Shape : std::uint8_t {
    Bare,       // no payload, no reply
    Number,     // one word, no reply
    AskNumber,  // no payload, one word back
    AskText,    // the text size as payload, a text back
    Key         // a key record
};

struct DisplayCommandRow {
    std::string_view word;
    std::string_view operation;
    Shape shape;
};

struct KeyRow {
    std::string_view name;
    std::uint32_t index;
};

struct SettingRow {
    std::string_view word;
    std::uint16_t id;
};

// clang-format off
constexpr auto kDisplayCommands = std::to_array<DisplayCommandRow>({
    {"hardware-id",       "VEKHWIF_getHwId",                Shape::AskNumber},
    {"alt-mode",          "NAVCMDINT_changeAltModeState",   Shape::Number},
    {"navigate",          "NAVCMDINT_navigateTo",           Shape::Number},
    {"display-test",      "NAVCMDINT_navigateToDispTest",   Shape::Bare},
    {"send-language",     "DISPCFG_setLanguage",            Shape::Number},
    {"send-phase-labels", "DISPCFG_setPhaseLabels",         Shape::Number},
    {"send-symbols",      "DISPCFG_setMeasSymbols",         Shape::Number},
    {"test-mode",         "NAVCMDINT_changeTestModeState",  Shape::Number},
    {"kernel-version",    "MISCINT_getVekKrnlVersion",      Shape::AskText},
    {"app-version",       "MISCINT_getVekDisplayAppVersion", Shape::AskText},
    {"os-version",        "MISCINT_getVekOsPkgVersion",     Shape::AskText},
    {"serial-number",     "MISCINT_getVekSerialNumber",     Shape::AskText},
    {"app-variant",       "MISCINT_getVekDisplayAppVariant", Shape::AskNumber},
    {"send-backlight",    "BACKLIGHT_setTimeout",           Shape::Number},
    {"key",               "BUTTON_simulate_input",          Shape::Key},
});
static_assert(kDisplayCommands.size() == 15);

constexpr auto kKeys = std::to_array<KeyRow>({
    {"home", 0}, {"soft1", 1}, {"soft2", 2}, {"soft3", 3}, {"soft4", 4}, {"soft23", 5},
    {"0", 0}, {"1", 1}, {"2", 2}, {"3", 3}, {"4", 4}, {"5", 5},
});

// Settings that have a word of their own; the display is told of them.
constexpr auto kSettings = std::to_array<SettingRow>({
    {"language", reg::kLanguage}, {"phase-labels", reg::kPhaseLabels}, {"symbols", reg::kSymbols},
    {"backlight", reg::kBacklightTimeout},
});
// clang-format on

/// Splits the first word off.
std::string_view TakeWord(std::string_view& line) {
    const std::size_t start = std::min(line.find_first_not_of(" \t\r"), line.size());
    const std::size_t end = std::min(line.find_first_of(" \t\r", start), line.size());
    const std::string_view word = line.substr(start, end - start);
    line.remove_prefix(end);
    return word;
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t start = std::min(text.find_first_not_of(" \t\r"), text.size());
    const std::size_t end = text.find_last_not_of(" \t\r");
    return end == std::string_view::npos ? std::string_view() : text.substr(start, end - start + 1);
}

std::optional<std::uint32_t> ParseWord(std::string_view text) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

template <std::size_t Count>
std::array<WireU32, Count> Words(const std::array<std::uint32_t, Count>& values) {
    std::array<WireU32, Count> words{};
    for (std::size_t i = 0; i < Count; ++i) words[i].Set(values[i]);
    return words;
}

std::uint32_t WordIn(std::span<const std::byte> bytes) {
    WireU32 word{};
    std::ranges::transform(bytes.first(word.bytes.size()), word.bytes.begin(),
                           [](std::byte one) { return std::to_integer<std::uint8_t>(one); });
    return word.Get();
}

const std::string kNotThere = "error the display does not answer";

std::string PressKey(const DisplayLink& display, std::string_view name, std::string_view state) {
    const auto key = std::ranges::find(kKeys, name, &KeyRow::name);
    if (key == kKeys.end()) return "error no such key";
    if (!state.empty() && state != "down" && state != "up") return "error a key is down or up";
    for (const std::uint32_t pressed : {1U, 0U}) {
        if ((state == "down" && pressed == 0) || (state == "up" && pressed == 1)) continue;
        const auto record = Words<4>({0, pressed, key->index, 0});
        if (!display.Call("BUTTON_simulate_input", std::as_bytes(std::span(record)), 0)) return kNotThere;
    }
    return "ok";
}

}  // namespace

std::string Console::Begin(std::string_view scenario) {
    try {
        return Play(scenario) ? "ok" : "error no such scenario";
    } catch (const std::runtime_error& mistake) {
        return std::string("error ") + mistake.what();
    }
}

std::string Console::Execute(std::string_view line) {
    const std::string_view word = TakeWord(line);
    const std::string_view rest = Trimmed(line);
    if (word == "state") return State();
    if (word == "scenario") return Begin(rest);
    if (word == "restart") {
        m_meter.Restart();
        return "ok";
    }
    if (word == "fault") {
        Fault fault{};
        if (!FindFault(rest, fault)) return "error no such fault";
        m_server.SetFault(fault);
        return "ok";
    }
    if (word == "advance") {
        const auto seconds = ParseWord(rest);
        if (!seconds || *seconds > 86400) return "error seconds, at most 86400";
        m_meter.Advance(std::int64_t{*seconds} * kSecond);
        return "ok";
    }
    std::string_view arguments = rest;
    const std::string_view first = TakeWord(arguments);
    if (word == "get") {
        const auto id = ParseWord(first);
        const auto text = id ? m_meter.Read(*id) : std::nullopt;
        if (!text) return "error no such register";
        return "ok " + std::string(text->label) + ": " + text->value + " " + std::string(text->unit);
    }
    if (word == "set") {
        const auto id = ParseWord(first);
        if (!id) return "error no such register";
        const auto refusal = m_meter.Write(*id, Trimmed(arguments), kMeterModule);
        if (refusal) return "error " + ToUtf8(*refusal);
        return PassOnSettings() ? "ok" : "ok, the display does not answer";
    }
    if (const auto answer = ExecuteConditionLine(m_meter, word, rest)) return *answer;
    const auto setting = std::ranges::find(kSettings, word, &SettingRow::word);
    if (setting != kSettings.end()) return ChooseItem(setting->id, rest);
    return CommandDisplay(word, first, Trimmed(arguments));
}

bool Console::Play(std::string_view name) {
    if (IsScenarioFile(name)) {
        auto file = LoadScenarioFile(std::string(name));
        m_meter.Play(file->situation, file->waves);
        m_server.SetFault(file->situation.fault);
        m_file = std::move(file);
        m_fileStart = m_meter.Now();
        return true;
    }
    const Scenario* scenario = FindScenario(name);
    if (scenario == nullptr) return false;
    m_meter.Play(*scenario);
    m_server.SetFault(scenario->fault);
    m_file.reset();
    return true;
}

void Console::Serve() {
    if (m_file)
        for (const std::string& line : m_file->script.TakeDue(m_meter.Now() - m_fileStart)) Execute(line);
    PassOnSettings();
}

bool Console::PassOnSettings() {
    bool taken = true;
    for (const DisplayCommand& command : m_meter.TakeCommands())
        taken = m_display.Send(command.operation, command.value) && taken;
    return taken;
}

std::string Console::ChooseItem(std::uint16_t id, std::string_view item) {
    const auto index = ParseWord(item);
    const Register* row = FindRegister(id);
    std::string_view text = item;
    if (index && !row->items.empty()) {
        if (*index >= row->items.size()) return "error no such choice";
        text = row->items[*index];
    }
    const auto refusal = m_meter.Write(id, text, kMeterModule);
    if (refusal) return "error " + ToUtf8(*refusal);
    return PassOnSettings() ? "ok" : "ok, the display does not answer";
}

std::string Console::CommandDisplay(std::string_view word, std::string_view argument, std::string_view second) {
    const auto row = std::ranges::find(kDisplayCommands, word, &DisplayCommandRow::word);
    if (row == kDisplayCommands.end()) return "error unknown command";
    switch (row->shape) {
        case Shape::Key: return PressKey(m_display, argument, second);
        case Shape::Bare: return m_display.Call(row->operation, {}, 0) ? "ok" : kNotThere;
        case Shape::Number: {
            const auto value = ParseWord(argument);
            if (!value) return "error a number is missing";
            return m_display.Send(row->operation, *value) ? "ok" : kNotThere;
        }
        case Shape::AskNumber: {
            const auto reply = m_display.Call(row->operation, {}, sizeof(std::uint32_t));
            return reply ? "ok " + std::to_string(WordIn(*reply)) : kNotThere;
        }
        case Shape::AskText: {
            const auto size = Words<1>({kTextSize});
            const auto reply = m_display.Call(row->operation, std::as_bytes(std::span(size)), kTextSize);
            if (!reply) return kNotThere;
            const auto end = std::ranges::find(*reply, std::byte{0});
            return "ok " + std::string(reinterpret_cast<const char*>(reply->data()),
                                       static_cast<std::size_t>(end - reply->begin()));
        }
    }
    return "error unknown command";
}

std::string Console::State() const {
    const Settings& settings = m_meter.GetSettings();
    const Clock& clock = m_meter.GetClock();
    nlohmann::json state = {
        {"seed", m_seed},
        {"time", clock.DateText(m_meter.Now()) + " " + clock.TimeText(m_meter.Now())},
        {"scenario", m_meter.PlayedScenario().name},
        {"fault", FaultName(m_server.GetFault())},
        {"faults", FaultNames()},
        {"connectionId", m_meter.ConnectionId()},
        {"connections", m_server.ConnectionCount()},
        {"calls", m_server.CallCount()},
        {"unanswered", m_server.UnansweredCount()},
        {"altMode", m_meter.altMode},
        {"testMode", m_meter.testMode},
        {"language", settings.Item(reg::kLanguage)},
        {"phaseLabels", settings.Item(reg::kPhaseLabels)},
        {"symbols", settings.Item(reg::kSymbols)},
        {"alarmStatus", m_meter.GetAlarms().GlobalStatus()},
        {"activeAlarms", m_meter.GetAlarms().Active().size()},
        {"events", m_meter.GetEventLog().Count()},
    };
    state.update(Conditions(m_meter));
    for (const Scenario& scenario : Scenarios()) state["scenarios"].push_back(scenario.name);
    const std::array<std::pair<const char*, Quantity>, 6> values = {{{"frequency", Quantity::Frequency},
                                                                     {"lineVoltage", Quantity::VoltageLlAverage},
                                                                     {"current", Quantity::CurrentAverage},
                                                                     {"activePower", Quantity::ActiveTotal},
                                                                     {"reactivePower", Quantity::ReactiveTotal},
                                                                     {"powerFactor", Quantity::PowerFactorTotal}}};
    for (const auto& [name, quantity] : values) state["values"][name] = m_meter.Value(quantity);
    return state.dump();
}

}  // namespace meter
