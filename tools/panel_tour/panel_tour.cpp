#include "tools/panel_tour/panel_tour.h"

#include <set>

#include "app/application.h"
#include "localization/display_config.h"
#include "navigation/menu/menu_screen.h"
#include "navigation/menu_trees.h"
#include "rda/records/register.h"
#include "screens/base/options_menu_table.h"
#include "screens/nameplate/nameplate_pages.h"
#include "setup/edit/choice_list.h"
#include "setup/edit/choice_screen.h"

namespace {

constexpr std::string_view kWrite = "PDMINTERFACE_setRegisterValue";
constexpr std::string_view kLockStatus = "SECURITYINTERFACE_getHwLockStatus";
constexpr std::uint32_t kUnlocked = 0;
constexpr int kTicksToValues = 2;  // a screen of settings reads its values at its first tick
constexpr std::uint32_t kLocked = 2;
constexpr std::int32_t kAnyData = 11;  // a data screen
constexpr std::int32_t kNameplate = 98;
constexpr std::uint32_t kLastAlarmStatus = 12;
constexpr int kLongestPassword = 16;

std::string NameOf(std::int32_t id) {
    if (id == SCREEN_ID_FACTORY_TEST) return "display test";
    return (id <= MenuOfMode(DISPLAY_MODE_TEST) ? "menu " : "screen ") + std::to_string(id);
}

vertListNavClass& ListOf(PegThing& menu) {
    PegThing* child = menu.FirstChild();
    while (child->Type() != TYPE_VERT_LIST) child = child->Next();
    return static_cast<vertListNavClass&>(*child);
}

}  // namespace

PanelTour::PanelTour() : m_record(Screen()) {
    meter().Model().Play(*meter::FindScenario("500-alarms"));  // alarms to see the details of
    meter().Model().Advance(1000);
    BuildApplication(Manager());
    for (std::int32_t id = SCREEN_ID_FACTORY_TEST; id <= kLastCommandedScreen; ++id) {
        if (id == kCurrentMenu) continue;
        Show(id);
        if (Navigation().getCurrentScreenId() == id) m_screens.push_back(id);
    }
}

void PanelTour::LookAt(const std::string& place) {
    m_record.Clear();
    Manager().Invalidate(kWholePanel);
    Pump();
    Look(place);
}

void PanelTour::GoTo(std::int32_t id) {
    Show(kNeutral);
    Show(id);
}

void PanelTour::VisitEveryScreen() {
    for (const std::int32_t id : m_screens) {
        GoTo(id);
        Ticks(kTicksToValues);
        LookAt(NameOf(id));
    }
}

void PanelTour::PressEveryKey() {
    for (const std::int32_t id : m_screens) {
        if (id <= MenuOfMode(DISPLAY_MODE_TEST)) continue;
        for (const KeyCode key : {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_4}) {
            GoTo(id);
            Ticks(kTicksToValues);
            Press(key);
            Ticks(kTicksToValues);
            const std::int32_t shown = Navigation().getCurrentScreenId();
            const bool hasOptions = key == KEY_SOFT_1 && shown == id && !OptionsOf(id).empty();
            LookAt(NameOf(shown) + (hasOptions ? " options" : ""));
            if (hasOptions) Press(key);  // closes them again
        }
    }
}

void PanelTour::VisitEverything() {
    VisitEveryScreen();
    PressEveryKey();
    OpenEveryMenu();
    OpenEveryDialog();
    ChangeEverySetting();
}

void PanelTour::VisitEverySet() {
    constexpr std::uint32_t kLastLabels = 2;
    constexpr std::uint32_t kLastSymbols = 1;
    for (std::uint32_t set = DISPCFG_getLanguage() == 0 ? 1 : kLastLabels; set <= kLastLabels; ++set) {
        DISPCFG_setPhaseLabels(set);
        DISPCFG_setMeasSymbols(kLastSymbols);
        VisitEveryScreen();
    }
    DISPCFG_setPhaseLabels(0);
    DISPCFG_setMeasSymbols(0);
}

void PanelTour::FirstItem(std::int32_t menuId) {
    const std::int32_t mode = menuId - MenuOfMode(DISPLAY_MODE_NORMAL);
    Navigation().setDisplayMode(mode == DISPLAY_MODE_NORMAL ? DISPLAY_MODE_ALT : DISPLAY_MODE_NORMAL);
    Navigation().setDisplayMode(mode);  // resets its menu
    Show(kNeutral);
    Show(menuId);
}

