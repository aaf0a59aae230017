// The display for hours in real time, as its own process on a played board beside a meter that fails now and then. Ends
// with status 1 when the display grows, ends, misses a refresh or loses its second.

#include <arpa/inet.h>
#include <sys/socket.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <optional>
#include <random>
#include <thread>

#include "simulator/meter/wire/link_client.h"
#include "tools/soak/call_log.h"
#include "tools/soak/health.h"
#include "tools/soak/real_bench.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr auto kFaults = std::to_array<const char*>({"slow", "half", "garbage", "reset", "silent", "absent"});
constexpr int kLastScreen = 201;
constexpr auto kOtherCommands = std::to_array<const char*>(
    {"alt-mode 0", "alt-mode 1", "language 0", "language 1", "language 2", "language 3", "language 4", "language 5"});
constexpr const char* kMeasuredScreen = "navigate 25";
constexpr const char* kRefresh = "DATETIMEINTERFACE_getLocalDateTimeStrings";
constexpr const char* kEverySecond = "ALARMSINTERFACE_getGlobalAlarmStatus";

// The course of a minute. After an absent meter the link waits sixteen seconds, and an open menu ten.
constexpr seconds kFaultBegins{22};
constexpr seconds kFaultEnds{28};
constexpr seconds kKeysEnd{34};
constexpr seconds kQuiet{48};
constexpr seconds kMinute{60};
constexpr milliseconds kStep{5};

// Under a sanitizer time and memory are the sanitizer's: it counts only that the program lives, for what a sanitizer
// reports ends it.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsMeasured = false;
#else
constexpr bool kIsMeasured = true;
#endif

// What is more is growth.
constexpr long kMoreKilobytes = 128;
constexpr double kMoreMillisecondsPerSecond = 10.0;

constexpr int kFloodEachSecond = 10'000;
constexpr int kFloodStepsPerSecond = 20;

/// What a quiet part of a minute showed.
struct Quiet {
    int refreshesMissed = 0;
    double secondTooLong = 0;  // of the one-second task, in milliseconds
};

/// The middle one of the times between calls, in milliseconds; infinite when there are none. A machine that has other
/// work may be late once.
double MedianGap(const std::vector<CallLog::Time>& times) {
    if (times.size() < 2) return std::numeric_limits<double>::infinity();
    std::vector<double> gaps;
    for (std::size_t i = 1; i < times.size(); ++i)
        gaps.push_back(std::chrono::duration<double, std::milli>(times[i] - times[i - 1]).count());
    std::ranges::nth_element(gaps, gaps.begin() + std::ssize(gaps) / 2);
    return gaps[gaps.size() / 2];
}

class Soak : private RealBench {
public:
    Soak() {
        if (!IsAlone()) throw std::runtime_error("no network namespace can be made here");
        if (!StartMeter()) throw std::runtime_error("the meter does not start");
        StartDisplay();
        if (!Eventually([this] { return display->Printed("Starting Display Server"); }))
            throw std::runtime_error("the display does not start\n" + display->Console());
        m_calls.emplace(Control());
    }

    /// Every screen is there once, so that what comes later is growth.
    void ShowAllScreens() {
        for (int screen = 1; screen <= kLastScreen; ++screen) {
            ToMeter("navigate " + std::to_string(screen));
            std::this_thread::sleep_for(milliseconds(50));
        }
    }

    /// A minute of keys, commands and one fault, whose end is quiet and measured.
    Quiet LiveAMinute(const char* fault) {
        const auto start = Clock::now();
        bool faulty = false;
        while (Clock::now() < start + kKeysEnd) {
            const auto passed = Clock::now() - start;
            const bool shallFail = passed >= kFaultBegins && passed < kFaultEnds;
            if (shallFail != faulty) ToMeter(std::string("fault ") + (shallFail ? fault : "none"));
            faulty = shallFail;
            PressAnyKey();
        }
        ToMeter("alt-mode 0");
        ToMeter(kMeasuredScreen);
        WaitUntil(start + kQuiet);
        m_calls->Clear();
        WaitUntil(start + kMinute);
        return Measure();
    }

    /// Ten thousand commands and key records a second. @return commands that were carried out
    long Flood(seconds length);

    /// Whether a key and a command do what they should.
    bool Obeys() {
        ToMeter("navigate 4");
        WaitUntil(Clock::now() + seconds(2));
        const auto before = board->State().frames;
        ToMeter(kMeasuredScreen);
        return Eventually([&] { return board->State().frames > before; });
    }
    Health GetHealth() const { return HealthOf(display->Process()); }
    bool IsAlive() { return display->IsRunning() && meter->IsRunning(); }
    std::string Consoles() const { return display->Console() + meter->Console(); }

private:
    int Any(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }
    void WaitUntil(Clock::time_point when) {
        while (Clock::now() < when) {
            m_calls->Take();
            std::this_thread::sleep_for(kStep);
        }
    }
    void PressAnyKey() {
        if (Any(1, 20) == 1) ToMeter("navigate " + std::to_string(Any(1, kLastScreen)));
        if (Any(1, 60) == 1) ToMeter(kOtherCommands[static_cast<std::size_t>(Any(1, std::ssize(kOtherCommands))) - 1]);
        const std::int32_t key = Any(1, panel::kKeyCodes);
        board->Send({key, 0});
        WaitUntil(Clock::now() + milliseconds(Any(10, 200)));
        board->Send({key, 1});
        WaitUntil(Clock::now() + milliseconds(Any(10, 200)));
    }
    Quiet Measure() {
        Quiet quiet;
        const auto& refreshes = m_calls->TimesOf(kRefresh);
        const auto expected = (kMinute - kQuiet).count() - 1;
        quiet.refreshesMissed = static_cast<int>(std::max<long>(0, expected - static_cast<long>(refreshes.size())));
        quiet.secondTooLong = MedianGap(m_calls->TimesOf(kEverySecond)) - 1000.0;
        return quiet;
    }

