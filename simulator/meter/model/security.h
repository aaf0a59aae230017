#pragma once

#include <cstdint>
#include <string_view>

/// Who may change settings from the front panel.
namespace meter {

enum class Verdict : std::uint32_t { Accepted = 0, WrongPassword = 1, NotAllowed = 2 };

/// What the lock on the housing says.
inline constexpr std::uint32_t kLockOpen = 0;
inline constexpr std::uint32_t kLockClosed = 2;

class Security {
public:
    /// Compares with the meter's users: USER may change settings, GUEST may not. Anything but Accepted logs out.
    Verdict LogIn(std::string_view user, std::string_view password);
    void LogOut() { m_loggedIn = false; }
    bool IsLoggedIn() const { return m_loggedIn; }

    /// Whether the front panel may change anything at all; who is logged in is logged out when it may not.
    bool IsFrontPanelAllowed() const { return m_frontPanelAllowed; }
    void AllowFrontPanel(bool allowed) {
        m_frontPanelAllowed = allowed;
        if (!allowed) LogOut();
    }

private:
    bool m_loggedIn = false;
    bool m_frontPanelAllowed = true;
};

}  // namespace meter
