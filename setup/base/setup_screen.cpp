#include "setup/base/setup_screen.h"

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "navigation/password_handler.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"

namespace {

constexpr std::uint32_t kHeaderStyle = kStyleTransparent | kStyleBorderNone;
constexpr std::uint32_t kThickFrameStatus = 0x18;

constexpr std::uint16_t kSecondTimer = 1;
constexpr int kDialogTicks = 10 * kTicksPerSecond;
constexpr int kScreenTicks = 30 * kTicksPerSecond;

/// Counts one second down. @return true when the time had run out before
bool HasRunOut(int& ticks) {
    const int before = ticks;
    ticks -= kTicksPerSecond;
    return before < kTicksPerSecond;
}

}  // namespace

SetupScreen::SetupScreen(std::int32_t screenId, std::uint32_t title)
    : m_screenId(screenId),
      m_title(title),
      m_scheme(Scheme::Plain),
      m_header(AddNew<scrnHeader>(*this, RectOf(0, 0, kPanelWidth - 1, kHeaderBottom), nullptr, std::uint16_t{0},
                                  kHeaderStyle)) {
    ClearStatusBits(kThickFrameStatus);
    m_header.setTitleColor(m_scheme.colour(0));
    m_keys.AddTo(*this);
}

void SetupScreen::Relabel() { m_header.setTitle(LocalizedString(m_title)); }

void SetupScreen::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    m_scheme.Draw(Real());
    DrawChildren(invalid);
    if (IsDialogOpen()) DrawDialog(invalid);
}

std::int32_t SetupScreen::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_SHOW: OnShow(message); return 0;
        case MSG_HIDE: OnHide(message); return 0;
        case MSG_LANGUAGE: Relabel(); return 0;
        case MSG_TIMER:
            if (message.param != kSecondTimer) break;
            OnSecond(message);
            return 0;
        case MSG_KEY_DOWN: OnKeyDown(message.param); return 0;
        case MSG_KEY_UP: OnKeyUp(message); return 0;
        case MSG_ALARM_STATUS: m_header.Message(message); return 0;
    }
    return PegWindow::Message(message);
}

void SetupScreen::OnShow(const PegMessage& message) {
    m_keys.ReleaseAll(message);
    PegWindow::Message(message);
    SetTimer(*this, kSecondTimer, 1, kTicksPerSecond);
    m_screenTicks = kScreenTicks;
    Relabel();
}

void SetupScreen::OnHide(const PegMessage& message) {
    PegWindow::Message(message);
    KillTimer(*this, kSecondTimer);
    CloseDialog();
}

void SetupScreen::OnSecond(const PegMessage& message) {
    meterAccessClass::getInstance().keepAlive();
    if (IsDialogOpen()) {
        if (HasRunOut(m_dialogTicks)) OnDialogTimeout();
        return;
    }
    m_header.Message(message);
    if (HasRunOut(m_screenTicks)) {
        PHC_passwordHandlerClass::getInstance().logout();
        OnScreenTimeout();
    } else {
        refreshValues();
    }
}

void SetupScreen::OnKeyDown(int keyCode) {
    m_keys.Press(keyCode);
    if (IsDialogOpen()) HoldKeyInDialog(keyCode);
}

void SetupScreen::OnKeyUp(const PegMessage& message) {
    PHC_passwordHandlerClass::getInstance().touch();
    m_screenTicks = kScreenTicks;
    m_dialogTicks = kDialogTicks;  // also for the dialog that this key opens
    m_keys.Release(message, message.param);
    RunKeyAction(message.param);
}

void SetupScreen::HomeKeyAction() {
    CloseDialog();
    navigationHandlerClass::getInstance().navigate(m_screenId, kCurrentMenu);
}
