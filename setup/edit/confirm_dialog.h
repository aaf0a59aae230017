#pragma once

#include <array>

#include "navigation/entry/dialog_frame.h"
#include "navigation/widgets/data_prompt.h"
#include "peg/core/window.h"
#include "peg/widgets/text_box.h"

/// Asks whether a change shall be stored, and says why one was not.
///
/// Borrows the screen's soft keys: 1 cancels the question, 4 answers it and closes a message. Toolkit task only.
class ConfirmDialog {
public:
    enum class State { Closed, Confirmation, Message };
    static constexpr std::size_t kLongestValue = 39;
    static constexpr std::size_t kLongestMessage = 127;

    ConfirmDialog(PegThing& screen, SoftKeys& keys);

    State GetState() const { return m_state; }
    bool IsOpen() const { return m_state != State::Closed; }

    /// Cut after 39 characters.
    void setOldValue(const char16_t* text);
    void setNewValue(const char16_t* text);

    /// Asks about the old and the new value.
    void Ask();

    /// Asks about a change of several settings, which `subjects` names.
    void AskAbout(const char16_t* subjects);

    /// Says a text, and in a line of its own what it is about.
    void Say(std::uint32_t titleNumber, const char16_t* text, const char16_t* subject = nullptr);
    void Close();

    /// Shows the texts that are the display's own in the selected language.
    void Relabel();

    /// Draws the dialog over what is already drawn.
    void Draw(const PegRect& invalid);

private:
    using Value = std::array<char16_t, kLongestValue + 1>;

    void Open(State state, std::uint32_t titleNumber);

    PegThing& m_screen;
    DialogFrame m_frame;
    PegHolder<PegWindow> m_values;  // old and new value, each under its label
    PegPrompt& m_oldLabel;
    PegPrompt& m_newLabel;
    dataPegPromptClass& m_oldValue;
    dataPegPromptClass& m_newValue;
    PegHolder<PegTextBox> m_text;
    PegHolder<PegPrompt> m_lastLine;  // the question, or what a message is about
    Value m_oldText{};
    Value m_newText{};
    Value m_subject{};
    State m_state = State::Closed;
};
