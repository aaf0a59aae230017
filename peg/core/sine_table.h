#pragma once

#include <array>

/// Sines as whole numbers: 1024 is one.
inline constexpr int kSineShift = 10;

namespace sine_table {

// clang-format off
inline constexpr std::array<int, 91> kQuarter = {
       0,   18,   36,   54,   71,   89,  107,  125,  143,  160,  // 0 degrees
     178,  195,  213,  230,  248,  265,  282,  299,  316,  333,  // 10
     350,  367,  384,  400,  416,  433,  449,  465,  481,  496,  // 20
     512,  527,  543,  558,  573,  587,  602,  616,  630,  644,  // 30
     658,  672,  685,  698,  711,  724,  737,  749,  761,  773,  // 40
     784,  796,  807,  818,  828,  839,  849,  859,  868,  878,  // 50
     887,  896,  904,  912,  920,  928,  935,  943,  949,  956,  // 60
     962,  968,  974,  979,  984,  989,  994,  998, 1002, 1005,  // 70
    1008, 1011, 1014, 1016, 1018, 1020, 1022, 1023, 1023, 1024,  // 80
    1024,
};
// clang-format on

/// Sine and cosine of every degree lie on the circle, as near as whole numbers can.
constexpr bool LiesOnTheCircle() {
    constexpr int kOne = 1 << kSineShift;
    for (std::size_t degree = 0; degree < kQuarter.size(); ++degree) {
        const int sine = kQuarter[degree];
        const int cosine = kQuarter[90 - degree];
        const int error = sine * sine + cosine * cosine - kOne * kOne;
        if (error > sine + cosine || error < -sine - cosine) return false;
    }
    return true;
}
static_assert(LiesOnTheCircle());

}  // namespace sine_table

/// The sine of any whole number of degrees.
constexpr int SineOf(int degrees) {
    const int turn = (degrees % 360 + 360) % 360;
    const int half = turn % 180;
    const int sine = sine_table::kQuarter[static_cast<std::size_t>(half <= 90 ? half : 180 - half)];
    return turn < 180 ? sine : -sine;
}

constexpr int CosineOf(int degrees) { return SineOf(degrees % 360 + 90); }

static_assert(SineOf(30) == 512 && SineOf(90) == 1024 && SineOf(180) == 0 && SineOf(270) == -1024);
static_assert(SineOf(-30) == -512 && SineOf(390) == 512 && CosineOf(0) == 1024 && CosineOf(-120) == -512);
