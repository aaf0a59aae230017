#pragma once

#include <string>

#include "simulator/session/session.h"

namespace session {

struct ModeOptions {
    Setting setting;
    std::string record;
    std::string replay;
    int seconds = 10;
    std::string script;
    std::string board;    // empty: nobody looks, and time runs as fast as it can
    std::string control;  // of the meter, beside a board
};

/// Records a session: without a board a scripted one of so many seconds, with a board until the process is told to end.
/// @return whether another recording is wanted, with the display started anew
bool Record(const ModeOptions& options);

/// Replays a recording, beside a board at the pace of its control lines, and says on standard error how it went. Of the
/// first frame that differs, both pictures are written beside the recording. @return whether every frame was as
/// recorded
bool ReplayAgain(const ModeOptions& options);

}  // namespace session
