#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "simulator/meter/link/console.h"
#include "simulator/meter/link/display_link.h"
#include "simulator/meter/link/meter_server.h"
#include "simulator/panel/devices.h"
#include "simulator/panel/frame.h"
#include "simulator/session/world.h"

namespace session {

/// How a session begins. The words are those of the page's address and of the command line.
struct Setting {
    std::filesystem::path romfs;
    std::uint64_t seed = 1;
    std::int64_t start = 1'789'552'800;  // seconds since 1970: a Wednesday in September, noon
    std::string scenario = "normal";     // a name, or a file
    int at = 30;                         // seconds for which the scenario has lasted when the display comes up
    std::string language = "en";
    std::string mode = "normal";
    int screen = 0;  // 0: that which the display begins with
};

/// The numbers of the words; @throws std::invalid_argument that names the words there are
int LanguageNumber(std::string_view word);

/// What happened in a session, for who writes it down. Each is told before its effects.
class Listener {
public:
    virtual ~Listener() = default;
    virtual void OnKey(std::int32_t code, std::int32_t state) = 0;
    virtual void OnCommand(std::string_view operation, std::span<const std::byte> payload, std::uint32_t size) = 0;
    virtual void OnListening(bool listens) = 0;  // whether somebody is on the meter's port from now on
    virtual void OnCall(const meter::Frame& call, const meter::CallOutcome& outcome) = 0;
    virtual void OnFrame(const panel::Frame& frame) = 0;
};

/// The board of a session: what the display does to its devices, and where its frames go.
class BoardPort {
public:
    virtual ~BoardPort() = default;
    virtual void TakeFrame(const panel::Frame&) {}
    virtual std::int32_t Control(std::string_view device, std::uint32_t request, std::int32_t argument);
    virtual void TellShownScreen(std::int32_t) {}

private:
    panel::Backlight m_backlight;
    std::array<panel::OutputPort, 2> m_ports;
};

/// The display's whole program beside a simulated meter, on the session's clock. One in a process.
class Session : public World {
public:
    /// @throws std::invalid_argument when a word of the setting is not known
    Session(const Setting& setting, BoardPort& board, Listener* listener = nullptr);

    /// Starts the display and lets it come up in the setting's mode and on its screen.
    /// @throws std::runtime_error when the screen is not reached
    void Start();

    /// Whether the application is built and has taken the start-up screen's place. Before that it may not be asked
    /// anything.
    static bool HasHandedOver();

    /// Lets time pass, on both sides of the link.
    void RunUntil(Instant when);
    void Run(Instant milliseconds) { RunUntil(Scheduler::Instance().Now() + milliseconds); }

    /// The listener hears no more.
    void TellNobody() { m_listener = nullptr; }

    /// The meter's clock stands still from now on.
    void FreezeMeter() { m_frozen = true; }

    /// A line of the control channel, or "press KEY [down|up]" for a key of the panel. @return the answer
    std::string Execute(std::string_view line);
    /// @param code  of the keys device, 1 to 6
    void Press(std::int32_t code, std::int32_t state);

    /// Goes to a screen and lets it refresh itself. @return whether there is such a screen
    bool Show(int screen);
    const panel::Frame& NewestFrame() const { return *m_frame; }
    meter::Meter& Model() { return m_meter; }
    meter::MeterServer& Server() { return m_server; }
    meter::DisplayLink& Link() { return m_display; }

    std::filesystem::path Romfs() const override { return m_setting.romfs; }
    std::int64_t StartSeconds() const override { return m_setting.start; }
    void TakeFrame(std::span<const std::byte> pixels) override;
    std::int32_t Control(std::string_view device, std::uint32_t request, std::int32_t argument) override;
    void TellShownScreen(std::int32_t id) override { m_board.TellShownScreen(id); }
    bool MeterListens() override { return m_server.GetFault() != meter::Fault::Absent; }
    meter::CallOutcome TakeCall(const meter::Frame& call) override;

private:
    void AdvanceMeter();
    void TellListening();
    std::string PressByName(std::string_view words);

    Setting m_setting;
    BoardPort& m_board;
    Listener* m_listener;
    meter::Meter m_meter;
    meter::MeterServer m_server;
    meter::DisplayLink m_display;
    meter::Console m_console;
    bool m_frozen = false;
    bool m_listened = true;  // when the listener was told last
    Instant m_meterTime = 0;
    std::shared_ptr<panel::Frame> m_frame = std::make_shared<panel::Frame>();
};

}  // namespace session
