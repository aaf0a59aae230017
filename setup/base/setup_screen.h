#pragma once

#include <cstdint>

#include "navigation/header.h"
#include "navigation/keyed_screen.h"
#include "navigation/widgets/draw_screen.h"

/// A screen of settings: title band, soft keys, a dialog over it all, and the clocks that end what a person has left.
///
/// A dialog closes by itself after ten seconds without a key; after thirty seconds without a key on the screen itself
/// the front-panel login ends and the screen is left. Every released key keeps an open login alive. Toolkit task only;
/// lives as long as the process.
class SetupScreen : public KeyedScreen {
public:
    /// @param title  string number
    SetupScreen(std::int32_t screenId, std::uint32_t title);

    void Draw(const PegRect& invalid) override;
    std::int32_t Message(const PegMessage& message) override;

    /// Leads to the menu of the current display mode.
    void HomeKeyAction() override;

    std::int32_t ScreenId() const { return m_screenId; }

protected:
    virtual bool IsDialogOpen() const = 0;
    virtual void CloseDialog() = 0;
    virtual void DrawDialog(const PegRect& invalid) = 0;

    /// What a person has left: a dialog, or the screen. The login has ended already when it is the screen.
    virtual void OnDialogTimeout() { CloseDialog(); }
    virtual void OnScreenTimeout() = 0;

    /// A key is held down while a dialog is open.
    virtual void HoldKeyInDialog(int) {}

    /// Runs every second while no dialog is open.
    virtual void refreshValues() {}

    /// Shows all texts in the selected language; runs on show and when the language changes.
    virtual void Relabel();

    /// Gives a soft key (0 to 3) a picture of the scheme.
    void SetSoftKeyImage(std::size_t key, KeyImage image) { m_keys.SetImage(key, m_scheme, image); }

private:
    void OnShow(const PegMessage& message);
    void OnHide(const PegMessage& message);
    void OnSecond(const PegMessage& message);
    void OnKeyDown(int keyCode);
    void OnKeyUp(const PegMessage& message);

    std::int32_t m_screenId;
    std::uint32_t m_title;
    drawScreenClass m_scheme;
    scrnHeader& m_header;
    int m_dialogTicks = 0;  // until an open dialog closes
    int m_screenTicks = 0;  // until the screen is left
};
