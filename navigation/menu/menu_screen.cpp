#include "navigation/menu/menu_screen.h"

#include "navigation/geometry.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "navigation/password_handler.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"
#include "peg/resources/resources.h"

namespace {

constexpr PegRect kListPlace =
    RectOf(Divided(kPanelWidth, 26.67), Divided(kPanelHeight, 48.0), Divided(kPanelWidth, 1.04), kSoftKeyLine);
static_assert(kListPlace == PegRect{11, 5, 307, 214});
constexpr std::uint32_t kListStyle = kStyleTransparent | kStyleBorderNone;
constexpr std::uint32_t kRowBitmap = 82;
constexpr int kRowsAboveLine = 3;

constexpr std::uint16_t kSecondTimer = 3;
constexpr int kInactivityTicks = 10 * kTicksPerSecond;

constexpr std::int32_t kPowerQualityLabel = 203;  // shown only while the meter offers it
constexpr std::uint32_t kLocked = 2;
constexpr std::uint32_t kLockedText = 148;

constexpr std::size_t kBack = 0;
constexpr std::size_t kUp = 1;
constexpr std::size_t kDown = 2;
constexpr std::size_t kSelect = 3;

constexpr DialogLook kDialogLook = {
    .scheme = Scheme::Menu,
    .accent = 89,
    .titleFont = 38,
    .messageFont = 34,
    .messagePlace = RectOf(kPanelWidth / 32, Divided(kPanelHeight, 1.62), kPanelWidth - kPanelWidth / 32,
                           Divided(kPanelHeight, 3.64) + Divided(kPanelHeight, 1.62)),
    .entryBackdrop = 215,
    .messageBackdrop = 189,
    .firstEntryLength = keyboardWin::kLongestText,
};
static_assert(kDialogLook.messagePlace == PegRect{10, 148, 310, 213});

const MenuTree& TreeOf(std::int32_t menuId) {
    for (const MenuTree& tree : kMenuTrees) {
        if (tree.menuId == menuId) return tree;
    }
    return kMenuTrees[DISPLAY_MODE_NORMAL];
}

bool OffersPowerQuality() {
    std::uint32_t enabled = 0;
    return DISPLAYFEATURES_getEn50160DisplayEnabled(enabled) == 0 && enabled != 0;
}

bool IsLocked() {
    std::uint32_t status = 0;
    return meterAccessClass::getInstance().readHwLockStatus(status) != 0 || status == kLocked;
}

constexpr bool NamesMode(std::int32_t target) {
    return target >= MenuOfMode(DISPLAY_MODE_NORMAL) && target <= MenuOfMode(DISPLAY_MODE_TEST);
}

}  // namespace

menuScrnClass::menuScrnClass(std::int32_t menuId)
    : m_menuId(menuId),
      m_tree(TreeOf(menuId)),
      m_list(AddNew<vertListNavClass>(*this, kListPlace, std::uint16_t{0}, kListStyle)),
      m_dialog(*this, m_keys, kDialogLook) {
    m_list.setKeepVisibleLine(kRowsAboveLine * PegResources::BitmapHeight(kRowBitmap));
    const drawScreenClass scheme(Scheme::Menu);
    m_keys.SetImage(kBack, scheme, KeyImage::Back);
    m_keys.SetImage(kUp, scheme, KeyImage::Up);
    m_keys.SetImage(kDown, scheme, KeyImage::Down);
    m_keys.SetImage(kSelect, scheme, KeyImage::Select);
    m_keys.AddTo(*this);
    BuildItems();
    menuScrnClass::reset();
}

void menuScrnClass::BuildItems() {
    const bool offersPowerQuality = OffersPowerQuality();
    menuBitmapButtonClass* group = nullptr;
    for (const MenuItem& row : m_tree.items) {
        menuBitmapButtonClass& item = *m_items.emplace_back(row);
        item.setTarget(row.target);
        if (row.level == 1) {
            group = &item;
            m_list.AddChildAtEnd(item);
        } else if (group != nullptr && (row.label != kPowerQualityLabel || offersPowerQuality)) {
            group->addSubItem(&item);
        }
    }
}

void menuScrnClass::relabel() {
    for (const auto& item : m_items) item->relabel();
    m_dialog.Relabel();
}

void menuScrnClass::reset() {
    m_dialog.Close();
    for (const auto& item : m_items) CloseGroup(*item);
    m_remembered = 0;
    m_list.SelectIndex(m_remembered);
    EnableMoves();
}

void menuScrnClass::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    PegWindow::Draw(invalid);
    m_dialog.Draw(invalid);
}

std::int32_t menuScrnClass::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_HIDE:
            PegWindow::Message(message);
            KillTimer(*this, kSecondTimer);
            m_dialog.Close();
            return 0;
        case MSG_SHOW:
        case MSG_LANGUAGE: OnShow(message); return 0;
        case MSG_TIMER: OnTimer(); return 0;
        case MSG_KEY_DOWN: OnKeyDown(message.param); return 0;
        case MSG_KEY_UP: OnKeyUp(message); return 0;
    }
    return PegWindow::Message(message);
}

