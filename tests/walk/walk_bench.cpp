#include "tests/walk/walk_bench.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "app/application.h"
#include "app/button_task.h"
#include "tests/walk/stroke_generator.h"

namespace {

constexpr unsigned kHangSeconds = 20;
constexpr long kStrokesBetweenLooks = 1024;
constexpr int kMillisecondsPerSecond = 1000;

/// Leaves out what the display prints: megabytes.
class Hush {
public:
    Hush() {
        std::fflush(stdout);
        const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nothing, STDOUT_FILENO);
        close(nothing);
    }
    ~Hush() {
        std::fflush(stdout);
        dup2(m_output, STDOUT_FILENO);
        close(m_output);
    }

private:
    const int m_output = dup(STDOUT_FILENO);
};

}  // namespace

WalkBench::WalkBench() {
    Screen().blind = true;
    BuildApplication(Manager());
    Pump();
    for (std::int32_t id = SCREEN_ID_FACTORY_TEST; id <= kLastCommandedScreen; ++id) {
        const bool isMenu = id >= MenuOfMode(DISPLAY_MODE_NORMAL) && id <= MenuOfMode(DISPLAY_MODE_TEST);
        // A number that no screen has counts as a menu's.
        if (isMenu || Navigation().getScreenKind(id) != SCREEN_KIND_MENU) m_unseen.insert(id);
    }
    meter().TakeEveryCall([this](auto operation, auto payload, auto response) {
        const bool answered = Answer(operation, payload, response);
        watch.OnCall(operation, answered ? response : response.first(0), m_done);
        return answered;
    });
    Pump();
}

WalkReport WalkBench::Walk(unsigned seed, long keys, bool withFaults) {
    const Hush hush;
    StrokeGenerator generator(seed, withFaults);
    WalkReport report;
    while (report.keys < keys && m_fault.empty()) {
        if (report.strokes++ % kStrokesBetweenLooks == 0) alarm(kHangSeconds);
        const Stroke stroke = generator.Next(Navigation().getCurrentScreenId(), m_unseen);
        report.keys += stroke.Keys();
        Do(stroke);
    }
    alarm(0);
    report.fault = m_fault;
    report.screensMissed = m_unseen.size();
    return report;
}

void WalkBench::Do(const Stroke& stroke) {
    switch (stroke.kind) {
        case Stroke::Kind::Press:
            Move(stroke.key, true);
            Pass(stroke.held);
            Move(stroke.key, false);
            break;
        case Stroke::Kind::Chord:
            Move(stroke.key, true);
            Move(stroke.other, true);
            Pass(stroke.held);
            Move(stroke.key, false);
            Move(stroke.other, false);
            break;
        case Stroke::Kind::Bounce:
            for (int i = 0; i < stroke.times; ++i) {
                Move(stroke.key, true);
                Move(stroke.key, false);
            }
            break;
        case Stroke::Kind::Go:
            if (stroke.target < 0)
                navigationHandlerClass::postDispTest();
            else
                navigationHandlerClass::postNavigateTo(static_cast<std::uint32_t>(stroke.target));
            break;
        case Stroke::Kind::Mode:
            if (stroke.target < 2)
                navigationHandlerClass::postAltModeState(static_cast<std::uint32_t>(stroke.target));
            else
                navigationHandlerClass::postTestModeState(static_cast<std::uint32_t>(stroke.target - 2));
            break;
        case Stroke::Kind::Link:
            m_link = static_cast<LinkState>(stroke.target);
            meter().Model().Play(*meter::FindScenario(m_link == LinkState::Refusing ? "refused-writes" : "normal"));
            break;
    }
    Deliver();
    Pass(stroke.then);
    meter().ForgetCalls();
    if (afterStroke) afterStroke(stroke);
    if (m_fault.empty()) m_fault = watch.Fault();
}

/// A record of the keys device; the toolkit does not look yet.
void WalkBench::Move(std::uint8_t key, bool down) {
    handleButtonEvent({.kind = kPanelKey, .pressed = down ? 1U : 0U, .value = key, .extra = 0});
}

void WalkBench::Deliver() {
    PegMessage message;
    while (toolkit.queue->Poll(message)) {
        if (Manager().RouteToTaskQueue(message) != 0) continue;
        watch.Before(message);
        Manager().DispatchMessage(message);
        watch.After(message);
        Look();
    }
}

void WalkBench::Pass(int ticks) {
    for (int i = 0; i < ticks; ++i) {
        postToolkitTick();
        Deliver();
        if (++m_ticks % kTicksPerSecond == 0) meter().Model().Advance(kMillisecondsPerSecond);
    }
}

/// What holds at any time.
void WalkBench::Look() {
    const PegThing* shown = Manager().FirstChild();
    m_unseen.erase(Navigation().getCurrentScreenId() == kCurrentMenu ? MenuOfMode(Navigation().getDisplayMode())
                                                                     : Navigation().getCurrentScreenId());
    if (!m_fault.empty()) return;
    if (shown == nullptr || shown->Next() != nullptr) {
        m_fault = "not one screen is on the panel";
    } else if (shown != Navigation().getCurrentScreen()) {
        m_fault = "another screen is on the panel than the keys go to";
    }
}

bool WalkBench::Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response) {
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
