#pragma once

#include <cstdint>
#include <span>
#include <string>

/// One thing that happens to the display: somebody moves keys, time passes, the meter commands, or the link breaks.
///
/// A list of strokes says all that a walk did: given to a display that has just come up, it does the same again.
struct Stroke {
    enum class Kind : std::uint8_t {
        Press,  // key down, held, up; `times` times before the display looks
        Chord,  // two keys down, held, both up in the order in which they went down
        Go,     // the meter sends the display to screen `target`
        Mode,   // the meter sends it to display mode `target`
        Link,   // the link is in state `target` from now on
    };

    Kind kind = Kind::Press;
    std::uint8_t key = 0;  // index of a key of the panel
    std::uint8_t other = 0;
    std::uint8_t times = 1;
    std::int16_t target = 0;
    std::uint16_t held = 0;  // ticks while keys are down
    std::uint16_t then = 0;  // ticks until the next stroke

    friend bool operator==(const Stroke&, const Stroke&) = default;
};

/// States of the link, for Kind::Link.
enum class LinkState : std::int16_t {
    Whole,
    Silent,     // nothing reaches the meter
    ReplyLost,  // the meter does it, but no reply comes back
    ReplyCut,   // half of each reply comes back
    Garbage,    // each reply is noise of the right length
    Refusing,   // the meter refuses every write
};
inline constexpr int kLinkStates = 6;

/// Keys of the panel, by their index in a ButtonEvent.
inline constexpr std::uint8_t kHomeKey = 0;
inline constexpr std::uint8_t kSoftKey1 = 1;
inline constexpr std::uint8_t kSoftKey2 = 2;
inline constexpr std::uint8_t kSoftKey3 = 3;
inline constexpr std::uint8_t kSoftKey4 = 4;
inline constexpr std::uint8_t kSoftKeys23 = 5;

/// The strokes as a test can have them, one a line.
std::string TextOf(std::span<const Stroke> strokes);
