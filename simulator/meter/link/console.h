#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "simulator/meter/link/display_link.h"
#include "simulator/meter/link/meter_server.h"
#include "simulator/meter/link/scenario_file.h"
#include "simulator/meter/model/meter.h"

namespace meter {

/// Understands the lines of the control channel: "navigate 68", "scenario sag", "set 1914 German", "state".
class Console {
public:
    Console(Meter& meter, MeterServer& server, const DisplayLink& display, std::uint64_t seed)
        : m_meter(meter), m_server(server), m_display(display), m_seed(seed) {}

    /// Carries out one line. @return one line: "ok", "ok" with a result, or "error" with the reason
    std::string Execute(std::string_view line);

    /// Starts a scenario, by its name or its file. @return false when there is none of that name
    /// @throws std::runtime_error that names the first mistake of a file
    bool Play(std::string_view name);

    /// Carries out what is due in a scenario's file, and passes settings on. Called again and again.
    void Serve();

    /// Tells the display what settings changed. @return whether it took everything
    bool PassOnSettings();

    std::string State() const;

private:
    std::string Begin(std::string_view scenario);
    std::string CommandDisplay(std::string_view word, std::string_view argument, std::string_view second);
    std::string ChooseItem(std::uint16_t id, std::string_view item);

    Meter& m_meter;
    MeterServer& m_server;
    const DisplayLink& m_display;
    std::uint64_t m_seed;
    std::unique_ptr<ScenarioFile> m_file;  // that is played, or null
    Instant m_fileStart = 0;
};

}  // namespace meter
