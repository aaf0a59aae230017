#pragma once

#include <string>
#include <vector>

#include "simulator/bench/keyboard_bench.h"
#include "tools/panel_tour/text_record.h"

/// Leads to everything that the panel can show: every registered screen, what its keys open, the menus with all their
/// groups open, the password dialog with its keyboard and its answers, the
/// questions about changed settings, the icons of the header.
class PanelTour : public KeyboardBench {
protected:
    PanelTour();

    /// What a tour is for: called for each picture, after the whole panel was drawn into the record.
    virtual void Look(const std::string& place) = 0;

    void VisitEveryScreen();
    void PressEveryKey();
    void OpenEveryMenu();
    void OpenEveryDialog();
    void ChangeEverySetting();
    void ShowEveryHeader();
    void TurnEveryPage();        // of the nameplate
    void AskAboutEveryChoice();  // of the settings that are chosen

    /// All of that in turn, but the headers.
    void VisitEverything();

    /// The screens with phase labels and symbols other than the base sets: all in English, one of each in the other
    /// languages.
    void VisitEverySet();

    const TextRecord& Record() const { return m_record; }

private:
    static constexpr std::int32_t kNeutral = 1;  // a screen to come from

    void GoTo(std::int32_t id);
    void LookAt(const std::string& place);
    bool AskAboutChange(std::int32_t id, KeyCode key);
    void FirstItem(std::int32_t menuId);
    void AskForPassword();

    TextRecord m_record;
    std::vector<std::int32_t> m_screens;  // registered
};
