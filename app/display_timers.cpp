#include "app/display_timers.h"

#include <csignal>
#include <cstdio>

#include "peg/port/vxpeg.h"
#include "platform/task.h"
#include "platform/timer.h"

namespace {

constexpr int kPriority = 50;
constexpr std::size_t kStack = 4096;
constexpr int kSleepSeconds = 60;
constexpr int kTickValue = 0;

void OnSignal(int signal, siginfo_t* information, void*) {
    if (information->si_value.sival_int == kTickValue) {
        postToolkitTick();
        return;
    }
    std::printf("unknown signal: sig=%d, sigCode=%d, sigNo=%d, sigValue=%d\n", signal, information->si_code,
                information->si_signo, information->si_value.sival_int);
}

int HandleTickSignal() {
    struct sigaction action {};
    action.sa_sigaction = OnSignal;
    action.sa_flags = SA_SIGINFO;
    return os::sigaction(os::kTickSignal, &action, nullptr);
}

void CreateTickTimer() {
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = os::kTickSignal;
    event.sigev_value.sival_int = kTickValue;
    timer_t timer{};
    // A signal that nobody handles would end the process: better no ticks.
    if (HandleTickSignal() != 0 || os::timer_create(CLOCK_MONOTONIC, &event, &timer) != 0) {
        std::printf("Display timers: error creating timer! id=%d\n", 0);
        setTickTimer(nullptr);
        return;
    }
    setTickTimer(&timer);
}

int DisplayTimersTask(os::TaskArgument) {
    CreateTickTimer();
    for (;;) os::taskDelay(kSleepSeconds * os::sysClkRateGet());
}

}  // namespace

int DISPTIMERS_init() {
    const auto creator = static_cast<os::TaskArgument>(os::taskIdSelf());
    const os::TaskId task =
        os::taskSpawn("tDispTimers", kPriority, os::kTaskFloatingPoint, kStack, DisplayTimersTask, creator);
    if (task != os::kTaskError) return 0;
    std::printf("DISPTIMERS_init: Spawn of display timers task failed!\n");
    return -1;
}
