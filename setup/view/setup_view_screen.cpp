#include "setup/view/setup_view_screen.h"

#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "navigation/password_handler.h"

namespace {

constexpr std::size_t kPreviousKey = 1;
constexpr std::size_t kNextKey = 2;
constexpr std::size_t kEditKey = 3;

constexpr std::uint32_t kNoFrontPanelAccess = 299;

constexpr int kMessageLeft = Share(kPanelWidth, 0.03125);
constexpr int kMessageTop = Divided(kPanelHeight, 10.0) + Divided(kPanelHeight, 1.95) + Divided(kPanelHeight, 48.0);
constexpr DialogLook kDialogLook = {
    .scheme = Scheme::Plain,
    .accent = 86,
    .titleFont = FontForSize(16, kPanelHeight),
    .messageFont = FontForSize(12, kPanelHeight),
    .messagePlace =
        RectOf(kMessageLeft, kMessageTop, kPanelWidth - kMessageLeft, kMessageTop + Share(kPanelHeight, 0.25)),
    .entryBackdrop = 211,
    .messageBackdrop = 139,
    .firstEntryLength = 8,
};
static_assert(kDialogLook.messagePlace == PegRect{10, 152, 310, 212});

}  // namespace

SVBC_setupViewBaseClass::SVBC_setupViewBaseClass(const SetupViewRow& row)
    : SetupScreen(row.screen, row.title), m_row(row), m_dialog(*this, m_keys, kDialogLook) {
    SetSoftKeyImage(kPreviousKey, KeyImage::Up);
    SetSoftKeyImage(kNextKey, KeyImage::Down);
    SetSoftKeyImage(kEditKey, KeyImage::Edit);
    m_keys.Enable(kPreviousKey, row.previous != kNoScreen);
    m_keys.Enable(kNextKey, row.next != kNoScreen);
}

void SVBC_setupViewBaseClass::Relabel() {
    SetupScreen::Relabel();
    m_dialog.Relabel();
}

void SVBC_setupViewBaseClass::OnDialogTimeout() {
    PHC_passwordHandlerClass::getInstance().logout();
    CloseDialog();
}

void SVBC_setupViewBaseClass::OnScreenTimeout() { navigationHandlerClass::getInstance().goHome(ScreenId()); }

void SVBC_setupViewBaseClass::SoftKey2Action() {
    if (!IsDialogOpen()) GoTo(m_row.previous);
}

void SVBC_setupViewBaseClass::SoftKey3Action() {
    if (!IsDialogOpen()) GoTo(m_row.next);
}

void SVBC_setupViewBaseClass::SoftKey4Action() {
    if (IsDialogOpen()) {
        if (m_dialog.Confirm()) GoTo(EditTarget());
        return;
    }
    if (EditTarget() == kNoScreen) return;
    switch (PHC_passwordHandlerClass::getInstance().checkAccess()) {
        case FrontPanelAccess::None: m_dialog.Refuse(kNoFrontPanelAccess); break;
        case FrontPanelAccess::WithPassword: m_dialog.Ask(); break;
        case FrontPanelAccess::Granted: GoTo(EditTarget()); break;
    }
}

void SVBC_setupViewBaseClass::GoTo(std::int32_t target) {
    if (target != kNoScreen) navigationHandlerClass::getInstance().navigate(ScreenId(), target);
}
