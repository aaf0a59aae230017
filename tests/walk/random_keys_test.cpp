#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "app/application.h"
#include "app/button_task.h"
#include "rda/meter_operations.h"
#include "tests/bench/panel_bench.h"
#include "tests/walk/stroke_generator.h"
#include "tests/walk/write_watch.h"

namespace {

constexpr long kKeys = 1'000'000;  // of all walks together, unless WALK_KEYS says otherwise
constexpr long kWalks = 4;
constexpr unsigned kHangSeconds = 20;
constexpr long kStrokesBetweenLooks = 1024;
constexpr int kMillisecondsPerSecond = 1000;

/// The application as it came up, for one walk. The same seed walks the same way again.
///
/// Strokes reach the display as key records and commands do, through its queue, with the toolkit between busy and idle.
/// All is drawn, but the pixels are left out. The meter lives a second in a second of ticks.
class WalkBench : public PanelBench {
protected:
    WalkBench() {
        Screen().blind = true;
        BuildApplication(Manager());
        Pump();
        for (std::int32_t id = SCREEN_ID_FACTORY_TEST; id <= kLastCommandedScreen; ++id) {
            const bool isMenu = id >= MenuOfMode(DISPLAY_MODE_NORMAL) && id <= MenuOfMode(DISPLAY_MODE_TEST);
            // A number that no screen has counts as a menu's.
            if (isMenu || Navigation().getScreenKind(id) != SCREEN_KIND_MENU) unseen.insert(id);
        }
        meter().TakeEveryCall([this](auto operation, auto payload, auto response) {
            const bool answered = Answer(operation, payload, response);
            watch.OnCall(operation, answered ? response : response.first(0), m_done);
            return answered;
        });
        Pump();
    }

    /// Invents strokes until so many keys were pressed, or something goes wrong. A display that hangs is ended by a
    /// signal. What the display prints is left out: megabytes.
    void Walk(unsigned seed, long most, bool withFaults) {
        std::fflush(stdout);
        const int output = dup(STDOUT_FILENO);
        const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nothing, STDOUT_FILENO);
        StrokeGenerator generator(seed, withFaults);
        while (keys < most && fault.empty()) {
            if (strokes++ % kStrokesBetweenLooks == 0) alarm(kHangSeconds);
            const Stroke stroke = generator.Next(Shown(), unseen);
            Do(stroke);
            AfterStroke(stroke);
            if (fault.empty()) fault = watch.fault;
        }
        alarm(0);
        std::fflush(stdout);
        dup2(output, STDOUT_FILENO);
        close(output);
        close(nothing);
    }

    virtual void AfterStroke(const Stroke&) {}

    WriteWatch watch;
    std::string fault;  // empty: none
    long keys = 0;
    long strokes = 0;
    std::set<std::int32_t> unseen;  // screens

private:
    void Do(const Stroke& stroke) {
        switch (stroke.kind) {
            case Stroke::Kind::Press:
                for (int i = 0; i < stroke.times; ++i) {
                    Move(stroke.key, true);
                    Pass(stroke.held);
                    Move(stroke.key, false);
                }
                break;
            case Stroke::Kind::Chord:
                Move(stroke.key, true);
                Move(stroke.other, true);
                Pass(stroke.held);
                Move(stroke.key, false);
                Move(stroke.other, false);
                break;
            case Stroke::Kind::Command: stroke.command(stroke.argument); break;
            case Stroke::Kind::Link:
                m_link = stroke.link;
                meter().Model().Play(*meter::FindScenario(m_link == LinkState::Refusing ? "refused-writes" : "normal"));
                break;
        }
        Deliver();
        Pass(stroke.then);
        meter().ForgetCalls();
    }

    /// A record of the keys device; the toolkit does not look yet.
    void Move(std::uint8_t key, bool down) {
        keys += down ? 1 : 0;
        handleButtonEvent({.kind = kPanelKey, .pressed = down ? 1U : 0U, .value = key, .extra = 0});
    }

