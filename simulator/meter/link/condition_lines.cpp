#include "simulator/meter/link/condition_lines.h"

#include <algorithm>
#include <array>

#include "simulator/meter/model/texts.h"
#include "simulator/meter/wire/codec.h"

namespace meter {
namespace {

const std::string kDone = "ok";
const std::string kNoSwitch = "error it is on or off";

/// What a line says after its word.
struct Switch {
    bool on;
    std::string_view rest;
};

std::optional<Switch> ParseSwitch(std::string_view text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    if (word != "on" && word != "off") return std::nullopt;
    text.remove_prefix(end);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return Switch{word == "on", text};
}

std::string SwitchAlarm(Meter& meter, const Switch& what) {
    const auto definitions = AlarmDefinitions();
    const auto found = std::ranges::find(definitions, what.rest, &AlarmDefinition::name);
    if (found == definitions.end()) return "error no such alarm";
    meter.GetAlarms().Hold(static_cast<std::size_t>(found - definitions.begin()), what.on);
    return kDone;
}

std::string SwitchLock(Meter& meter, const Switch& what) {
    meter.SetHardwareLock(what.on);
    return kDone;
}

std::string SwitchRights(Meter& meter, const Switch& what) {
    meter.GetSecurity().AllowFrontPanel(what.on);
    return kDone;
}

std::string SwitchRefusal(Meter& meter, const Switch& what) {
    if (!what.on) meter.SetRefusal(std::nullopt);
    if (what.on) meter.SetRefusal(what.rest.empty() ? std::string(texts::kRefused) : FromUtf8(what.rest));
    return kDone;
}

struct LineRow {
    std::string_view word;
    std::string (*carryOut)(Meter& meter, const Switch& what);
};

// clang-format off
constexpr auto kLines = std::to_array<LineRow>({
    {.word = "alarm",  .carryOut = SwitchAlarm},
    {.word = "lock",   .carryOut = SwitchLock},
    {.word = "rights", .carryOut = SwitchRights},
    {.word = "refuse", .carryOut = SwitchRefusal},
});
// clang-format on

}  // namespace

std::optional<std::string> ExecuteConditionLine(Meter& meter, std::string_view word, std::string_view rest) {
    if (word == "event") {
        if (rest.empty()) return "error an event needs a text";
        meter.GetEventLog().Add(meter.Now(), kMeterModule, FromUtf8(rest));
        return kDone;
    }
    const auto row = std::ranges::find(kLines, word, &LineRow::word);
    if (row == kLines.end()) return std::nullopt;
    const auto what = ParseSwitch(rest);
    return what ? row->carryOut(meter, *what) : kNoSwitch;
}

nlohmann::json Conditions(Meter& meter) {
    nlohmann::json conditions = {
        {"hardwareLock", meter.HasHardwareLock()},
        {"frontPanelRights", meter.GetSecurity().IsFrontPanelAllowed()},
        {"refusal", nullptr},
        {"heldAlarms", nlohmann::json::array()},
    };
    if (meter.Refusal()) conditions["refusal"] = ToUtf8(*meter.Refusal());
    const auto definitions = AlarmDefinitions();
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        conditions["alarms"].push_back(definitions[i].name);
        if (meter.GetAlarms().IsHeld(i)) conditions["heldAlarms"].push_back(definitions[i].name);
    }
    return conditions;
}

}  // namespace meter
