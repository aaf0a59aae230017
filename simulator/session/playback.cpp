#include "simulator/session/playback.h"

#include <poll.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "simulator/meter/link/trace.h"

namespace session {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{20};  // until the socket is looked at again
const std::string kDone = "ok";

double Seconds(Instant time) { return static_cast<double>(time) / 1000.0; }

}  // namespace

Playback::Playback(Replay& replay, LiveBoard& board, std::string file, const std::string& control,
                   std::function<bool()> isStopped)
    : m_replay(replay), m_board(board), m_file(std::move(file)), m_isStopped(std::move(isStopped)) {
    if (control.empty()) return;
    m_control =
        std::make_unique<meter::ControlSocket>(control, [this](std::string_view line) { return Execute(line); });
    m_replay.OnCall([this](const meter::LinkCall& call) { Trace(call); });
}

void Playback::Trace(const meter::LinkCall& call) {
    ++m_calls;
    const meter::Instant now = m_replay.StartSeconds() * 1000 + Scheduler::Instance().Now();
    if (m_control->IsTraced()) m_control->Trace(meter::TraceLine(call, m_calls, now));
}

bool Playback::Await(Instant when) {
    if (m_pace == Pace::Step && m_replay.FrameCount() > m_frame) m_pace = Pace::Pause;
    Attend(milliseconds(0));
    while (!m_isStopped()) {
        const auto left = std::chrono::ceil<milliseconds>(m_zero + milliseconds(when) - Clock::now());
        if (m_pace == Pace::Step || (m_pace == Pace::Play && left.count() <= 0)) return true;
        Attend(m_pace == Pace::Play ? std::min(left, kPatience) : kPatience);
    }
    return false;
}

void Playback::Attend(milliseconds patience) {
    std::vector<pollfd> polled;
    if (m_control) m_control->Watch(polled);
    ::poll(polled.data(), polled.size(), static_cast<int>(patience.count()));
    if (m_control) m_control->Serve();
    while (m_board.TakeKey()) continue;
}

std::string Playback::Execute(std::string_view line) {
    if (line == "state") return State();
    if (line == "replay play") {
        if (m_pace != Pace::Play) m_zero = Clock::now() - milliseconds(Scheduler::Instance().Now());
        m_pace = Pace::Play;
        return kDone;
    }
    if (line == "replay pause") {
        m_pace = Pace::Pause;
        return kDone;
    }
    if (line == "replay step") {
        m_frame = m_replay.FrameCount();
        m_pace = Pace::Step;
        return kDone;
    }
    return "error a replay takes state and replay play, pause or step";
}

std::string Playback::State() const {
    const nlohmann::json replay = {
        {"file", std::filesystem::path(m_file).filename().string()},
        {"playing", m_pace == Pace::Play},
        {"frame", m_replay.FrameCount()},
        {"frames", m_replay.RecordedFrameCount()},
        {"seconds", Seconds(Scheduler::Instance().Now())},
        {"length", Seconds(m_replay.Length())},
    };
    return nlohmann::json{{"replay", replay}}.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace session
