#include "tests/walk/stroke_generator.h"

#include <iterator>
#include <string_view>

#include "navigation/entry/keyboard_window.h"
#include "simulator/bench/keyboard_keys.h"

namespace {

// How seldom something happens: once in so many strokes.
constexpr int kJump = 40;
constexpr int kModeCommand = 300;
constexpr int kFault = 150;
constexpr int kRepair = 40;
constexpr int kChord = 40;
constexpr int kBounce = 40;
constexpr int kHold = 30;
constexpr int kWait = 12;
constexpr int kLongWait = 40;    // of the waits: past the end of a dialog
constexpr int kLongerWait = 80;  // past the end of a screen
constexpr int kLongestWait = 400;
constexpr int kSlip = 12;  // a typist presses another key

constexpr int kMostBounces = 30;  // more than the queue has room for
constexpr int kLongestHold = 60;

/// The key of the panel to press next, to press a key of the keyboard: along the row until below it, then up.
std::uint8_t KeyTowards(std::uint16_t code) {
    const std::size_t focus = IndexOfKey(FocusedKey());
    if (focus == kKeyboardKeys) return kSoftKey3;
    const PegRect place = PlaceOf(kKeyboard[focus]);
    const PegRect target = PlaceOf(kKeyboard[IndexOfKey(code)]);
    if (place == target) return kSoftKey4;
    if (target.right < place.left) return kSoftKey2;
    return target.left > place.right ? kSoftKey3 : kSoftKey1;
}

}  // namespace

Stroke StrokeGenerator::Next(std::int32_t shown, const std::set<std::int32_t>& unseen) {
    if (m_withFaults && Once(m_linkBroken ? kRepair : kFault)) {
        m_linkBroken = !m_linkBroken;
        const int state = m_linkBroken ? Any(1, kLinkStates - 1) : 0;
        return {.kind = Stroke::Kind::Link, .target = static_cast<std::int16_t>(state)};
    }
    // The picture of the display test is left by a command as well as by its key.
    if (Once(shown == SCREEN_ID_FACTORY_TEST ? 4 : kJump)) return Jump(unseen);
    if (Once(kModeCommand)) return {.kind = Stroke::Kind::Mode, .target = static_cast<std::int16_t>(Any(0, 3))};

    Stroke stroke{.key = AnyKey(), .then = AnyWait()};
    if (keyboardWin::getInstance().IsVisible() && !Once(kSlip)) {
        stroke.key = KeyOfTypist();
        stroke.then = 0;
        return stroke;
    }
    if (Once(kHold)) stroke.held = static_cast<std::uint16_t>(Any(1, kLongestHold));
    if (Once(kChord)) {
        stroke.kind = Stroke::Kind::Chord;
        stroke.other = AnyKey();
    } else if (Once(kBounce)) {
        stroke.held = 0;
        stroke.times = static_cast<std::uint8_t>(Once(10) ? kMostBounces : Any(2, 4));
    }
    return stroke;
}

Stroke StrokeGenerator::Jump(const std::set<std::int32_t>& unseen) {
    std::int32_t target = Any(0, kLastCommandedScreen);
    if (!unseen.empty() && Once(2)) target = *std::next(unseen.begin(), Any(0, static_cast<int>(unseen.size()) - 1));
    return {.kind = Stroke::Kind::Go, .target = static_cast<std::int16_t>(target)};
}

std::uint8_t StrokeGenerator::AnyKey() {
    constexpr std::uint8_t kOften[] = {kSoftKey4, kSoftKey4, kSoftKey4, kSoftKey3,  kSoftKey3,
                                       kSoftKey3, kSoftKey2, kSoftKey1, kSoftKeys23};
    return Once(30) ? kHomeKey : kOften[Any(0, static_cast<int>(std::size(kOften)) - 1)];
}

std::uint16_t StrokeGenerator::AnyWait() {
    if (!Once(kWait)) return 0;
    if (Once(kLongestWait)) return static_cast<std::uint16_t>(Any(3590, 3700));
    if (Once(kLongerWait)) return static_cast<std::uint16_t>(Any(590, 700));
    if (Once(kLongWait)) return static_cast<std::uint16_t>(Any(190, 260));
    return static_cast<std::uint16_t>(Any(1, 25));
}

/// Takes the name that stands there and types the password "0".
std::uint8_t StrokeGenerator::KeyOfTypist() {
    const char16_t* text = keyboardWin::getInstance().getText();
    const std::u16string_view typed = text != nullptr ? text : u"";
    if (typed == u"USER" || typed == u"0") return KeyTowards(kKeyEnter);
    return KeyTowards(typed.empty() ? std::uint16_t{'0'} : std::uint16_t{kKeyBackspace});
}
