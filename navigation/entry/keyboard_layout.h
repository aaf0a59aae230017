#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "navigation/geometry.h"
#include "navigation/table_proofs.h"
#include "peg/core/message.h"

// The keys of the on-screen keyboard: where they stand, what they say, and where the arrows lead from some of them.

/// What a key does, and the id of its button.
enum class KeyKind : std::uint16_t { Character = 1, Shift = 3, Backspace = 5, Space = 6, Escape = 7, Enter = 8 };

/// A key, known by its plain character or, where it has none, by its key code.
struct KeyboardKey {
    KeyKind kind;
    std::uint16_t code;
    std::uint16_t shifted;  // the character with Shift
    std::uint16_t label;    // string number, or bitmap number of Shift and Backspace
    std::uint8_t row;
    std::uint8_t firstColumn;
    std::uint8_t lastColumn;
};

inline constexpr std::uint16_t kFirstCharacterString = 1000;  // character c is string 1000 + c

inline constexpr std::array<std::array<std::string_view, 2>, 4> kCharacterRows = {{
    {"1234567890-=", "!@#$%^&*()_+"},
    {"qwertyuiop[]", "QWERTYUIOP{}"},
    {"asdfghjkl;'", "ASDFGHJKL:\""},
    {"`zxcvbnm,./\\", "~ZXCVBNM<>?|"},
}};

// clang-format off
inline constexpr auto kLastRow = std::to_array<KeyboardKey>({
    {.kind = KeyKind::Escape,    .code = kKeyEscape,    .shifted = 0, .label = 128, .row = 4, .firstColumn = 0,  .lastColumn = 1},
    {.kind = KeyKind::Shift,     .code = kKeyShift,     .shifted = 0, .label = 217, .row = 4, .firstColumn = 2,  .lastColumn = 3},
    {.kind = KeyKind::Space,     .code = ' ',           .shifted = 0, .label = 120, .row = 4, .firstColumn = 4,  .lastColumn = 7},
    {.kind = KeyKind::Backspace, .code = kKeyBackspace, .shifted = 0, .label = 216, .row = 4, .firstColumn = 8,  .lastColumn = 9},
    {.kind = KeyKind::Enter,     .code = kKeyEnter,     .shifted = 0, .label = 275, .row = 4, .firstColumn = 10, .lastColumn = 11},
});
// clang-format on

inline constexpr std::size_t kKeyboardKeys = 52;

constexpr std::array<KeyboardKey, kKeyboardKeys> Keyboard() {
    std::array<KeyboardKey, kKeyboardKeys> keys{};
    std::size_t count = 0;
    for (std::size_t row = 0; row < kCharacterRows.size(); ++row) {
        const auto& [plain, shifted] = kCharacterRows[row];
        for (std::size_t column = 0; column < plain.size(); ++column) {
            const auto code = static_cast<std::uint16_t>(static_cast<unsigned char>(plain[column]));
            const auto place = static_cast<std::uint8_t>(column);
            keys[count++] = {.kind = KeyKind::Character,
                             .code = code,
                             .shifted = static_cast<std::uint16_t>(shifted[column]),
                             .label = static_cast<std::uint16_t>(kFirstCharacterString + code),
                             .row = static_cast<std::uint8_t>(row),
                             .firstColumn = place,
                             .lastColumn = place};
        }
    }
    for (const KeyboardKey& key : kLastRow) keys[count++] = key;
    return keys;
}
inline constexpr auto kKeyboard = Keyboard();
static_assert(kKeyboard[46].code == '\\' && kKeyboard[51].kind == KeyKind::Enter, "every place is taken");

/// Where an arrow key leads when that is not the nearest key.
struct KeyNeighbour {
    int arrow;
    std::uint16_t from;
    std::uint16_t to;
};

