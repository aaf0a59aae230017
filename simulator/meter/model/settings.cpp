#include "simulator/meter/model/settings.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "simulator/meter/model/texts.h"

namespace meter {
namespace {

constexpr std::string_view kNoAddress = "None";
constexpr double kLineSignal = 400.0;   // V between lines that the transformers deliver at nominal voltage
constexpr double kCurrentSignal = 5.0;  // A that they deliver at full current

std::optional<double> ParseNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (text.empty() || !std::isfinite(value) || error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

bool IsAddress(std::string_view text) {
    if (text == kNoAddress) return true;
    for (int group = 0; group < 4; ++group) {
        const std::size_t point = group < 3 ? text.find('.') : text.size();
        if (point == std::string_view::npos) return false;
        const auto value = ParseNumber(text.substr(0, point));
        if (!value || *value < 0 || *value > 255 || *value != std::floor(*value)) return false;
        text.remove_prefix(std::min(point + 1, text.size()));
    }
    return true;
}

}  // namespace

Settings::Settings() {
    for (const Register& row : Catalogue())
        if (!row.preset.empty()) m_texts.emplace(row.id, row.preset);
}

std::string_view Settings::Text(std::uint16_t id) const {
    const auto found = m_texts.find(id);
    return found != m_texts.end() ? std::string_view(found->second) : std::string_view();
}

double Settings::Number(std::uint16_t id) const { return ParseNumber(Text(id)).value_or(0.0); }

std::uint32_t Settings::Item(std::uint16_t id) const {
    const Register* row = FindRegister(id);
    if (row == nullptr) return 0;
    const auto found = std::ranges::find(row->items, Text(id));
    return found != row->items.end() ? static_cast<std::uint32_t>(found - row->items.begin()) : 0;
}

std::optional<std::string_view> Settings::Objection(const Register& target, std::string_view text) {
    switch (target.kind) {
        case Kind::Reading:
        case Kind::ReadOnlyText: return texts::kReadOnly;
        case Kind::Choice:
            if (std::ranges::find(target.items, text) == target.items.end()) return texts::kNotAChoice;
            return std::nullopt;
        case Kind::YesNo:
            if (text != "Yes" && text != "No") return texts::kNotAChoice;
            return std::nullopt;
        case Kind::Number:
        case Kind::Seconds: {
            const auto value = ParseNumber(text);
            if (!value) return texts::kNotANumber;
            if (*value < target.low || *value > target.high) return texts::kOutOfRange;
            return std::nullopt;
        }
        case Kind::Address:
            if (!IsAddress(text)) return texts::kNotAnAddress;
            return std::nullopt;
        case Kind::Reset:
            if (text != "1") return texts::kNotAChoice;
            return std::nullopt;
    }
    return texts::kReadOnly;
}

void Settings::Write(const Register& target, std::string_view text) {
    if (target.kind == Kind::Reset || target.kind == Kind::Reading) return;
    std::string& held = m_texts[target.id];
    if (target.kind == Kind::Number)
        held = Grouped(ParseNumber(text).value_or(0.0), target.decimals, Grouping::Plain);
    else
        held = text;
}

Connection Settings::ConnectionSettings() const {
    const auto sign = [this](std::uint16_t id) { return Item(id) == 0 ? 1.0 : -1.0; };
    return {.wiring = static_cast<Wiring>(Item(reg::kWiring)),
            .voltagePrimary = Number(reg::kPtPrimary) / Number(reg::kPtSecondary) * kLineSignal,
            .currentPrimary = Number(reg::kCtPrimary) / Number(reg::kCtSecondary) * kCurrentSignal,
            .neutralScale = Number(reg::kNeutralCtPrimary) / Number(reg::kNeutralCtSecondary) /
                            (Number(reg::kCtPrimary) / Number(reg::kCtSecondary)),
            .nominalFrequency = Number(reg::kNominalFrequency),
            .clockwise = Item(reg::kPhaseOrder) == 0,
            .voltagePolarity = {sign(reg::kPolarityV1), sign(reg::kPolarityV2), sign(reg::kPolarityV3)},
            .currentPolarity = {sign(reg::kPolarityI1), sign(reg::kPolarityI2), sign(reg::kPolarityI3),
                                sign(reg::kPolarityI4)}};
}

Nominals Settings::NominalValues() const {
    return {.voltage = Number(reg::kNominalVoltage),
            .current = Number(reg::kNominalCurrent),
            .frequency = Number(reg::kNominalFrequency)};
}

Clock Settings::ClockSettings() const {
    return {.zoneSeconds = static_cast<std::int32_t>(Number(reg::kTimeZone)),
            .daylightSeconds = static_cast<std::int32_t>(Number(reg::kDaylightSaving)),
            .dateFormat = static_cast<DateFormat>(Item(reg::kDateFormat)),
            .timeFormat = static_cast<TimeFormat>(Item(reg::kTimeFormat))};
}

NumberStyle Settings::NumberSettings() const {
    return {.voltageDecimals = static_cast<int>(Item(reg::kVoltageDecimals)),
            .currentDecimals = static_cast<int>(Item(reg::kCurrentDecimals)),
            .powerDecimals = static_cast<int>(Item(reg::kPowerDecimals)),
            .grouping = static_cast<Grouping>(Item(reg::kDigitGrouping))};
}

}  // namespace meter
