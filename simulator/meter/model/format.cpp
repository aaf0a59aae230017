#include "simulator/meter/model/format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace meter {
namespace {

struct Scale {
    double from;  // smallest magnitude that is written with this prefix
    double factor;
    std::string_view unit;
};

struct UnitRow {
    Unit unit;
    std::array<Scale, 2> scales;
    int decimals;  // -1: taken from the number style
};

constexpr double kAlways = 0.0;
constexpr double kNever = 1e300;

// clang-format off
constexpr auto kUnits = std::to_array<UnitRow>({
    {Unit::None,           {{{kAlways, 1.0, ""},       {kNever, 1.0, ""}}},       3},
    {Unit::Volt,           {{{kAlways, 1.0, "V"},      {1e4, 1e3, "kV"}}},       -1},
    {Unit::Ampere,         {{{kAlways, 1.0, "A"},      {1e4, 1e3, "kA"}}},       -1},
    {Unit::Watt,           {{{kAlways, 1e3, "kW"},     {1e7, 1e6, "MW"}}},       -1},
    {Unit::Var,            {{{kAlways, 1e3, "kvar"},   {1e7, 1e6, "Mvar"}}},     -1},
    {Unit::VoltAmpere,     {{{kAlways, 1e3, "kVA"},    {1e7, 1e6, "MVA"}}},      -1},
    {Unit::WattHour,       {{{kAlways, 1e3, "kWh"},    {1e9, 1e6, "MWh"}}},       1},
    {Unit::VarHour,        {{{kAlways, 1e3, "kvarh"},  {1e9, 1e6, "Mvarh"}}},     1},
    {Unit::VoltAmpereHour, {{{kAlways, 1e3, "kVAh"},   {1e9, 1e6, "MVAh"}}},      1},
    {Unit::Hertz,          {{{kAlways, 1.0, "Hz"},     {kNever, 1.0, "Hz"}}},     3},
    {Unit::Percent,        {{{kAlways, 1.0, "%"},      {kNever, 1.0, "%"}}},      2},
    {Unit::Count,          {{{kAlways, 1.0, ""},       {kNever, 1.0, ""}}},       0},
});
// clang-format on
static_assert(kUnits.back().unit == Unit::Count && kUnits.size() == static_cast<std::size_t>(Unit::Count) + 1,
              "one row a unit, in their order");

int DecimalsOf(const UnitRow& row, const NumberStyle& style) {
    if (row.decimals >= 0) return row.decimals;
    if (row.unit == Unit::Volt) return style.voltageDecimals;
    return row.unit == Unit::Ampere ? style.currentDecimals : style.powerDecimals;
}

}  // namespace

std::string Grouped(double value, int decimals, Grouping grouping) {
    std::array<char, 64> plain{};
    const int length = std::snprintf(plain.data(), plain.size(), "%.*f", decimals, value);
    std::string text(plain.data(), static_cast<std::size_t>(std::clamp(length, 0, 63)));
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
    if (grouping == Grouping::Plain) return text;
    const std::size_t point = std::min(text.find('.'), text.size());
    if (grouping == Grouping::Points && point < text.size()) text[point] = ',';
    const char separator = grouping == Grouping::Spaces ? ' ' : (grouping == Grouping::Commas ? ',' : '.');
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    for (std::size_t place = point; place > first + 3; place -= 3) text.insert(place - 3, 1, separator);
    return text;
}

std::vector<std::string_view> UnitTexts() {
    std::vector<std::string_view> units;
    for (const UnitRow& row : kUnits)
        for (const Scale& scale : row.scales) units.push_back(scale.unit);
    return units;
}

ValueText Format(double value, Unit unit, const NumberStyle& style) {
    const UnitRow& row = kUnits[static_cast<std::size_t>(unit)];
    if (std::isnan(value)) return {"---", row.scales[0].unit};
    const Scale& scale = std::abs(value) >= row.scales[1].from ? row.scales[1] : row.scales[0];
    return {Grouped(value / scale.factor, DecimalsOf(row, style), style.grouping), scale.unit};
}

}  // namespace meter