// clang-format off
inline constexpr auto kKeyNeighbours = std::to_array<KeyNeighbour>({
    {kKeyRight, '=',        '1'},
    {kKeyRight, ']',        'q'},
    {kKeyRight, '\'',       'a'},
    {kKeyRight, '\\',       '`'},
    {kKeyRight, kKeyEnter,  kKeyEscape},
    {kKeyLeft,  '1',        '='},
    {kKeyLeft,  'q',        ']'},
    {kKeyLeft,  'a',        '\''},
    {kKeyLeft,  '`',        '\\'},
    {kKeyLeft,  kKeyEscape, kKeyEnter},
    {kKeyUp,    '1',        kKeyEscape},
    {kKeyUp,    '2',        kKeyEscape},
    {kKeyUp,    '3',        kKeyShift},
    {kKeyUp,    '4',        kKeyShift},
    {kKeyUp,    '5',        ' '},
    {kKeyUp,    '6',        ' '},
    {kKeyUp,    '7',        ' '},
    {kKeyUp,    '8',        ' '},
    {kKeyUp,    '9',        kKeyBackspace},
    {kKeyUp,    '0',        kKeyBackspace},
    {kKeyUp,    '-',        kKeyEnter},
    {kKeyUp,    '=',        kKeyEnter},
    {kKeyUp,    kKeyEscape, '`'},
    {kKeyUp,    '`',        'a'},
    {kKeyUp,    'a',        'q'},
    {kKeyUp,    'c',        'd'},
    {kKeyUp,    'n',        'h'},
    {kKeyUp,    '.',        'l'},
});
// clang-format on

/// The index of the key with that code, or kKeyboardKeys.
constexpr std::size_t IndexOfKey(std::uint16_t code) {
    std::size_t index = 0;
    while (index < kKeyboard.size() && kKeyboard[index].code != code) ++index;
    return index;
}
constexpr bool IsKey(std::uint16_t code) { return IndexOfKey(code) != kKeyboardKeys; }
static_assert(std::ranges::all_of(kKeyNeighbours, IsKey, &KeyNeighbour::from), "an arrow leads from no key");
static_assert(std::ranges::all_of(kKeyNeighbours, IsKey, &KeyNeighbour::to), "an arrow leads to no key");
static_assert(AllDiffer(kKeyboard, &KeyboardKey::code), "two keys have one code");

inline constexpr PegRect kKeyboardPlace =
    RectOf(0, Divided(kPanelHeight, 3.93), kPanelWidth - 1, Divided(kPanelHeight, 1.14));
static_assert(kKeyboardPlace == PegRect{0, 61, 319, 210});

inline constexpr PegRect kEntryPlace =
    RectOf(kKeyboardPlace.left + Share(kPanelWidth, 0.03125), kKeyboardPlace.top + Divided(kPanelHeight, 120.0),
           kKeyboardPlace.left + Divided(kPanelWidth, 1.04), kKeyboardPlace.top + Divided(kPanelHeight, 10.0));
static_assert(kEntryPlace == PegRect{10, 63, 307, 85});

/// Where a key stands on the panel.
constexpr PegRect PlaceOf(const KeyboardKey& key) {
    constexpr int kKeyWidth = Divided(kPanelWidth, 13.91);
    constexpr int kColumnStep = kKeyWidth + Divided(kPanelWidth, 106.66);
    constexpr int kKeyHeight = Divided(kPanelHeight, 13.33);
    constexpr int kRowStep = kKeyHeight + Divided(kPanelHeight, 48.0);
    constexpr int kLeft = kKeyboardPlace.left + Share(kPanelWidth, 0.015625);
    constexpr int kTop = kKeyboardPlace.top + Divided(kPanelHeight, 10.0) + Divided(kPanelHeight, 48.0);
    const int top = kTop + key.row * kRowStep;
    return RectOf(kLeft + key.firstColumn * kColumnStep, top, kLeft + key.lastColumn * kColumnStep + kKeyWidth - 1,
                  top + kKeyHeight);
}
static_assert(PlaceOf(kKeyboard[0]) == PegRect{5, 90, 27, 108} && PlaceOf(kKeyboard[1]).left == 31);
static_assert(kKeyboardPlace.Contains(PlaceOf(kKeyboard.back())));