void PanelTour::OpenEveryMenu() {
    for (const MenuTree& tree : kMenuTrees) {
        FirstItem(tree.menuId);
        const vertListNavClass& list = ListOf(*Navigation().getCurrentScreen());
        const PegThing* before = nullptr;
        std::set<const PegThing*> opened;
        while (list.Selected() != before) {
            LookAt("menu " + std::to_string(tree.menuId));
            before = list.Selected();
            const bool isGroup = static_cast<const menuBitmapButtonClass*>(before)->hasSubItems();
            Press(isGroup && opened.insert(before).second ? KEY_SOFT_4 : KEY_SOFT_3);
        }
    }
}

void PanelTour::AskForPassword() {
    FirstItem(MenuOfMode(DISPLAY_MODE_NORMAL));
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
}

void PanelTour::OpenEveryDialog() {
    meter().Answer(kLockStatus, kUnlocked);
    for (const std::uint32_t verdict : {1U, 2U}) {
        Verdict(verdict);
        AskForPassword();
        LookAt("user name");
        PressKey(kKeyShift);
        LookAt("keyboard with capitals");
        PressKey(kKeyShift);
        PressKey(kKeyEnter);
        LookAt("password");
        for (int i = 0; i < kLongestPassword; ++i) PressKey('w');
        LookAt("longest password");
        PressKey(kKeyEnter);
        LookAt("access denied");
        Press(KEY_SOFT_4);
    }
    meter().Answer(kLockStatus, kLocked);
    AskForPassword();
    LookAt("locked");
    Press(KEY_SOFT_4);
}

/// Changes a setting with that arrow key. @return whether there is now a question to be answered
bool PanelTour::AskAboutChange(std::int32_t id, KeyCode key) {
    GoTo(id);
    Ticks(kTicksToValues);
    Press(key);
    Press(KEY_SOFT_2_3);  // switches the item of a list
    LookAt(NameOf(id));
    Press(KEY_SOFT_4);
    return Navigation().getCurrentScreenId() == id;
}

void PanelTour::ChangeEverySetting() {
    RegisterWriteResult refusal{};
    refusal.result.Set(1);
    meter().Answer(kWrite, refusal);
    for (const std::int32_t id : m_screens) {
        if (Navigation().getScreenKind(id) != SCREEN_KIND_SETUP_EDIT) continue;
        if (!AskAboutChange(id, KEY_SOFT_3) && !AskAboutChange(id, KEY_SOFT_2)) continue;
        LookAt(NameOf(id) + " confirmation");
        Press(KEY_SOFT_4);
        LookAt(NameOf(id) + " refused");
        Press(KEY_SOFT_4);
    }
}

void PanelTour::TurnEveryPage() {
    GoTo(kNameplate);
    Press(KEY_SOFT_2, kNameplatePages);
    for (std::size_t page = 0; page < kNameplatePages; ++page) {
        LookAt(NameOf(kNameplate));
        Press(KEY_SOFT_3);
    }
}

void PanelTour::AskAboutEveryChoice() {
    ChoiceList& list = ChoiceList::getInstance();
    for (const ChoiceRow& row : kChoiceRows) {
        for (int choice = 0; choice == 0 || choice < list.visibleCount(); ++choice) {
            GoTo(row.screen);
            Press(KEY_SOFT_2, list.visibleCount());
            Press(KEY_SOFT_3, choice);
            LookAt(NameOf(row.screen));
            Press(KEY_SOFT_4);
            if (Navigation().getCurrentScreenId() == row.screen) LookAt(NameOf(row.screen) + " confirmation");
        }
    }
}

void PanelTour::ShowEveryHeader() {
    GoTo(kAnyData);
    for (std::uint32_t status = 0; status <= kLastAlarmStatus; ++status) {
        PegMessage message = MessageOf(MSG_ALARM_STATUS, 1);
        message.target = Navigation().getCurrentScreen();
        message.data[0] = status;
        toolkit.queue->Push(message);
        Pump();
        LookAt("header with alarm status " + std::to_string(status));
    }
    meter().Answer(kLockStatus, kLocked);
    GoTo(kAnyData);
    LookAt("header locked");
    meter().Answer(kLockStatus, kUnlocked);
    for (const std::int32_t mode : {DISPLAY_MODE_ALT, DISPLAY_MODE_TEST}) {
        Navigation().setDisplayMode(mode);
        GoTo(kAnyData);
        LookAt("header of mode " + std::to_string(mode));
    }
    Navigation().setDisplayMode(DISPLAY_MODE_NORMAL);
}