void menuScrnClass::OnShow(const PegMessage& message) {
    m_keys.ReleaseAll(message);
    relabel();
    PegWindow::Message(message);
    m_inactivity = kInactivityTicks;
    if (!m_dialog.IsOpen()) {
        m_remembered = m_list.SelectedIndex();
        m_list.SelectIndex(m_remembered);
        EnableMoves();
    }
    SetTimer(*this, kSecondTimer, 1, kTicksPerSecond);
}

void menuScrnClass::OnTimer() {
    meterAccessClass::getInstance().keepAlive();
    const int before = m_inactivity;
    m_inactivity -= kTicksPerSecond;
    if (before >= kTicksPerSecond) return;
    m_dialog.Close();
    PHC_passwordHandlerClass::getInstance().logout();
    m_list.SelectIndex(m_remembered);
    navigationHandlerClass::getInstance().goHome(m_menuId);
}

void menuScrnClass::OnKeyDown(int keyCode) {
    m_inactivity = kInactivityTicks;
    m_keys.Press(keyCode);
    m_dialog.KeyDown(keyCode);
}

void menuScrnClass::OnKeyUp(const PegMessage& message) {
    m_inactivity = kInactivityTicks;
    m_keys.Release(message, message.param);
    RunKeyAction(message.param);
}

void menuScrnClass::SoftKey1Action() {
    if (m_dialog.IsOpen()) return;
    m_list.SelectIndex(m_remembered);
    navigationHandlerClass::getInstance().goBack(m_menuId);
}

void menuScrnClass::SoftKey2Action() {
    if (m_dialog.IsOpen()) return;
    m_list.SelectPrevious();
    EnableMoves();
}

void menuScrnClass::SoftKey3Action() {
    if (m_dialog.IsOpen()) return;
    m_list.SelectNext();
    EnableMoves();
}

void menuScrnClass::SoftKey4Action() {
    menuBitmapButtonClass* item = SelectedItem();
    if (m_dialog.IsOpen()) {
        if (m_dialog.Confirm() && item != nullptr) GoTo(item->getTarget());
        return;
    }
    m_remembered = m_list.SelectedIndex();
    if (item == nullptr) return;
    if (item->hasSubItems()) {
        ToggleGroup(*item);
    } else {
        Choose(*item);
    }
}

void menuScrnClass::HomeKeyAction() {
    if (m_dialog.IsOpen()) {
        m_dialog.Close();
        return;
    }
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    const std::int32_t current = navigation.getCurrentScreenId();
    const bool isHere = current == kCurrentMenu || current == m_menuId;
    navigation.navigateFromCurrent(isHere ? m_tree.StartScreen() : m_menuId);
}

menuBitmapButtonClass* menuScrnClass::SelectedItem() {
    for (const auto& item : m_items) {
        if (&*item == m_list.Selected()) return &*item;
    }
    return nullptr;
}

void menuScrnClass::Choose(const menuBitmapButtonClass& item) {
    const std::int32_t target = item.getTarget();
    const bool entersTestMode = target == MenuOfMode(DISPLAY_MODE_TEST);
    const bool leavesTestMode = target == MenuOfMode(DISPLAY_MODE_NORMAL) && m_menuId == MenuOfMode(DISPLAY_MODE_TEST);
    if (!entersTestMode && !leavesTestMode) {
        GoTo(target);
    } else if (IsLocked()) {
        m_dialog.Refuse(kLockedText);
    } else {
        m_dialog.Ask();
    }
}

void menuScrnClass::GoTo(std::int32_t target) {
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    if (NamesMode(target)) navigation.setDisplayMode(target - MenuOfMode(DISPLAY_MODE_NORMAL));
    navigation.navigate(m_menuId, target);
}

void menuScrnClass::ToggleGroup(menuBitmapButtonClass& group) {
    const int index = m_list.SelectedIndex();
    if (group.subItems().front()->Parent() == &m_list) {
        CloseGroup(group);
        m_list.SelectIndex(index);
    } else {
        PegThing* before = &group;
        for (menuBitmapButtonClass* item : group.subItems()) {
            m_list.InsertBehind(*item, before);
            before = item;
        }
        m_list.SelectIndex(index + 1);
    }
    EnableMoves();
}

void menuScrnClass::CloseGroup(const menuBitmapButtonClass& group) {
    for (menuBitmapButtonClass* item : group.subItems()) {
        if (item->Parent() == &m_list) m_list.RemoveChild(*item);
    }
}

void menuScrnClass::EnableMoves() {
    const int index = m_list.SelectedIndex();
    m_keys.Enable(kUp, index > 0);
    m_keys.Enable(kDown, index < m_list.Count() - 1);
}

void CreateMenuScreens() {
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    for (const MenuTree& tree : kMenuTrees) {
        auto* menu = new menuScrnClass(tree.menuId);
        navigation.addScreen(tree.menuId, *menu, SCREEN_KIND_MENU);
        navigation.setMenu(tree.menuId, *menu);
    }
}
