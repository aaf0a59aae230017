#include "tests/walk/walk_bench.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "app/application.h"
#include "app/button_task.h"
#include "tests/walk/shrinker.h"
#include "tests/walk/stroke_generator.h"

namespace {

constexpr unsigned kHangSeconds = 20;
constexpr std::size_t kStrokesBetweenLooks = 1024;
constexpr std::size_t kShortcut = 64;  // last strokes, of which one may be where the fault begins
constexpr int kMillisecondsPerSecond = 1000;

template <std::size_t Size>
void CopyText(const std::string& text, std::array<char, Size>& out) {
    std::snprintf(out.data(), out.size(), "%s", text.c_str());
}

}  // namespace

struct WalkBench::Step {
    Stroke stroke;
    std::int16_t screen;
};

/// What the walking process leaves for the one that waits for it, and that outlives its end.
struct WalkBench::Shared {
    std::size_t steps;
    WalkCounts counts;
    bool done;
    std::array<char, 200> fault;
    Step list[1];  // in truth as many as there is room for
};

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
        m_watch.OnCall(operation, answered ? response : response.first(0), m_done);
        return answered;
    });
    Pump();
}

WalkReport WalkBench::Walk(unsigned seed, long keys, bool withFaults) {
    const auto room = static_cast<std::size_t>(keys) * 2;
    Shared& shared = RunInChild(room, [&](Shared& told) {
        StrokeGenerator generator(seed, withFaults);
        while (told.counts.keys < keys && told.steps < room && m_fault.empty()) {
            const std::int32_t screen = Navigation().getCurrentScreenId();
            const Stroke stroke = generator.Next(screen, m_unseen);
            told.list[told.steps++] = {stroke, static_cast<std::int16_t>(screen)};  // first: it may be the last
            told.counts.keys += stroke.Keys();
            Do(stroke);
            if (told.steps % kStrokesBetweenLooks == 0) alarm(kHangSeconds);
        }
    });
    WalkReport report{.strokes = {}, .screens = {}, .fault = shared.fault.data(), .counts = shared.counts};
    for (const Step& step : std::span(shared.list, shared.steps)) {
        report.strokes.push_back(step.stroke);
        report.screens.push_back(step.screen);
    }
    munmap(&shared, sizeof(Shared) + room * sizeof(Step));
    return report;
}

std::string WalkBench::FaultOf(std::span<const Stroke> strokes) {
    Shared& shared = RunInChild(0, [&](Shared&) {
        for (std::size_t i = 0; i < strokes.size() && m_fault.empty(); ++i) {
            if (i % kStrokesBetweenLooks == 0) alarm(kHangSeconds);
            Do(strokes[i]);
        }
    });
    std::string fault = shared.fault.data();
    munmap(&shared, sizeof(Shared));
    return fault;
}

std::vector<Stroke> WalkBench::ShortestOf(const WalkReport& report) {
    const ShowsFault showsFault = [&](std::span<const Stroke> strokes) { return FaultOf(strokes) == report.fault; };
    std::vector<Stroke> strokes = report.strokes;
    for (std::size_t count = 1; count < std::min(strokes.size(), kShortcut); ++count) {
        const std::size_t start = strokes.size() - count;
        std::vector<Stroke> fromThere = {{.kind = Stroke::Kind::Go, .target = report.screens[start]}};
        fromThere.insert(fromThere.end(), strokes.begin() + static_cast<std::ptrdiff_t>(start), strokes.end());
        if (!showsFault(fromThere)) continue;
        strokes = std::move(fromThere);
        break;
    }
    return Shrink(std::move(strokes), showsFault);
}

std::string WalkBench::Explain(const WalkReport& report, unsigned seed) {
    if (report.fault.empty()) return {};
    return report.fault + "\nseed " + std::to_string(seed) + ", after " + std::to_string(report.counts.keys) +
           " keys; this is enough to show it:\n" + TextOf(ShortestOf(report));
}

/// @return memory that the child filled; the caller's
WalkBench::Shared& WalkBench::RunInChild(std::size_t steps, const std::function<void(Shared&)>& work) {
    void* memory = mmap(nullptr, sizeof(Shared) + steps * sizeof(Step), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) std::abort();
    auto& shared = *static_cast<Shared*>(memory);
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        // What the display prints would be megabytes.
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
        alarm(kHangSeconds);
        work(shared);
        Tell(shared);
        _exit(0);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0) continue;
    if (WIFSIGNALED(status)) {
        const int signal = WTERMSIG(status);
        CopyText(signal == SIGALRM ? "it hangs" : std::string("it ends with signal ") + std::to_string(signal),
                 shared.fault);
    } else if (!shared.done) {
        CopyText("it ends by itself", shared.fault);
    }
    return shared;
}

void WalkBench::Tell(Shared& shared) const {
    shared.counts.writes = m_watch.Writes();
    shared.counts.refusals = m_watch.Refusals();
    shared.counts.logins = m_watch.Logins();
    shared.counts.screensMissed = m_unseen.size();
    CopyText(m_fault, shared.fault);
    shared.done = true;
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
    if (m_fault.empty()) m_fault = m_watch.Fault();
}

/// A record of the keys device; the toolkit does not look yet.
void WalkBench::Move(std::uint8_t key, bool down) {
    handleButtonEvent({.kind = kPanelKey, .pressed = down ? 1U : 0U, .value = key, .extra = 0});
}

void WalkBench::Deliver() {
    PegMessage message;
    while (toolkit.queue->Poll(message)) {
        if (Manager().RouteToTaskQueue(message) != 0) continue;
        m_watch.Before(message);
        Manager().DispatchMessage(message);
        m_watch.After(message);
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
