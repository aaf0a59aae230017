#pragma once

#include <cstdint>

#include "navigation/geometry.h"
#include "navigation/widgets/draw_screen.h"
#include "navigation/widgets/soft_keys.h"
#include "peg/core/holder.h"
#include "peg/widgets/prompt.h"

/// How the dialogs of a family of screens look.
struct DialogLook {
    Scheme scheme;         // of the soft keys
    std::uint32_t accent;  // colour number behind the title
    std::uint32_t titleFont;
    std::uint32_t messageFont;
    PegRect messagePlace;
    std::uint32_t entryBackdrop;  // bitmap numbers
    std::uint32_t messageBackdrop;
    std::size_t firstEntryLength;  // characters of the user name that count
};

/// The style of a dialog's prompts, whose texts live as long as the process.
inline constexpr std::uint32_t kDialogPromptStyle = kStyleActive | kStyleBorderNone;

/// Places of a dialog's title: in its box, and in the title band above a keyboard.
inline constexpr PegRect kBoxTitle =
    RectOf(Divided(kPanelWidth, 21.33), Divided(kPanelHeight, 1.95), kPanelWidth - Divided(kPanelWidth, 21.33),
           Divided(kPanelHeight, 1.95) + Divided(kPanelHeight, 10.0));
inline constexpr PegRect kBandTitle =
    RectOf(Divided(kPanelWidth, 21.33), Divided(kPanelHeight, 9.59), kPanelWidth - Divided(kPanelWidth, 21.33),
           Divided(kPanelHeight, 7.99) + Divided(kPanelHeight, 9.59) - 1);
static_assert(kBoxTitle == PegRect{15, 123, 305, 147} && kBandTitle == PegRect{15, 25, 305, 54});

/// What all dialogs over a screen have in common: a backdrop, a title, and the screen's soft keys, which the dialog
/// borrows and gives back as they were.
class DialogFrame {
public:
    /// @param keys  the screen's, which live as long as the dialog
    DialogFrame(PegThing& screen, SoftKeys& keys, const DialogLook& look);

    bool IsOpen() const { return m_open; }

    /// Nothing when it is open already.
    void Open(std::uint32_t titleNumber, const PegRect& titlePlace);
    void Close();

    /// Gives a soft key a picture and puts it in use.
    void ShowKey(std::size_t key, KeyImage image);
    void HideKey(std::size_t key);

    /// Shows the title in the selected language.
    void Relabel();

    /// Draws backdrop, soft keys and title over what is already drawn.
    void Draw(std::uint32_t backdrop, const PegRect& invalid);

private:
    PegThing& m_screen;
    SoftKeys& m_keys;
    drawScreenClass m_scheme;
    PegHolder<PegPrompt> m_title;
    std::uint32_t m_titleNumber = 0;
    SoftKeys::State m_screensKeys;
    bool m_open = false;
};
