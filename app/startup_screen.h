#pragma once

#include <cstdint>

#include "peg/core/window.h"

/// The splash: shown while the link to the meter comes up, for two seconds at least.
///
/// It tries to connect once a second, 62 times in all. Once connected it hands over: it starts the command server,
/// builds the application and puts the navigation handler's start screen in its own place. A meter that never answers
/// leaves it on the panel. Toolkit task only; lives as long as the process.
class startupScreen : public PegWindow {
public:
    static startupScreen& getInstance();

    std::int32_t Message(const PegMessage& message) override;

    /// Taking the screen itself off hands over to the application.
    PegThing* RemoveChild(PegThing& child) override;

private:
    startupScreen(int x, int y);

    void Connect();
    void OnShow();
    void OnTimer();
    void HandOver();
    void StartCommandServer();

    std::uint32_t m_startTime = 0;  // ticks
    bool mConnected = false;
    bool m_serverStarted = false;
    std::int32_t m_retriesLeft;
};
