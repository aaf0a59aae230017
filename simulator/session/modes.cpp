#include "simulator/session/modes.h"

#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <thread>

#include "simulator/meter/link/control_socket.h"
#include "simulator/meter/link/script.h"
#include "simulator/session/live_board.h"
#include "simulator/session/picture.h"
#include "simulator/session/recording.h"
#include "simulator/session/replay.h"

namespace session {
namespace {

using std::chrono::steady_clock;

constexpr int kPace = 5;  // milliseconds between two looks at the board
constexpr Instant kStep = 10;

volatile std::sig_atomic_t stopRequested = 0;

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

/// Runs beside the clock on the wall until the process is told to end.
void PlayLive(Session& session, LiveBoard& board, const ModeOptions& options) {
    std::unique_ptr<meter::ControlSocket> control;
    std::uint64_t calls = 0;
    const meter::CallObserver report = [&](const meter::LinkCall& call) {
        ++calls;
        if (control && control->IsTraced()) control->Trace(meter::TraceLine(call, calls, session.Model().Now()));
    };
    session.Server().OnCall(report);
    session.Link().OnCall(report);
    if (!options.control.empty())
        control = std::make_unique<meter::ControlSocket>(options.control,
                                                         [&](std::string_view line) { return session.Execute(line); });
    const auto start = steady_clock::now() - std::chrono::milliseconds(Scheduler::Instance().Now());
    std::vector<pollfd> polled;
    while (stopRequested == 0) {
        polled.clear();
        if (control) control->Watch(polled);
        ::poll(polled.data(), polled.size(), kPace);
        session.RunUntil(std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - start).count());
        while (const auto key = board.TakeKey()) session.Press(key->code, key->state);
        if (control) control->Serve();
    }
    session.Server().OnCall({});
    session.Link().OnCall({});
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

void Record(const ModeOptions& options) {
    StopOnSignals();
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
        PlayLive(session, board, options);
    }
    recorder.Finish();
    std::fprintf(stderr, "display-session: recorded %zu frames, %.1f s, in %s\n", recorder.FrameCount(),
                 static_cast<double>(Scheduler::Instance().Now()) / 1000.0, options.record.c_str());
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
    const auto start = steady_clock::now();
    const auto difference = replay.Run([&](Instant when) {
        if (live) std::this_thread::sleep_until(start + std::chrono::milliseconds(when));
    });
    if (!replay.Stray().empty()) std::fprintf(stderr, "display-session: %s\n", replay.Stray().c_str());
    if (difference) {
        Tell(*difference, options.replay);
        return false;
    }
    std::fprintf(stderr, "display-session: %zu frames, all as recorded\n", replay.FrameCount());
    return true;
}

}  // namespace session
