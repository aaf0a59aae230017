#pragma once

#include "setup/edit/choice_list.h"
#include "setup/edit/choice_table.h"
#include "setup/edit/list_edit_screen.h"

/// Chooses one of the texts that a register offers, such as the language or the wiring.
///
/// The texts are read once and kept; which of them is in force is read on every show. When it cannot be read, none is
/// marked, and whatever is chosen counts as a change.
class setupEdit1ScrnClass : public ListEditScreen {
public:
    setupEdit1ScrnClass(const SetupEditRow& titled, const ChoiceRow& row);

    std::int32_t Message(const PegMessage& message) override;

protected:
    setupVerticalList& List() override { return m_list; }
    void LoadValue() override;
    bool HasChanged() const override;
    void AskAboutChange() override;
    WriteOutcome WriteChange() override;
    void Relabel() override;

private:
    std::uint32_t ReadCurrent();
    void ShowTexts();

    std::uint32_t m_registerId;
    ChoiceList& m_list;
    std::array<decltype(EnumerationData::items)::value_type, kMaxEnumerationItems> m_texts{};  // in the base language
    std::size_t m_count = 0;                                                                   // 0: not read yet
    int m_current = ChoiceList::kNone;
};

/// Creates the screens that choose a text and registers them with the navigation handler.
void CreateSetupEdit1Screens();
