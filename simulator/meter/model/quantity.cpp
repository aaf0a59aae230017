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
    {VoltageL1, "U1"},   {VoltageL2, "U2"},   {VoltageL3, "U3"},   {VoltageLnAverage, "U LN"}, {VoltageNeutral, "U4"},
    {VoltageL12, "U12"}, {VoltageL23, "U23"}, {VoltageL31, "U31"}, {VoltageLlAverage, "U LL"},
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
