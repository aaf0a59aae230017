#include "app/startup_screen.h"

#include <cstdio>

#include "app/application.h"
#include "navigation/messages.h"
#include "peg/core/timer_list.h"
#include "platform/panel.h"
#include "platform/task.h"
#include "rda/client.h"
#include "rda/command_server.h"

namespace {

constexpr const char* kMeterAddress = "127.0.0.1";
constexpr std::uint16_t kMeterPort = 31415;

constexpr std::uint32_t kSplashBitmap = 243;
constexpr std::uint32_t kThickFrameStatus = 0x18;
constexpr std::uint16_t kTimer = 0;
constexpr std::int32_t kShowingTicks = 2 * kTicksPerSecond;
constexpr std::int32_t kRetryTicks = kTicksPerSecond;
constexpr std::int32_t kRetries = 60;

constexpr const char* kServerTask = "tDispRdaServer";
constexpr int kServerPriority = 194;
constexpr std::size_t kServerStack = 4096;

}  // namespace

startupScreen& startupScreen::getInstance() {
    static auto* const instance = new startupScreen(0, 0);
    return *instance;
}

startupScreen::startupScreen(int x, int y)
    : PegWindow(RectOf(x, y, x + kPanelWidth, y + kPanelHeight)), m_retriesLeft(kRetries) {
    ClearStatusBits(kThickFrameStatus);
    SetBackground(kSplashBitmap, PegBitmapMode::Centred);
}

std::int32_t startupScreen::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_SHOW: OnShow(); break;
        case MSG_TIMER: OnTimer(); return 0;
        case MSG_KEY_UP:
            if (message.param == KEY_SOFT_1 && mConnected) RemoveChild(*this);
            return 0;
        case MSG_HIDE: KillTimer(*this, 0); break;
    }
    return PegWindow::Message(message);
}

void startupScreen::Connect() {
    if (connectToServer(kMeterAddress, kMeterPort) != 0) return;
    std::printf("\n\tstartupscreen: mConnected == TRUE\n\t");
    mConnected = true;
}

void startupScreen::OnShow() {
    m_startTime = timerTickCount();
    Connect();
    SetTimer(*this, kTimer, mConnected ? kShowingTicks : kRetryTicks, 0);
}

void startupScreen::OnTimer() {
    if (!mConnected) {
        std::printf("\nmessage:connectToServer\n)");
        Connect();
    }
    if (mConnected) {
        m_retriesLeft = kRetries;
        const auto left = static_cast<std::int32_t>(m_startTime + kShowingTicks - timerTickCount());
        if (left > 0) {
            SetTimer(*this, kTimer, left, 0);
        } else {
            RemoveChild(*this);
        }
        return;
    }
    if (m_retriesLeft-- > 0) {
        SetTimer(*this, kTimer, kRetryTicks, 0);
        return;
    }
    std::printf("\nstartupScreen::Message - could not connect to meterbase. Integrated unit so do nothing.\n");
}

PegThing* startupScreen::RemoveChild(PegThing& child) {
    if (&child == this) HandOver();
    return PegWindow::RemoveChild(child);
}

void startupScreen::HandOver() {
    StartCommandServer();
    BuildApplication(*Parent());
}

void startupScreen::StartCommandServer() {
    if (m_serverStarted) return;
    const os::TaskId task =
        os::taskCreate(kServerTask, kServerPriority, os::kTaskFloatingPoint, kServerStack, commandServerTask,
                       reinterpret_cast<os::TaskArgument>(&TheDisplayCommands()));
    if (task == os::kTaskError) {
        std::printf("PEG Command Server: Failed to create task: %sd\n", kServerTask);
        return;
    }
    std::printf("\n\tTask activate\n\t");
    m_serverStarted = true;
    os::taskActivate(task);
}
