#include "tests/walk/write_watch.h"

#include <algorithm>

#include "navigation/messages.h"
#include "navigation/navigation_handler.h"
#include "peg/core/timer_list.h"

namespace {

constexpr std::string_view kWrite = "PDMINTERFACE_setRegisterValue";
constexpr std::string_view kVerify = "SECURITYINTERFACE_verifyFrontPanelPassword";
constexpr std::string_view kLogout = "SECURITYINTERFACE_clearFrontPanelPassword";

// A dialog that nobody touches is open for sure until the one, and closed for sure from the other on: its seconds end
// up to a second late.
constexpr int kSurelyOpen = 9 * kTicksPerSecond;
constexpr int kSurelyClosed = 11 * kTicksPerSecond;

std::int32_t Shown() { return navigationHandlerClass::getInstance().getCurrentScreenId(); }
bool IsEditScreen(std::int32_t screen) {
    return navigationHandlerClass::getInstance().getScreenKind(screen) == SCREEN_KIND_SETUP_EDIT;
}

}  // namespace

std::int64_t WriteWatch::TicksSinceKey() const { return timerTickCount() - m_lastKey; }

void WriteWatch::Note(const char* what) {
    if (fault.empty()) fault = std::string(what).append(" on screen ").append(std::to_string(m_shownBefore));
}

void WriteWatch::Before(const PegMessage& message) {
    m_shownBefore = Shown();
    m_writesBefore = writes;
    if (message.type != MSG_KEY_UP) return;
    if (TicksSinceKey() >= kSurelyOpen) m_saysWhyNot = false;
    if (TicksSinceKey() >= kSurelyClosed) m_asked = 0;
    m_lastKey = timerTickCount();
    m_isConfirming = message.param == KEY_SOFT_4 && m_asked == m_shownBefore && m_asked != 0;
}

void WriteWatch::After(const PegMessage& message) {
    m_isConfirming = false;
    if (Shown() != m_shownBefore) {
        m_asked = 0;
        m_saysWhyNot = false;
        m_sentHere = message.type == NAV_MSG_NAVIGATE && IsEditScreen(Shown());
    }
    if (message.type == MSG_KEY_UP) AfterKey(message.param);
}

void WriteWatch::AfterKey(int key) {
    const bool closesBox = m_saysWhyNot;
    if (key == KEY_SOFT_1) m_asked = 0;
    if (key != KEY_SOFT_4 || Shown() != m_shownBefore) return;
    m_saysWhyNot = writes != m_writesBefore;
    m_asked = m_saysWhyNot || closesBox || !IsEditScreen(Shown()) ? 0 : Shown();
}

bool WriteWatch::IsAccepted(std::span<const std::byte> reply) {
    return !reply.empty() && std::ranges::all_of(reply.first(std::min<std::size_t>(reply.size(), 4)),
                                                 [](std::byte one) { return one == std::byte{0}; });
}

void WriteWatch::OnCall(std::string_view operation, std::span<const std::byte> seen, std::optional<bool> done) {
    if (operation == kWrite) {
        ++writes;
        if (!IsAccepted(seen)) ++refusals;
        if (!m_isConfirming) Note("an unconfirmed write");
        if (!m_loggedIn && !m_sentHere && done.value_or(false)) Note("a write without a login");
    } else if (operation == kVerify) {
        m_loggedIn = done.value_or(m_loggedIn);
        logins += done.value_or(false) ? 1 : 0;
    } else if (operation == kLogout && done.value_or(false)) {
        m_loggedIn = false;
    }
}
