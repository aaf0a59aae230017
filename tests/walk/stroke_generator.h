#pragma once

#include <cstdint>
#include <random>
#include <set>

#include "navigation/screen_ids.h"

/// States of the link.
enum class LinkState {
    Whole,
    Silent,     // nothing reaches the meter
    ReplyLost,  // the meter does it, but no reply comes back
    ReplyCut,   // half of each reply comes back
    Garbage,    // each reply is noise of the right length
    Refusing,   // the meter refuses every write
};
inline constexpr int kLinkStates = 6;

/// One thing that happens to the display: somebody moves keys, time passes, the meter commands, or the link breaks.
struct Stroke {
    enum class Kind : std::uint8_t {
        Press,    // key down, held, up; `times` times before the display looks
        Chord,    // two keys down, held, both up in the order in which they went down
        Command,  // of the meter
        Link,     // is in that state from now on
    };

    Kind kind = Kind::Press;
    std::uint8_t key = 0;  // index of a key of the panel
    std::uint8_t other = 0;
    std::uint8_t times = 1;
    LinkState link = LinkState::Whole;
    void (*command)(std::uint32_t argument) = nullptr;
    std::uint32_t argument = 0;
    std::uint16_t held = 0;  // ticks while keys are down
    std::uint16_t then = 0;  // ticks until the next stroke
};

/// Keys of the panel, by their index in a ButtonEvent.
inline constexpr std::uint8_t kHomeKey = 0;
inline constexpr std::uint8_t kSoftKey1 = 1;
inline constexpr std::uint8_t kSoftKey2 = 2;
inline constexpr std::uint8_t kSoftKey3 = 3;
inline constexpr std::uint8_t kSoftKey4 = 4;
inline constexpr std::uint8_t kSoftKeys23 = 5;

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
