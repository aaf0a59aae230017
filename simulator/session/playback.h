#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "simulator/meter/link/control_socket.h"
#include "simulator/session/live_board.h"
#include "simulator/session/replay.h"

namespace session {

/// Sets the pace of a replay that people look at: beside the clock on the wall, paused, or one frame on.
///
/// Its socket takes the lines "state", "trace on|off" and "replay play|pause|step". Keys of the board lead nowhere
/// meanwhile.
class Playback {
public:
    /// @param control  path of the socket; empty: there is none, and the replay plays
    Playback(Replay& replay, LiveBoard& board, std::string file, const std::string& control,
             std::function<bool()> isStopped);

    /// Waits until the replay may go on to `when`. @return false when it was stopped instead
    bool Await(Instant when);

    std::string Execute(std::string_view line);

private:
    using Clock = std::chrono::steady_clock;
    enum class Pace : std::uint8_t { Play, Pause, Step };

    void Attend(std::chrono::milliseconds patience);
    std::string State() const;
    void Trace(const meter::LinkCall& call);

    Replay& m_replay;
    LiveBoard& m_board;
    std::string m_file;
    std::function<bool()> m_isStopped;
    std::unique_ptr<meter::ControlSocket> m_control;
    Pace m_pace = Pace::Play;
    Clock::time_point m_zero = Clock::now();  // when the session's clock would have begun
    std::uint64_t m_calls = 0;
    std::size_t m_frame = 0;  // from which it steps on
};

}  // namespace session
