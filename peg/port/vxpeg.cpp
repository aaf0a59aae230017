#include "peg/port/vxpeg.h"

#include <atomic>
#include <csignal>
#include <cstdio>

#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/timer_list.h"
#include "peg/core/toolkit.h"
#include "peg/port/win_screen.h"
#include "peg/resources/resources.h"
#include "platform/panel.h"
#include "platform/task.h"
#include "platform/timer.h"

namespace {

constexpr int kTaskPriority = 194;
constexpr std::size_t kTaskStack = 16384;
constexpr int kSleepSeconds = 60;
constexpr long kNanosecondsPerMillisecond = 1'000'000;
constexpr int kTimerWaits = 100;
constexpr int kTimerWaitTicks = 10;

ResourceLoaderHook resourceLoaderHook = nullptr;
std::atomic<os::MessageQueueId> theQueue = nullptr;  // written before any other task asks for it
timer_t theTickTimer{};                              // written once, by the display timers task
enum class TickTimer { Awaited, There, Missing };
std::atomic<TickTimer> tickTimerState = TickTimer::Awaited;  // tells that the timer above has been written
// At most one tick waits: set by the tick's signal handler, cleared by the toolkit task that takes the tick out.
std::atomic<bool> tickPending = false;

void TickTaken() { tickPending = false; }

void TellThings(ResourceEvent event) {
    if (toolkit.queue == nullptr) return;
    PegMessage message;
    message.target = toolkit.manager;
    switch (event) {
        case ResourceEvent::Language: message.type = MSG_LANGUAGE; break;
        case ResourceEvent::Redraw: message.type = MSG_REDRAW; break;
        case ResourceEvent::Installed: message.type = MSG_RESOURCES; break;
    }
    toolkit.queue->Push(message);
}

void ArmTickTimer() {
    const long milliseconds = os::sysClkRateGet() / kTicksPerSecond;
    itimerspec period{};
    period.it_value.tv_nsec = period.it_interval.tv_nsec = milliseconds * kNanosecondsPerMillisecond;
    // The display timers task was started before this one, but nothing says that it has run.
    for (int wait = 0; wait < kTimerWaits && tickTimerState == TickTimer::Awaited; ++wait)
        os::taskDelay(kTimerWaitTicks);
    if (tickTimerState != TickTimer::There || os::timer_settime(theTickTimer, 0, &period, nullptr) != 0) {
        std::printf("PegMessageQueue:Pop:  pegTimer start failed\n");
    }
}

int PegTaskMain(os::TaskArgument) {
    tickPending = false;
    std::printf("\n\nEntering PegTaskMain() Display code...\n\n");
    PegToolkitObjects objects(std::make_unique<PegWinScreen>(kPanelWidth, kPanelHeight), theQueue);
    static_cast<void>(callResourceLoaderHook(reinterpret_cast<std::intptr_t>(toolkit.manager)));
    ArmTickTimer();
    std::printf("\n\nStarting Display code...\n\n");
    static_cast<void>(toolkit.manager->Execute());
    return 0;
}

void IgnoreBrokenPipe() {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    ignore.sa_flags = SA_RESTART;
    if (os::sigaction(SIGPIPE, &ignore, nullptr) != 0) {
        std::fprintf(stderr, "\nvuneip: failed to set broken pipe signal\n");
    }
}

}  // namespace

void setResourceLoaderHook(ResourceLoaderHook hook) { resourceLoaderHook = hook; }

std::intptr_t callResourceLoaderHook(std::intptr_t word) {
    return resourceLoaderHook != nullptr ? resourceLoaderHook(word) : word;
}

int PegInitialize() {
    std::printf("\n\nEntering PegInitialize Display code...\n\n");
    theQueue = os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo);
    if (theQueue == nullptr) std::printf("PegInitialize: PegQueue msgQCreate failed\n");
    IgnoreBrokenPipe();
    const os::TaskId task =
        os::taskCreate("tPegThread", kTaskPriority, os::kTaskFloatingPoint, kTaskStack, PegTaskMain, 0);
    if (task == os::kTaskError || os::taskActivate(task) != 0) {
        std::printf("PegInitialize: Spawn of PegTaskMain failed\n");
        return -1;
    }
    for (;;) os::taskDelay(kSleepSeconds * os::sysClkRateGet());
}

os::MessageQueueId toolkitQueueId() { return theQueue; }

void setTickTimer(const timer_t* timer) {
    if (timer != nullptr) theTickTimer = *timer;
    tickTimerState = timer != nullptr ? TickTimer::There : TickTimer::Missing;
}

void postToolkitTick() {
    // The flag goes up first: the toolkit task may take the tick out before the send returns.
    if (tickPending.exchange(true)) return;
    PegMessage tick;
    tick.type = MSG_TIMER;
    if (PegMessageQueue::EnqueueTaskMessage(tick, theQueue) == 0) tickPending = false;
}

PegToolkitObjects::PegToolkitObjects(std::unique_ptr<PegScreen> screen, os::MessageQueueId queue) {
    theQueue = queue;
    toolkit.screen = screen.release();
    toolkit.queue = new PegMessageQueue(queue, TickTaken);
    toolkit.manager =
        new PegPresentationManager(RectOf(0, 0, toolkit.screen->Width() - 1, toolkit.screen->Height() - 1));
    toolkit.timers = new PegTimerList;
    PegResources::SetListener(TellThings);
}

PegToolkitObjects::~PegToolkitObjects() {
    PegResources::SetListener(nullptr);
    delete toolkit.manager;
    delete toolkit.queue;
    toolkit.queue = nullptr;
    delete toolkit.screen;
    toolkit.screen = nullptr;
    delete toolkit.timers;
    toolkit.timers = nullptr;
}
