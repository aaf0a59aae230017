#pragma once

#include <deque>

#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/setup_vertical_list.h"
#include "setup/edit/list_edit_screen.h"
#include "setup/edit/list_table.h"
#include "setup/edit/switch_list.h"

/// Switches the items of a list on and off: alarms, figures to set back, services.
///
/// Both arrow keys together switch the selected item. On confirmation every changed item is written; one that the meter
/// refuses does not hold up the others, but stays as the person left it, so that it can be seen and tried again. When
/// the meter does not answer, the rest is left in the same way.
class setupEdit4ScrnClass : public ListEditScreen {
public:
    setupEdit4ScrnClass(const SetupEditRow& titled, const ListRow& row);

    /// Another language begins with what the meter holds.
    std::int32_t Message(const PegMessage& message) override;

    /// Switches the selected item.
    void SoftKey23Action() override;

protected:
    setupVerticalList& List() override { return m_list; }
    void LoadValue() override;
    bool HasChanged() const override { return m_switches.HasChanged(); }
    void AskAboutChange() override;
    WriteOutcome WriteChange() override;
    void Relabel() override;

private:
    void ShowStates();

    SetupList m_kind;
    SwitchList m_switches;
    PegPrompt& m_hint;
    setupVerticalList& m_list;
    std::deque<PegHolder<SetupListItem>> m_items;  // in the list as far as there are switches
};

/// Creates the screens that switch the items of a list and registers them with the navigation handler.
void CreateSetupEdit4Screens();