    void Deliver() {
        PegMessage message;
        while (toolkit.queue->Poll(message)) {
            if (Manager().RouteToTaskQueue(message) != 0) continue;
            watch.Before(message);
            Manager().DispatchMessage(message);
            watch.After(message);
            Look();
        }
    }

    void Pass(int ticks) {
        for (int i = 0; i < ticks; ++i) {
            postToolkitTick();
            Deliver();
            if (++m_ticks % kTicksPerSecond == 0) meter().Model().Advance(kMillisecondsPerSecond);
        }
    }

    /// What holds at any time.
    void Look() {
        const PegThing* shown = Manager().FirstChild();
        unseen.erase(Shown() == kCurrentMenu ? MenuOfMode(Navigation().getDisplayMode()) : Shown());
        if (!fault.empty()) return;
        if (shown == nullptr || shown->Next() != nullptr) {
            fault = "not one screen is on the panel";
        } else if (shown != Navigation().getCurrentScreen()) {
            fault = "another screen is on the panel than the keys go to";
        }
    }

    bool Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response) {
        m_done = false;
        if (m_link == LinkState::Silent) return false;
        if (m_link == LinkState::Garbage) {
            for (std::byte& one : response) {
                m_noise = m_noise * 1'664'525U + 1'013'904'223U;
                one = static_cast<std::byte>(m_noise >> 24);
            }
            return true;
        }
        const bool answered = meter().Model().Answer(operation, payload, response);
        m_done = answered && (response.empty() || WriteWatch::IsAccepted(response));
        if (response.empty() || (m_link != LinkState::ReplyLost && m_link != LinkState::ReplyCut)) return answered;
        std::ranges::fill(response.subspan(m_link == LinkState::ReplyLost ? 0 : response.size() / 2), std::byte{0});
        return false;
    }

    LinkState m_link = LinkState::Whole;
    bool m_done = false;  // whether the meter did what it was asked last
    std::uint32_t m_noise = 1;
    int m_ticks = 0;
};

/// Somebody who presses keys at random for a long time, and knows the password.
class RandomKeys : public WalkBench {
protected:
    void WalkFar(unsigned seed, bool withFaults) {
        const char* const asked = std::getenv("WALK_KEYS");
        Walk(seed, (asked != nullptr ? std::strtol(asked, nullptr, 10) : kKeys) / kWalks, withFaults);
        EXPECT_EQ(fault, "") << "after " << keys << " keys";
        EXPECT_EQ(unseen.size(), 0U);
        EXPECT_GT(watch.logins, keys / 5000);
        EXPECT_GT(watch.writes, keys / 5000);
        EXPECT_GT(watch.refusals, withFaults ? 10 : 0);
        std::printf("seed %u: %ld keys, %ld strokes, %d logins, %d writes, %d of them refused\n", seed, keys, strokes,
                    watch.logins, watch.writes, watch.refusals);
    }
};

TEST_F(RandomKeys, WriteNothingUnconfirmed1) { WalkFar(1, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmed2) { WalkFar(2, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter1) { WalkFar(3, true); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter2) { WalkFar(4, true); }

/// A display with a fault in it: soft keys 2 and 3 together, after soft key 3 on screen 104, write at once.
class PlantedFault : public WalkBench {
    void AfterStroke(const Stroke& stroke) override {
        const bool isThere = Shown() == 104 && stroke.kind == Stroke::Kind::Press;
        if (isThere && m_armed && stroke.key == kSoftKeys23) {
            RegisterWriteResult result{};
            EXPECT_LE(PDMINTERFACE_setRegisterValue(2461, "1", result), 0);
        }
        m_armed = isThere && stroke.key == kSoftKey3;
    }

    bool m_armed = false;
};

TEST_F(PlantedFault, IsFound) {
    Walk(1, 200'000, false);
    EXPECT_EQ(fault, "an unconfirmed write on screen 104");
    EXPECT_GT(strokes, 100);
}

}  // namespace
