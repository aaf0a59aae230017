#include "navigation/entry/keyboard_window.h"

#include <algorithm>

#include "localization/localization.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"
#include "peg/widgets/bitmap_button.h"
#include "peg/widgets/text_button.h"

namespace {

constexpr std::uint32_t kKeyboardStatus = 0x10;
constexpr std::uint32_t kFont = 32;
constexpr std::uint32_t kKeyStyle = kStyleActive | 0x10000000 | kStyleCopyText | kStyleBorderNone;
static_assert(kKeyStyle == 0x90000081);
constexpr std::uint32_t kEntryStyle = kStyleActive | 0x100 | kStyleBorderRecessed;
static_assert(kEntryStyle == 0x80000108);
constexpr std::uint16_t kEntryId = 2;
constexpr std::uint32_t kFace = 26;
constexpr std::uint32_t kFocusColor = 8;
constexpr std::uint32_t kFocusText = 0;
constexpr std::size_t kSpaceKey = IndexOfKey(' ');

/// A key that is a picture, on the same ground as the keys that are texts.
class PictureKey : public PegBitmapButton {
public:
    explicit PictureKey(const KeyboardKey& key)
        : PegBitmapButton(PlaceOf(key), key.label, key.label, key.label, static_cast<std::uint16_t>(key.kind),
                          kKeyStyle) {}

    void Draw(const PegRect& invalid) override {
        DrawingPass pass(*this, invalid);
        DrawFrame(GetColor(HasStatus(STAT_CURRENT) ? kHighlightBackground : kBackground));
        PegBitmapButton::Draw(invalid);
    }
};

}  // namespace

keyboardWin& keyboardWin::getInstance() {
    static auto* const instance = new keyboardWin;  // lives as long as the process
    return *instance;
}

keyboardWin::keyboardWin()
    : PegWindow(kKeyboardPlace, 0, kStyleBorderNone),
      m_entry(AddNew<PegEditField>(*this, kEntryPlace, kEntryId, kEntryStyle, kLongestText)) {
    SetStatusBits(kKeyboardStatus);
    m_entry.SetFontNumber(kFont);
    m_entry.ClearStatusBits(STAT_ACCEPTS_FOCUS);
    for (std::size_t i = 0; i < kKeyboard.size(); ++i) AddKey(i);
}

void keyboardWin::AddKey(std::size_t index) {
    const KeyboardKey& key = kKeyboard[index];
    if (key.kind == KeyKind::Shift || key.kind == KeyKind::Backspace) {
        m_keys[index] = &AddNew<PictureKey>(*this, key);
    } else {
        m_keys[index] =
            &AddNew<PegTextButton>(*this, PlaceOf(key), nullptr, static_cast<std::uint16_t>(key.kind), kKeyStyle);
        m_keys[index]->SetFontNumber(kFont);
        m_keys[index]->SetTextById(key.label);
    }
    m_keys[index]->SetColor(kBackground, kFace);
    m_keys[index]->SetColor(kHighlightBackground, kFocusColor);
    m_keys[index]->SetColor(kHighlightText, kFocusText);
}

std::int32_t keyboardWin::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_KEY_DOWN:
        case MSG_KEY_UP: return Parent() != nullptr ? Parent()->Message(message) : 0;
        case MSG_SHOW: {
            const std::int32_t result = PegWindow::Message(message);
            m_entry.SetText(nullptr);
            NameKeys();
            Focus(kSpaceKey);
            return result;
        }
        case MSG_LANGUAGE: {
            const std::int32_t result = PegWindow::Message(message);
            NameKeys();
            return result;
        }
        case MSG_HIDE: m_entry.SetText(nullptr); break;
    }
    return PegWindow::Message(message);
}

/// A character is the same in every language; what a key is called is not.
void keyboardWin::NameKeys() {
    for (std::size_t i = 0; i < kKeyboard.size(); ++i) {
        const KeyboardKey& key = kKeyboard[i];
        const bool hasName = key.kind == KeyKind::Space || key.kind == KeyKind::Escape || key.kind == KeyKind::Enter;
        if (hasName) m_keys[i]->SetText(LocalizedString(key.label));
    }
}

void keyboardWin::prefillUser() {
    for (const char letter : {'U', 'S', 'E', 'R'}) Type(letter);
}

void keyboardWin::Type(int key) {
    PegMessage message;
    message.target = &m_entry;
    message.type = MSG_KEY_DOWN;
    message.param = static_cast<std::int16_t>(key);
    m_entry.Message(message);
}

/// The key in focus, or kKeyboardKeys.
std::size_t keyboardWin::FocusedKey() const {
    std::size_t index = 0;
    while (index < m_keys.size() && m_keys[index] != toolkit.manager->Focus()) ++index;
    return index;
}

void keyboardWin::Focus(std::size_t index) { toolkit.manager->SetFocus(*m_keys[index]); }

int keyboardWin::moveFocus(int key) {
    if (key != kKeyRight && key != kKeyLeft && key != kKeyUp) return 0;
    const std::size_t before = FocusedKey();
    if (before == kKeyboardKeys) {
        Focus(kSpaceKey);
        return 1;
    }
    m_keys[before]->Invalidate();
    const auto row = std::ranges::find_if(kKeyNeighbours, [&](const KeyNeighbour& neighbour) {
        return neighbour.arrow == key && neighbour.from == kKeyboard[before].code;
    });
    if (row != kKeyNeighbours.end()) {
        Focus(IndexOfKey(row->to));
    } else {
        m_keys[before]->MoveFocusByArrow(key);
    }
    if (PegThing* focus = toolkit.manager->Focus()) focus->Invalidate();
    return 1;
}

std::uint16_t keyboardWin::selectFocused() {
    const std::size_t focused = FocusedKey();
    if (focused == kKeyboardKeys) return 0;
    const KeyboardKey& key = kKeyboard[focused];
    switch (key.kind) {
        case KeyKind::Character:
        case KeyKind::Space: {
            if (m_entry.IsFull()) return 0;
            const std::uint16_t character = m_shifted && key.shifted != 0 ? key.shifted : key.code;
            Type(character);
            return character;
        }
        case KeyKind::Backspace: Type(kKeyBackspace); break;
        case KeyKind::Shift: ToggleShift(); break;
        case KeyKind::Escape:
        case KeyKind::Enter: break;
    }
    return key.code;
}

void keyboardWin::ToggleShift() {
    m_shifted = !m_shifted;
    for (std::size_t i = 0; i < kKeyboard.size(); ++i) {
        const KeyboardKey& key = kKeyboard[i];
        if (key.kind != KeyKind::Character) continue;
        m_keys[i]->SetTextById(kFirstCharacterString + std::uint32_t{m_shifted ? key.shifted : key.code});
    }
}
