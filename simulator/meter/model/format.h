#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/meter/model/quantity.h"

/// Numbers as the meter writes them: ready texts with sensible digits and unit prefixes.
namespace meter {

enum class Grouping : std::uint8_t { Plain, Spaces, Commas, Points };  // items of the digit grouping register

struct NumberStyle {
    int voltageDecimals = 1;
    int currentDecimals = 1;
    int powerDecimals = 2;
    Grouping grouping = Grouping::Plain;
};

struct ValueText {
    std::string value;
    std::string_view unit;
};

/// The text of a value given in its base unit. NaN reads "---".
ValueText Format(double value, Unit unit, const NumberStyle& style);

/// All units that Format may write.
std::vector<std::string_view> UnitTexts();

/// A number with so many decimals, grouped as the style says.
std::string Grouped(double value, int decimals, Grouping grouping);

}  // namespace meter
