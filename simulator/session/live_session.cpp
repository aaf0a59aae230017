#include "simulator/session/live_session.h"

#include <poll.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "simulator/meter/link/control_socket.h"
#include "simulator/meter/link/trace.h"

namespace session {
namespace {

using std::chrono::steady_clock;

constexpr int kPace = 5;  // milliseconds between two looks at the board

}  // namespace

bool LiveSession::Run(const std::string& control, const std::function<bool()>& isStopped) {
    std::unique_ptr<meter::ControlSocket> socket;
    std::uint64_t calls = 0;
    const meter::CallObserver report = [&](const meter::LinkCall& call) {
        ++calls;
        if (socket && socket->IsTraced()) socket->Trace(meter::TraceLine(call, calls, m_session.Model().Now()));
    };
    m_session.Server().OnCall(report);
    m_session.Link().OnCall(report);
    if (!control.empty())
        socket =
            std::make_unique<meter::ControlSocket>(control, [this](std::string_view line) { return Execute(line); });
    const auto start = steady_clock::now() - std::chrono::milliseconds(Scheduler::Instance().Now());
    std::vector<pollfd> polled;
    while (!isStopped() && !m_anotherWanted) {
        polled.clear();
        if (socket) socket->Watch(polled);
        ::poll(polled.data(), polled.size(), kPace);
        m_session.RunUntil(std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - start).count());
        while (const auto key = m_board.TakeKey()) m_session.Press(key->code, key->state);
        if (socket) socket->Serve();
    }
    m_session.Server().OnCall({});
    m_session.Link().OnCall({});
    return m_anotherWanted;
}

std::string LiveSession::Execute(std::string_view line) {
    if (line == "state") return State();
    if (line == "record stop") {
        if (m_recorder.IsFinished()) return "error nothing is recorded";
        m_session.TellNobody();
        try {
            m_recorder.Finish();
        } catch (const std::runtime_error& failure) {
            return std::string("error ") + failure.what();
        }
        return "ok " + std::to_string(m_recorder.FrameCount()) + " frames in " + m_file;
    }
    if (line == "record start") {
        if (!m_recorder.IsFinished()) return "error it is recorded already";
        m_anotherWanted = true;
        return "ok";
    }
    return m_session.Execute(line);
}

std::string LiveSession::State() {
    auto state = nlohmann::json::parse(m_session.Execute("state"));
    state["recording"] = {{"file", std::filesystem::path(m_file).filename().string()},
                          {"running", !m_recorder.IsFinished()},
                          {"frames", m_recorder.FrameCount()}};
    return state.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace session
