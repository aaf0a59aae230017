#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simulator/session/live_board.h"
#include "simulator/session/recording.h"
#include "simulator/session/session.h"

namespace session {

/// Runs a recorded session beside the clock on the wall: keys come from a board, control lines from a socket.
///
/// Besides the session's own lines it takes "record stop", after which the session goes on unrecorded, and
/// "record start", with which it ends, for a recording begins where the display does. Its state tells of the recording.
class LiveSession {
public:
    /// @param file  in which it is recorded
    LiveSession(Session& session, LiveBoard& board, Recorder& recorder, std::string file)
        : m_session(session), m_board(board), m_recorder(recorder), m_file(std::move(file)) {}

    /// Runs until it is stopped, or until another recording is wanted. @return whether one is
    /// @param control  path of the socket; empty: there is none
    bool Run(const std::string& control, const std::function<bool()>& isStopped);

private:
    std::string Execute(std::string_view line);
    std::string State();

    Session& m_session;
    LiveBoard& m_board;
    Recorder& m_recorder;
    std::string m_file;
    bool m_anotherWanted = false;
};

}  // namespace session
