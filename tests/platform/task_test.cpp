#include "platform/task.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <set>
#include <thread>

#include "platform/message_queue.h"
#include "platform/semaphore.h"
#include "platform/timer.h"

namespace {

/// What a task tells of itself.
struct Report {
    os::TaskId id;
    std::array<char, 16> name;
    std::size_t stack;
    int detached;
};

const os::MessageQueueId reports = os::msgQCreate(4, sizeof(Report), os::kQueueFifo);

int TellAboutSelf(os::TaskArgument argument) {
    Report report{os::taskIdSelf(), {}, 0, 0};
    pthread_getname_np(pthread_self(), report.name.data(), report.name.size());
    pthread_attr_t attributes;
    pthread_getattr_np(pthread_self(), &attributes);
    pthread_attr_getstacksize(&attributes, &report.stack);
    pthread_attr_getdetachstate(&attributes, &report.detached);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(argument, 42);
    return os::msgQSend(reports, &report, sizeof report, os::kWaitForever, 0);
}

Report NextReport() {
    Report report{};
    EXPECT_EQ(os::msgQReceive(reports, &report, sizeof report, os::kWaitForever), int{sizeof report});
    return report;
}

TEST(Tasks, WaitForTheirActivationAndThenRunUnderTheirNameOnAHostsStack) {
    const os::TaskId task = os::taskCreate("tDispRdaServer", 194, os::kTaskFloatingPoint, 4096, TellAboutSelf, 42);
    ASSERT_NE(task, os::kTaskError);
    Report report{};
    EXPECT_EQ(os::msgQReceive(reports, &report, sizeof report, 50), -1) << "it ran before it was activated";
    EXPECT_EQ(os::taskActivate(task), 0);
    report = NextReport();
    EXPECT_EQ(report.id, task);
    EXPECT_STREQ(report.name.data(), "tDispRdaServer");
    EXPECT_GE(report.stack, 256U * 1024U);
    EXPECT_EQ(report.detached, PTHREAD_CREATE_DETACHED) << "nobody waits for its end";
}

TEST(Tasks, HaveIdsOfTheirOwn) {
    std::set<os::TaskId> ids{os::taskIdSelf()};
    EXPECT_EQ(os::taskIdSelf(), *ids.begin());
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(ids.insert(os::taskSpawn("tOne", 100, 0, 4096, TellAboutSelf, 42)).second);
        NextReport();
    }
    std::thread([&ids] { EXPECT_TRUE(ids.insert(os::taskIdSelf()).second); }).join();
    EXPECT_FALSE(ids.contains(0));
    EXPECT_FALSE(ids.contains(os::kTaskError));
    EXPECT_EQ(os::taskActivate(0), -1);
    EXPECT_EQ(os::taskActivate(os::kTaskError), -1);
    EXPECT_EQ(os::taskActivate(os::taskIdSelf()), -1) << "the initial task was never created here";
}

TEST(Tasks, RunWithoutTheirPriorityWhereTheProcessMayHaveNone) {
    constexpr uid_t kNobody = 65534;
    const uid_t user = geteuid();
    ASSERT_TRUE(user != 0 || seteuid(kNobody) == 0);
    ASSERT_NE(os::taskSpawn("tOne", 100, 0, 4096, TellAboutSelf, 42), os::kTaskError);
    NextReport();
    ASSERT_EQ(seteuid(user), 0);
}

TEST(Tasks, AreNotMadeWithoutAnEntryOrWithAStackBeyondTheMachine) {
    constexpr std::size_t kBeyond = ~std::size_t{0} / 16 * 15;
    EXPECT_EQ(os::taskCreate("tNone", 100, 0, 4096, nullptr, 0), os::kTaskError);
    EXPECT_EQ(os::taskCreate("tHuge", 100, 0, kBeyond, TellAboutSelf, 42), os::kTaskError);
    EXPECT_EQ(os::taskSpawn("tHuge", 100, 0, kBeyond, TellAboutSelf, 42), os::kTaskError);
    ASSERT_NE(os::taskSpawn(nullptr, 100, 0, 4096, TellAboutSelf, 42), os::kTaskError);
    EXPECT_STREQ(NextReport().name.data(), "task");
    EXPECT_EQ(os::taskDelay(0), 0);
}

thread_local int ticksHere = 0;  // that reached this thread

void OnTick(int /*signal*/, siginfo_t* information, void* /*context*/) {
    EXPECT_EQ(information->si_value.sival_int, 0);
    ++ticksHere;
}

/// Starts a tick every 5 ms for itself and sleeps through it.
int SleepThroughTicks(os::TaskArgument /*argument*/) {
    struct sigaction action {};
    action.sa_sigaction = OnTick;
    action.sa_flags = SA_SIGINFO;
    EXPECT_EQ(os::sigaction(os::kTickSignal, &action, nullptr), 0);
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = os::kTickSignal;
    timer_t timer{};
    EXPECT_EQ(os::timer_create(CLOCK_MONOTONIC, &event, &timer), 0);
    const itimerspec period{{0, 5'000'000}, {0, 5'000'000}};
    EXPECT_EQ(os::timer_settime(timer, 0, &period, nullptr), 0);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(os::taskDelay(os::sysClkRateGet() / 5), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200))
        << "signals cut the delay short";
    EXPECT_GE(ticksHere, 10);
    EXPECT_EQ(timer_delete(timer), 0);
    const Report done{};
    return os::msgQSend(reports, &done, sizeof done, os::kWaitForever, 0);
}

TEST(Tasks, AreReachedByTheTickSignalOnlyWhereTheTimerWasMade) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    std::thread reader([&pipe] {
        char byte = 0;
        errno = 0;
        EXPECT_EQ(::read(pipe[0], &byte, 1), 1) << "the tick interrupted a read: " << errno;
    });
    ASSERT_NE(os::taskSpawn("tDispTimers", 50, 0, 4096, SleepThroughTicks, 0), os::kTaskError);
    NextReport();
    ASSERT_EQ(::write(pipe[1], "x", 1), 1);
    reader.join();
    ::close(pipe[0]);
    ::close(pipe[1]);
}

TEST(Mutex, LetsItsOwnerInAgainAndOthersOnlyWhenItIsGivenBackAsOften) {
    static const os::SemaphoreId plain = os::semMCreate(os::kSemPriorityQueue);
    EXPECT_EQ(os::semTake(plain), 0);
    EXPECT_EQ(os::semGive(plain), 0);
    EXPECT_EQ(os::semGive(plain), -1) << "nobody has it";
    static const os::SemaphoreId mutex = os::semMCreate(os::kSemPriorityQueue | os::kSemInversionSafe);
    ASSERT_NE(mutex, nullptr);
    ASSERT_EQ(os::semTake(mutex), 0);
    ASSERT_EQ(os::semTake(mutex), 0);
    std::atomic<bool> isIn{false};
    std::thread other([&isIn] {
        EXPECT_EQ(os::semGive(mutex), -1) << "only the owner gives";
        EXPECT_EQ(os::semTake(mutex), 0);
        isIn = true;
        EXPECT_EQ(os::semGive(mutex), 0);
    });
    EXPECT_EQ(os::semGive(mutex), 0);
    os::taskDelay(20);
    EXPECT_FALSE(isIn);
    EXPECT_EQ(os::semGive(mutex), 0);
    other.join();
    EXPECT_TRUE(isIn);
    EXPECT_EQ(os::semTake(nullptr), -1);
    EXPECT_EQ(os::semGive(nullptr), -1);
}

}  // namespace
