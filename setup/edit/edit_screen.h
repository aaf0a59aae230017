#pragma once

#include "navigation/navigation_handler.h"
#include "setup/base/setup_screen.h"
#include "setup/edit/confirm_dialog.h"
#include "setup/edit/edit_table.h"

/// A screen that changes one setting, or a list of them.
///
/// A derived screen shows what the meter holds and lets the person change it; soft key 4 then asks for confirmation,
/// has the change written and leaves the screen, or says why the meter refused. Nothing is written unconfirmed, and an
/// unchanged value is left without a question. Toolkit task only; lives as long as the process.
class SEBC_setupEditBaseClass : public SetupScreen {
public:
    explicit SEBC_setupEditBaseClass(const SetupEditRow& row);

    std::int32_t Message(const PegMessage& message) override;

    void SoftKey1Action() override;
    void SoftKey4Action() override;

protected:
    enum class WriteOutcome { Accepted, Refused, NoAnswer };

    /// Reads from the meter what the screen shows; runs on show.
    virtual void LoadValue() = 0;
    virtual bool HasChanged() const = 0;

    /// Opens the question about the change.
    virtual void AskAboutChange() = 0;
    virtual WriteOutcome WriteChange() = 0;

    /// Writes one register; blocks until the meter has answered. What it said to a refusal is kept to be shown; of
    /// several refusals the first, together with its subject, which may be null.
    WriteOutcome Write(std::uint32_t registerId, const char* text, const char16_t* subject = nullptr);

    void setOldValue(const char16_t* text) { m_dialog.setOldValue(text); }
    void setNewValue(const char16_t* text) { m_dialog.setNewValue(text); }
    void openConfirm() { m_dialog.Ask(); }
    void openConfirm(const char16_t* subjects) { m_dialog.AskAbout(subjects); }
    void showError(std::uint32_t titleNumber, const char16_t* text, const char16_t* subject = nullptr);
    void showMessage(std::uint32_t titleNumber, std::uint32_t textNumber);
    void closeDialog() { m_dialog.Close(); }
    void EnableSoftKey(std::size_t key, bool on) { m_keys.Enable(key, on); }

    bool IsDialogOpen() const override { return m_dialog.IsOpen(); }
    void CloseDialog() override { closeDialog(); }
    void DrawDialog(const PegRect& invalid) override { m_dialog.Draw(invalid); }
    void OnScreenTimeout() override { GoBack(); }
    void Relabel() override;

    static constexpr std::size_t kFirstMove = 1;  // the soft keys that a derived screen gives their meaning
    static constexpr std::size_t kSecondMove = 2;

private:
    void GoBack() { navigationHandlerClass::getInstance().goBack(ScreenId()); }
    void WriteConfirmed();

    ConfirmDialog m_dialog;
    std::array<char16_t, ConfirmDialog::kLongestMessage + 1> m_refusal{};  // empty: none since the last question
    std::array<char16_t, ConfirmDialog::kLongestValue + 1> m_refused{};    // its subject; empty: none
};

/// The row of a screen that edits settings, or null, and a line on the console.
const SetupEditRow* FindSetupEditRow(std::int32_t screenId);

/// Creates a screen for every row of a table that belongs to the class and registers it with the navigation handler.
template <typename Screen, typename Table>
void CreateEditScreens(const Table& table) {
    for (const auto& row : table) {
        const SetupEditRow* titled = FindSetupEditRow(row.screen);
        if (titled == nullptr) continue;
        auto* screen = new Screen(*titled, row);
        navigationHandlerClass::getInstance().addScreen(row.screen, *screen, SCREEN_KIND_SETUP_EDIT);
    }
}
