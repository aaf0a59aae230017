#pragma once

#include <array>

#include "navigation/entry/dialog_frame.h"
#include "navigation/entry/keyboard_window.h"

/// Asks for user name and password by the on-screen keyboard and has the meter check them; a box says why not.
///
/// The screen hands on its soft keys: while an entry is open, 1 to 3 move the keyboard's focus and 4 presses the key in
/// focus; 4 also closes the box. The password is shown as dots. What was typed is kept until the meter has answered,
/// and no longer.
class PasswordDialog {
public:
    PasswordDialog(PegThing& screen, SoftKeys& keys, const DialogLook& look);

    bool IsOpen() const { return m_state != State::Closed; }
    bool IsEntryOpen() const { return m_state == State::FirstEntry || m_state == State::SecondEntry; }

    /// Opens the first entry, that of the user name.
    void Ask();

    /// Opens a box with the title "Access denied".
    void Refuse(std::uint32_t textNumber);
    void Close();

    /// A key is held down; only soft keys mean anything here.
    void KeyDown(int keyCode);

    /// Soft key 4 was released. @return true once the meter has accepted the password; the dialog is closed then
    [[nodiscard]] bool Confirm();

    /// Shows the texts in the selected language.
    void Relabel();

    /// Draws the dialog over what is already drawn.
    void Draw(const PegRect& invalid);

private:
    enum class State { Closed, FirstEntry, SecondEntry, Message };

    void OpenEntry(State entry, std::uint32_t title);
    void FinishFirst();
    bool FinishSecond();

    PegThing& m_screen;
    const DialogLook& m_look;
    DialogFrame m_frame;
    PegHolder<PegPrompt> m_message;
    std::uint32_t m_messageNumber = 0;
    keyboardWin& m_keyboard;
    std::uint16_t m_keyboardResult = 0;  // of the last press: a key code, or 0
    std::array<char, keyboardWin::kLongestText + 1> m_first{};
    State m_state = State::Closed;
};
