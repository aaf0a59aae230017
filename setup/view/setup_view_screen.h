#pragma once

#include <cstdio>

#include "navigation/entry/password_dialog.h"
#include "navigation/navigation_handler.h"
#include "setup/base/setup_screen.h"
#include "setup/view/setup_view_table.h"

/// A page of settings as the meter has them now, read every second: the way into the screens that change them.
///
/// Soft keys 2 and 3 turn the pages of a chain; soft key 4 opens the edit screen of what is selected, once the meter
/// allows it and the person has proved the password. Thirty seconds without a key lead home. Toolkit task only; lives
/// as long as the process.
class SVBC_setupViewBaseClass : public SetupScreen {
public:
    explicit SVBC_setupViewBaseClass(const SetupViewRow& row);

    void SoftKey2Action() override;
    void SoftKey3Action() override;
    void SoftKey4Action() override;

protected:
    /// The screen that changes what is selected, or kNoScreen.
    virtual std::int32_t EditTarget() const = 0;

    bool IsDialogOpen() const override { return m_dialog.IsOpen(); }
    bool IsEntryOpen() const { return m_dialog.IsEntryOpen(); }
    void CloseDialog() override { m_dialog.Close(); }
    void DrawDialog(const PegRect& invalid) override { m_dialog.Draw(invalid); }
    void HoldKeyInDialog(int keyCode) override { m_dialog.KeyDown(keyCode); }
    void OnDialogTimeout() override;
    void OnScreenTimeout() override;
    void Relabel() override;

    /// Leads to another screen; nowhere for kNoScreen.
    void GoTo(std::int32_t target);

private:
    const SetupViewRow& m_row;
    PasswordDialog m_dialog;
};

/// Creates the screen for a row of a table of contents and registers it with the navigation handler.
template <typename Screen, typename Row>
void CreateSetupView(const Row& content) {
    const SetupViewRow* row = FindRow(kSetupViewRows, &SetupViewRow::screen, content.screen);
    if (row == nullptr) {
        std::printf("\n\nERROR: Derived screen not added to Setup Base class!!\n\n");
        return;
    }
    navigationHandlerClass::getInstance().addScreen(content.screen, *new Screen(*row, content), SCREEN_KIND_SETUP_VIEW);
}
