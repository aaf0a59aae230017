#include "simulator/meter/model/quantity.h"

#include <algorithm>

namespace meter {
namespace {

using enum Quantity;

struct SymbolRow {
    Quantity quantity;
    std::string_view symbol;
};

// clang-format off
constexpr auto kSymbols = std::to_array<SymbolRow>({
    {Frequency, "f"},
    {VoltageL1, "V1"},   {VoltageL2, "V2"},   {VoltageL3, "V3"},   {VoltageLnAverage, "V LN"}, {VoltageNeutral, "V4"},
    {VoltageL12, "V12"}, {VoltageL23, "V23"}, {VoltageL31, "V31"}, {VoltageLlAverage, "V LL"},
    {CurrentL1, "I1"},   {CurrentL2, "I2"},   {CurrentL3, "I3"},   {CurrentAverage, "I avg"},  {CurrentNeutral, "I4"},
    {ActiveTotal, "P"},  {ReactiveTotal, "Q"}, {ApparentTotal, "S"},
});
// clang-format on

}  // namespace

std::string_view Symbol(Quantity quantity) {
    const auto found = std::ranges::find(kSymbols, quantity, &SymbolRow::quantity);
    return found != kSymbols.end() ? found->symbol : std::string_view();
}

}  // namespace meter
