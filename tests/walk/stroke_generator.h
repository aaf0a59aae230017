#pragma once

#include <random>
#include <set>

#include "navigation/screen_ids.h"
#include "tests/walk/stroke.h"

/// Invents what happens next: presses, holds, chords and bounces of keys, long and short waits, commands of the meter
/// and, if asked for, faults of the link. The same seed on the same display gives the same strokes.
///
/// It has an eye on the panel: an open keyboard is mostly used to log in, and screens not yet seen are gone to first.
class StrokeGenerator {
public:
    StrokeGenerator(unsigned seed, bool withFaults) : m_random(seed), m_withFaults(withFaults) {}

    /// @param shown   the screen that is on the panel
    /// @param unseen  screens that were not there yet
    Stroke Next(std::int32_t shown, const std::set<std::int32_t>& unseen);

private:
    int Any(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }
    bool Once(int in) { return Any(1, in) == 1; }
    std::uint8_t AnyKey();
    std::uint16_t AnyWait();
    std::uint8_t KeyOfTypist();
    Stroke Jump(const std::set<std::int32_t>& unseen);

    std::mt19937 m_random;
    bool m_withFaults;
    bool m_linkBroken = false;
};
