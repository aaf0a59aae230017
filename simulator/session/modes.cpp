#include "simulator/session/modes.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <memory>

#include "simulator/meter/link/script.h"
#include "simulator/session/live_board.h"
#include "simulator/session/live_session.h"
#include "simulator/session/picture.h"
#include "simulator/session/playback.h"
#include "simulator/session/recording.h"
#include "simulator/session/replay.h"

namespace session {
namespace {

constexpr Instant kStep = 10;

volatile std::sig_atomic_t stopRequested = 0;

bool IsStopped() { return stopRequested != 0; }

void StopOnSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { stopRequested = 1; });
}

meter::Script LoadScript(const std::string& path) {
    if (path.empty()) return {};
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    return meter::Script(file);
}

void PlayScript(Session& session, const ModeOptions& options) {
    meter::Script script = LoadScript(options.script);
    const Instant start = Scheduler::Instance().Now();
    const Instant end = start + options.seconds * Instant{1000};
    while (Scheduler::Instance().Now() < end && stopRequested == 0) {
        for (const std::string& line : script.TakeDue(Scheduler::Instance().Now() - start))
            std::fprintf(stderr, "display-session: %s -> %s\n", line.c_str(), session.Execute(line).c_str());
        session.Run(kStep);
    }
}

void Tell(const Difference& difference, const std::string& recording) {
    std::fprintf(stderr, "display-session: frame %zu at %.3f s ", difference.index,
                 static_cast<double>(difference.time) / 1000.0);
    if (!difference.replayed) std::fprintf(stderr, "did not come again");
    if (!difference.recorded) std::fprintf(stderr, "was not recorded");
    if (difference.recorded && difference.replayed) std::fprintf(stderr, "differs from the recording");
    std::fprintf(stderr, "\n");
    const auto write = [](const std::optional<panel::Frame>& frame, const std::string& path) {
        if (!frame) return;
        WritePicture(*frame, path, STDOUT_FILENO);
        std::fprintf(stderr, "display-session: wrote %s\n", path.c_str());
    };
    write(difference.recorded, recording + ".recorded.png");
    write(difference.replayed, recording + ".replayed.png");
}

}  // namespace

bool Record(const ModeOptions& options) {
    StopOnSignals();
    bool anotherWanted = false;
    Recorder recorder(options.record, options.setting, BuildName(options.setting.romfs));
    if (options.board.empty()) {
        BoardPort board;
        Session session(options.setting, board, &recorder);
        session.Start();
        PlayScript(session, options);
    } else {
        LiveBoard board(options.board);
        Session session(options.setting, board, &recorder);
        session.Start();
        anotherWanted = LiveSession(session, board, recorder, options.record).Run(options.control, IsStopped);
    }
    if (recorder.IsFinished()) return anotherWanted;
    recorder.Finish();
    std::fprintf(stderr, "display-session: recorded %zu frames, %.1f s, in %s\n", recorder.FrameCount(),
                 static_cast<double>(Scheduler::Instance().Now()) / 1000.0, options.record.c_str());
    return anotherWanted;
}

bool ReplayAgain(const ModeOptions& options) {
    StopOnSignals();
    const Recording recording = Recording::Read(options.replay);
    if (recording.build != BuildName(options.setting.romfs))
        std::fprintf(stderr, "display-session: the recording is of another build, %s\n", recording.build.c_str());
    BoardPort nobody;
    std::unique_ptr<LiveBoard> live;
    if (!options.board.empty()) live = std::make_unique<LiveBoard>(options.board);
    Replay replay(recording, options.setting.romfs, live ? *live : nobody);
    std::unique_ptr<Playback> playback;
    if (live) playback = std::make_unique<Playback>(replay, *live, options.replay, options.control, IsStopped);
    const auto difference = replay.Run([&](Instant when) { return playback ? playback->Await(when) : !IsStopped(); });
    if (!replay.Stray().empty()) std::fprintf(stderr, "display-session: %s\n", replay.Stray().c_str());
    if (difference) {
        Tell(*difference, options.replay);
        return false;
    }
    std::fprintf(stderr, "display-session: %zu frames, all as recorded%s\n", replay.FrameCount(),
                 replay.IsWhole() ? "" : ", and then it was stopped");
    return replay.IsWhole();
}

}  // namespace session
