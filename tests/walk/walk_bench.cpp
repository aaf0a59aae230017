#include "tests/walk/walk_bench.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "app/application.h"
#include "app/button_task.h"
#include "tests/bench/trial.h"
#include "tests/walk/shrinker.h"
#include "tests/walk/stroke_generator.h"

namespace {

constexpr unsigned kHangSeconds = 20;
constexpr std::size_t kStrokesBetweenLooks = 1024;
constexpr std::size_t kShortcut = 64;  // last strokes, of which one may be where the fault begins
constexpr int kMillisecondsPerSecond = 1000;

/// All zeros, and shared with the processes that begin here.
WalkRecord& MapRecord() {
    void* memory =
        mmap(nullptr, sizeof(WalkRecord), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) std::abort();
    return *static_cast<WalkRecord*>(memory);
}

}  // namespace

WalkBench::WalkBench() : record(MapRecord()) {
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

/// Does something in a process of its own. @return what is wrong then, or nothing
std::string WalkBench::FaultOf(const std::function<void()>& strokes) {
    const auto trial = [&] {
        if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();  // the display prints megabytes
        strokes();
        return m_fault;
    };
    const std::string fault = Try(trial, kHangSeconds);
    return fault.substr(0, fault.find("; its last words"));
}

std::string WalkBench::Walk(unsigned seed, long keys, bool withFaults) {
    return FaultOf([&] {
        StrokeGenerator generator(seed, withFaults);
        for (std::size_t i = 0; m_keys < keys && i < record.list.size() && m_fault.empty(); ++i) {
            if (i % kStrokesBetweenLooks == 0) alarm(kHangSeconds);
            record.screens[i] = static_cast<std::int16_t>(Shown());
            record.list[i] = generator.Next(Shown(), m_unseen);
            record.strokes = i + 1;  // first: it may be the last
            Do(record.list[i]);
            record.keys = m_keys;
        }
        record.writes = m_watch.writes;
        record.refusals = m_watch.refusals;
        record.logins = m_watch.logins;
        record.screensMissed = m_unseen.size();
    });
}

std::vector<Stroke> WalkBench::ShortestThatShows(const std::string& fault) {
    const ShowsFault showsFault = [&](std::span<const Stroke> strokes) {
        return FaultOf([&] {
                   for (std::size_t i = 0; i < strokes.size() && m_fault.empty(); ++i) {
                       if (i % kStrokesBetweenLooks == 0) alarm(kHangSeconds);
                       Do(strokes[i]);
                   }
               }) == fault;
    };
    std::vector<Stroke> strokes(record.list.begin(), record.list.begin() + static_cast<std::ptrdiff_t>(record.strokes));
    for (std::size_t count = 1; count < std::min(strokes.size(), kShortcut); ++count) {
        const std::size_t start = strokes.size() - count;
        std::vector<Stroke> fromThere = {{.kind = Stroke::Kind::Go, .target = record.screens[start]}};
        fromThere.insert(fromThere.end(), strokes.begin() + static_cast<std::ptrdiff_t>(start), strokes.end());
        if (!showsFault(fromThere)) continue;
        strokes = std::move(fromThere);
        break;
    }
    return Shrink(std::move(strokes), showsFault);
}

void WalkBench::Do(const Stroke& stroke) {
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
    AfterStroke(stroke);
    if (m_fault.empty()) m_fault = m_watch.fault;
}

/// A record of the keys device; the toolkit does not look yet.
void WalkBench::Move(std::uint8_t key, bool down) {
    m_keys += down ? 1 : 0;
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
    m_unseen.erase(Shown() == kCurrentMenu ? MenuOfMode(Navigation().getDisplayMode()) : Shown());
    if (!m_fault.empty()) return;
    if (shown == nullptr || shown->Next() != nullptr) {
        m_fault = "not one screen is on the panel";
    } else if (shown != Navigation().getCurrentScreen()) {
        m_fault = "another screen is on the panel than the keys go to";
    }
}

bool WalkBench::Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response) {
    m_done.reset();
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
