#pragma once

#include "peg/core/thing.h"

/// What the front panel may change.
enum class FrontPanelAccess : std::int32_t { None = 0, WithPassword = 2, Granted = 3 };

/// What became of a password.
inline constexpr std::int32_t kPasswordAccepted = 0;
inline constexpr std::int32_t kPasswordNotChecked = 1;
inline constexpr std::int32_t kPasswordRefused = 2;

/// A short-lived note that the user has proved the front-panel password. The meter alone decides; the display keeps no
/// password. A login that is not used for 180 seconds ends. Toolkit task only; lives as long as the process.
class PHC_passwordHandlerClass : public PegThing {
public:
    static PHC_passwordHandlerClass& getInstance();

    /// Asks the meter what the front panel may do; keeps an open login open. A meter that does not answer allows
    /// nothing.
    FrontPanelAccess checkAccess();

    /// Has the meter check what was entered. @return kPasswordAccepted, or why not: the meter's own word as a rule
    std::int32_t verify(const char* first, const char* second);

    /// An open login runs for its full time again.
    void touch();

    /// Ends an open login and tells the meter.
    void logout();

    std::int32_t Message(const PegMessage& message) override;

private:
    PHC_passwordHandlerClass() = default;

    void RestartTimer();

    bool m_loggedIn = false;
};
