#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "simulator/session/recording.h"

namespace session {

/// The first frame that is not as recorded. Either picture may be missing: a frame too many, or too few.
struct Difference {
    std::size_t index;
    Instant time;
    std::optional<panel::Frame> recorded;
    std::optional<panel::Frame> replayed;
};

/// Gives a recording's inputs to the display again and compares every frame that it writes.
///
/// The meter is not there: each call is answered by what was recorded. A call that was not recorded at this place is
/// answered by the nearest of the same kind, and noted.
class Replay : public World {
public:
    Replay(const Recording& recording, std::filesystem::path romfs, BoardPort& board);

    /// Runs from the start to the end, or to the first frame that differs.
    /// @param mayGo  asked before each step with the time to which it leads; false ends the replay there
    std::optional<Difference> Run(const std::function<bool(Instant)>& mayGo = [](Instant) { return true; });

    /// Has every call of the link reported as it is replayed, the display's and the meter's.
    void OnCall(meter::CallObserver observer) { m_observer = std::move(observer); }

    /// Whether `Run` came to the end of the recording.
    bool IsWhole() const { return m_whole; }
    std::size_t FrameCount() const { return m_frames; }
    std::size_t RecordedFrameCount() const { return m_recordedFrames.size(); }
    Instant Length() const { return m_recording.events.back().time; }
    /// The first call that was not as recorded, in words; empty when there was none.
    const std::string& Stray() const { return m_stray; }

    std::filesystem::path Romfs() const override { return m_romfs; }
    std::int64_t StartSeconds() const override { return m_recording.start; }
    void TakeFrame(std::span<const std::byte> pixels) override;
    std::int32_t Control(std::string_view device, std::uint32_t request, std::int32_t argument) override;
    void TellShownScreen(std::int32_t id) override { m_board.TellShownScreen(id); }
    bool MeterListens() override { return m_listens; }
    meter::CallOutcome TakeCall(const meter::Frame& call) override;

private:
    void Deliver(const Event& event);
    void Command(const CommandEvent& command) const;
    meter::CallOutcome Answer(const meter::Frame& call);
    Instant NextFrame() const;

    const Recording& m_recording;
    std::filesystem::path m_romfs;
    BoardPort& m_board;
    meter::CallObserver m_observer;
    std::vector<const CallEvent*> m_calls;
    std::vector<const Event*> m_recordedFrames;
    std::size_t m_nextCall = 0;
    std::size_t m_frames = 0;
    bool m_listens = true;
    bool m_whole = false;
    std::string m_stray;
    std::optional<Difference> m_difference;
};

}  // namespace session