    std::optional<CallLog> m_calls;
    std::mt19937 m_random{1};  // NOLINT(cert-msc32-c,cert-msc51-cpp): each run presses the same keys
};

long Soak::Flood(seconds length) {
    constexpr int kPerStep = kFloodEachSecond / kFloodStepsPerSecond;
    constexpr std::uint16_t kCommandPort = 31416;
    const Descriptor socket = Opened(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "make a socket");
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(kCommandPort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        ThrowSystemError("connect to the display");
    const auto question = meter::FrameOf("VEKHWIF_getHwId", {}, 4);
    long carriedOut = 0;
    const auto start = Clock::now();
    for (int step = 0; step < length.count() * kFloodStepsPerSecond; ++step) {
        for (std::uint32_t i = 0; i < kPerStep; ++i) {
            const std::array<std::uint32_t, 1> screen = {i % kLastScreen + 1};
            const auto command = meter::FrameOf("NAVCMDINT_navigateTo", std::as_bytes(std::span(screen)), 0);
            if (::send(socket.Get(), command.data(), command.size(), MSG_NOSIGNAL) < 0) return carriedOut;
            board->Send({static_cast<std::int32_t>(i / 2 % panel::kKeyCodes) + 1, static_cast<std::int32_t>(i % 2)});
        }
        std::array<char, 4> answer{};
        if (::send(socket.Get(), question.data(), question.size(), MSG_NOSIGNAL) < 0) return carriedOut;
        if (::recv(socket.Get(), answer.data(), answer.size(), MSG_WAITALL) != std::ssize(answer)) return carriedOut;
        carriedOut += kPerStep;
        std::this_thread::sleep_until(start + (step + 1) * milliseconds(1000 / kFloodStepsPerSecond));
    }
    return carriedOut;
}

/// @return whether nothing grew and nothing was missed
bool Run(int minutes, bool flood) {
    Soak soak;
    soak.ShowAllScreens();
    bool sound = true;
    if (flood) {
        const auto start = Clock::now();
        const long commands = soak.Flood(seconds(60));
        const std::chrono::duration<double> lasted = Clock::now() - start;
        sound = soak.Obeys() && commands == 60L * kFloodEachSecond;
        std::printf("flood: %ld commands carried out in %.1f s; afterwards the display %s\n", commands, lasted.count(),
                    sound ? "obeys" : "DOES NOT OBEY");
    }
    std::printf("minute  fault        kB  descriptors  threads  refreshes missed  second too long by ms\n");
    Health first;
    for (int minute = 1; minute <= minutes && sound; ++minute) {
        const char* fault = kFaults[static_cast<std::size_t>(minute - 1) % kFaults.size()];
        const Quiet quiet = soak.LiveAMinute(fault);
        const Health now = soak.GetHealth();
        if (minute == 1) first = now;
        std::printf("%6d  %-8s  %5ld  %11ld  %7ld  %16d  %21.2f\n", minute, fault, now.kilobytes, now.descriptors,
                    now.threads, quiet.refreshesMissed, quiet.secondTooLong);
        std::fflush(stdout);
        const bool grew = now.kilobytes > first.kilobytes + kMoreKilobytes || now.descriptors > first.descriptors ||
                          now.threads > first.threads;
        const bool isSteady = !grew && quiet.refreshesMissed == 0 && quiet.secondTooLong < kMoreMillisecondsPerSecond;
        sound = isSteady || !kIsMeasured;
        if (!soak.IsAlive()) {
            std::fputs(soak.Consoles().c_str(), stderr);
            sound = false;
        }
    }
    std::printf(sound ? "sound\n" : "NOT SOUND\n");
    return sound;
}

}  // namespace

int main(int argc, char** argv) {
    int minutes = 5;
    bool flood = false;
    CLI::App app(
        "Runs the display in real time with faults, and measures whether it grows, drifts or misses anything.");
    app.add_option("--minutes", minutes, "How long")->check(CLI::PositiveNumber)->capture_default_str();
    app.add_flag("--flood", flood, "Flood it for a minute first");
    CLI11_PARSE(app, argc, argv);
    try {
        return Run(minutes, flood) ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "soak: %s\n", failure.what());
        return 2;
    }
}
