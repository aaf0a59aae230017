#pragma once

#include <algorithm>
#include <limits>

/// Where the marks of a bar stand, in percent of the scale.
struct BarPositions {
    int minimum = 0;
    int maximum = 0;
    int present = 0;

    friend constexpr bool operator==(const BarPositions&, const BarPositions&) = default;
};
inline constexpr BarPositions kInTheMiddle = {50, 50, 50};  // of a bar whose values are not known

/// The scale that the bars of a screen share: from the smallest minimum to the largest maximum.
class BarScale {
public:
    /// Values that are no numbers leave the scale as it is.
    constexpr void Include(double minimum, double maximum) {
        if (minimum < m_lowest) m_lowest = minimum;
        if (maximum > m_highest) m_highest = maximum;
    }

    /// A value's place in whole percent: 0 for what lies below the scale, and on a scale without extent. A value above
    /// it is beyond 100, cut where no panel is wide enough to show it.
    constexpr int PositionOf(double value) const {
        constexpr double kFarBeyond = 1000.0;
        const double range = m_highest - m_lowest;
        if (range == 0.0) return 0;
        const double percent = (value - m_lowest) * 100.0 / range;
        return percent > 0.0 ? static_cast<int>(std::min(percent, kFarBeyond)) : 0;
    }

private:
    double m_lowest = std::numeric_limits<double>::max();
    double m_highest = std::numeric_limits<double>::lowest();
};

namespace bar_scale {
constexpr BarScale ScaleOf(double minimum, double maximum) {
    BarScale scale;
    scale.Include(minimum, maximum);
    return scale;
}
static_assert(ScaleOf(-30, -10).PositionOf(-10) == 100 && ScaleOf(-30, -10).PositionOf(-20) == 50);
static_assert(ScaleOf(5, 5).PositionOf(5) == 0 && ScaleOf(5, 5).PositionOf(9) == 0);
static_assert(ScaleOf(0, 3).PositionOf(2) == 66 && ScaleOf(0, 3).PositionOf(-1) == 0);
static_assert(ScaleOf(0, 10).PositionOf(12) == 120 && ScaleOf(0, 1).PositionOf(1e300) == 1000);
}  // namespace bar_scale
