#pragma once

#include "navigation/entry/numeric_edit.h"
#include "setup/edit/edit_screen.h"
#include "setup/edit/value_table.h"

/// Composes a number, an address or a time, digit by digit.
///
/// A value that cannot be read, or does not fit its mask, counts as empty: the person begins with zero, and whatever is
/// composed counts as a change.
class setupEdit2ScrnClass : public SEBC_setupEditBaseClass {
public:
    setupEdit2ScrnClass(const SetupEditRow& titled, const ValueRow& row);

    /// Move the cursor left, and step the character under it.
    void SoftKey2Action() override;
    void SoftKey3Action() override;

protected:
    void LoadValue() override;
    bool HasChanged() const override;
    void AskAboutChange() override;
    WriteOutcome WriteChange() override;

private:
    EntryResult ShowValue(std::string_view held);

    const ValueRow& m_row;
    numericEdit& m_editor;
    PegPrompt& m_unit;
    std::array<char16_t, 11> m_unitText{};
    MaskedValue m_held;  // what the meter holds, where that is known
    bool m_isKnown = false;
};

/// Creates the screens that compose a value and registers them with the navigation handler.
void CreateSetupEdit2Screens();
