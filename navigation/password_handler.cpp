#include "navigation/password_handler.h"

#include "peg/core/timer_list.h"
#include "rda/meter_operations.h"

namespace {
constexpr std::uint16_t kLoginTimer = 4;
constexpr int kLoginTicks = 180 * kTicksPerSecond;
}  // namespace

PHC_passwordHandlerClass& PHC_passwordHandlerClass::getInstance() {
    static auto* const instance = new PHC_passwordHandlerClass;
    return *instance;
}

void PHC_passwordHandlerClass::RestartTimer() { SetTimer(*this, kLoginTimer, kLoginTicks, kLoginTicks); }

FrontPanelAccess PHC_passwordHandlerClass::checkAccess() {
    AccessRights rights{};
    if (SECURITYINTERFACE_getFrontPanelAccessRights(rights) != 0) return FrontPanelAccess::None;
    if (rights.frontPanel.Get() == 0) return FrontPanelAccess::None;
    if (!m_loggedIn) return FrontPanelAccess::WithPassword;
    RestartTimer();
    return FrontPanelAccess::Granted;
}

std::int32_t PHC_passwordHandlerClass::verify(const char* first, const char* second) {
    m_loggedIn = false;
    if (first == nullptr || second == nullptr) return kPasswordNotChecked;
    std::uint32_t result = 0;
    if (SECURITYINTERFACE_verifyFrontPanelPassword(first, second, result) != 0) return kPasswordNotChecked;
    if (result != 0) return static_cast<std::int32_t>(result);
    m_loggedIn = true;
    RestartTimer();
    return kPasswordAccepted;
}

void PHC_passwordHandlerClass::touch() {
    if (m_loggedIn) RestartTimer();
}

void PHC_passwordHandlerClass::logout() {
    if (!m_loggedIn) return;
    KillTimer(*this, kLoginTimer);
    static_cast<void>(SECURITYINTERFACE_clearFrontPanelPassword());
    m_loggedIn = false;
}

std::int32_t PHC_passwordHandlerClass::Message(const PegMessage& message) {
    if (message.type != MSG_TIMER) return 0;
    KillTimer(*this, kLoginTimer);
    m_loggedIn = false;
    return 0;
}
