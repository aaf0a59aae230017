#pragma once

#include <array>

#include "navigation/entry/keyboard_layout.h"
#include "peg/core/window.h"
#include "peg/widgets/button.h"
#include "peg/widgets/edit_field.h"

/// The on-screen keyboard: keys between which a focus moves, and the field that they fill.
///
/// One in the process; it belongs to the screen that shows it, and to itself while none does. The field is empty
/// whenever the keyboard comes or goes. Toolkit task only.
class keyboardWin : public PegWindow {
public:
    static constexpr std::size_t kLongestText = 16;

    static keyboardWin& getInstance();

    /// The field shows dots instead of what is typed, or no longer.
    void hideText(bool hidden) { m_entry.HideText(hidden); }

    /// Types "USER".
    void prefillUser();

    /// Moves the focus right, left or up. @return 1, or 0 for any other key
    int moveFocus(int key);

    /// Does what the key in focus says. @return its key code or character; 0 when there was no room for the character
    std::uint16_t selectFocused();

    /// What was typed, or null. The field's own: gone with the keyboard.
    const char16_t* getText() const { return m_entry.Text(); }

    std::int32_t Message(const PegMessage& message) override;

private:
    keyboardWin();

    void AddKey(std::size_t index);
    void NameKeys();
    std::size_t FocusedKey() const;
    void Focus(std::size_t index);
    void Type(int key);
    void ToggleShift();

    PegEditField& m_entry;
    std::array<PegButton*, kKeyboardKeys> m_keys{};  // children, as the layout has them
    bool m_shifted = false;
};
