#pragma once

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "simulator/meter/wire/codec.h"
#include "simulator/session/session.h"

namespace session {

// A recording is lines of JSON: what the session was, then everything that went into the display and every frame that
// came out, each with its time in milliseconds, in the order in which it happened.

/// A key of the panel.
struct KeyEvent {
    std::int32_t code;
    std::int32_t state;
};
/// A command of the meter.
struct CommandEvent {
    std::string operation;
    std::vector<std::byte> payload;
    std::uint32_t size;
};
/// From now on somebody listens on the meter's port, or nobody.
struct ListenEvent {
    bool listens;
};
/// A call of the display, and what became of it.
struct CallEvent {
    meter::Frame call;
    meter::CallOutcome outcome;
};
struct FrameEvent {
    std::shared_ptr<const panel::Frame> frame;  // which is much larger than all other events
};
struct EndEvent {};

struct Event {
    Instant time;
    std::variant<KeyEvent, CommandEvent, ListenEvent, CallEvent, FrameEvent, EndEvent> what;
};

struct Recording {
    std::string build;
    std::int64_t start = 0;  // seconds since 1970
    std::vector<Event> events;

    /// @throws std::runtime_error that names the line which is none of a recording
    static Recording Read(const std::filesystem::path& path);

    /// The same from its text. @param name  as mistakes name it
    static Recording Read(std::istream& text, const std::string& name);
};

/// Writes a session down while it happens.
class Recorder : public Listener {
public:
    /// @throws std::runtime_error when the file cannot be written
    Recorder(const std::filesystem::path& path, const Setting& setting, const std::string& build);

    void OnKey(std::int32_t code, std::int32_t state) override;
    void OnCommand(std::string_view operation, std::span<const std::byte> payload, std::uint32_t size) override;
    void OnListening(bool listens) override;
    void OnCall(const meter::Frame& call, const meter::CallOutcome& outcome) override;
    void OnFrame(const panel::Frame& frame) override;

    /// Writes the end, without which a recording is none.
    void Finish();
    bool IsFinished() const { return m_finished; }
    std::size_t FrameCount() const { return m_frames; }

private:
    void Write(meter::Json line);

    std::ofstream m_file;
    panel::Frame m_last{};
    std::size_t m_frames = 0;
    bool m_finished = false;
};

/// Tells one build of the display from another: a digest of this program and of the files it reads.
std::string BuildName(const std::filesystem::path& romfs);

}  // namespace session
