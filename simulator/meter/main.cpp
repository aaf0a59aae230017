#include <CLI/CLI.hpp>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "rda/frame.h"
#include "simulator/meter/link/console.h"
#include "simulator/meter/link/control_socket.h"
#include "simulator/meter/link/display_link.h"
#include "simulator/meter/link/meter_server.h"
#include "simulator/meter/link/script.h"
#include "simulator/meter/model/meter.h"
#include "simulator/meter/model/texts.h"

namespace {

using std::chrono::steady_clock;

constexpr int kPace = 100;  // milliseconds between two looks at the clock

volatile std::sig_atomic_t stopRequested = 0;

struct Options {
    std::uint64_t seed = 1;
    std::int64_t start = 0;  // seconds since 1970; 0 is now
    std::string scenario = "normal";
    std::uint16_t port = rda::kMeterPort;
    std::uint16_t commandPort = rda::kDisplayPort;
    int language = -1;
    std::string control;
    std::string script;
};

meter::Instant StartOf(const Options& options) {
    if (options.start != 0) return options.start * meter::kSecond;
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

meter::Script LoadScript(const std::string& path) {
    if (path.empty()) return {};
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    return meter::Script(file);
}

void ListScenarios() {
    for (const meter::Scenario& scenario : meter::Scenarios())
        std::printf("%-16.*s %.*s\n", static_cast<int>(scenario.name.size()), scenario.name.data(),
                    static_cast<int>(scenario.purpose.size()), scenario.purpose.data());
}

int Run(const Options& options) {
    meter::Meter theMeter(options.seed, StartOf(options));
    meter::MeterServer server(theMeter, options.port);
    meter::DisplayLink display(options.commandPort);
    meter::Console console(theMeter, server, display, options.seed);
    if (!console.Play(options.scenario)) {
        std::fprintf(stderr, "There is no scenario %s; --list-scenarios names them.\n", options.scenario.c_str());
        return 2;
    }
    if (options.language >= 0) {
        const std::string answer = console.Execute("language " + std::to_string(options.language));
        if (!answer.starts_with("ok")) throw std::invalid_argument("--language: " + answer);
    }
    std::unique_ptr<meter::ControlSocket> control;
    if (!options.control.empty())
        control = std::make_unique<meter::ControlSocket>(
            options.control, [&console](std::string_view line) { return console.Execute(line); });
    std::uint64_t calls = 0;
    const meter::CallObserver report = [&](const meter::LinkCall& call) {
        ++calls;
        if (control && control->IsTraced()) control->Trace(meter::TraceLine(call, calls, theMeter.Now()));
    };
    server.OnCall(report);
    display.OnCall(report);
    std::printf("Meter on 127.0.0.1:%u, scenario %s, seed %llu\n", server.Port(), options.scenario.c_str(),
                static_cast<unsigned long long>(options.seed));
    std::fflush(stdout);

    meter::Script script = LoadScript(options.script);
    std::vector<pollfd> polled;
    const auto start = steady_clock::now();
    auto last = start;
    while (stopRequested == 0) {
        const auto now = steady_clock::now();
        const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - last);
        last += passed;
        theMeter.Advance(passed.count());
        for (const std::string& line :
             script.TakeDue(std::chrono::ceil<std::chrono::milliseconds>(now - start).count()))
            std::printf("%s -> %s\n", line.c_str(), console.Execute(line).c_str());
        const int wait = server.Serve(now);
        if (control) control->Serve();
        console.Serve();
        polled.clear();
        server.Watch(polled);
        if (control) control->Watch(polled);
        ::poll(polled.data(), polled.size(), wait < 0 ? kPace : std::min(wait, kPace));
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    bool list = false;
    bool texts = false;
    CLI::App app("Plays the meter for the integrated display.");
    app.add_option("--seed", options.seed, "Seed of everything random; the same seed gives the same run");
    app.add_option("--start", options.start, "Start of the simulated time in seconds since 1970 (default: now)");
    app.add_option("--scenario", options.scenario, "Situation to begin with: a name, or a file");
    app.add_option("--port", options.port, "Port on which the meter is called");
    app.add_option("--command-port", options.commandPort, "Port on which the display is commanded");
    app.add_option("--language", options.language, "Language of the display, 0 to 5");
    app.add_option("--script", options.script, "File of control lines, each after the second at which it is due");
    app.add_option("--control", options.control, "Path of a Unix-domain socket that takes commands");
    app.add_flag("--list-scenarios", list, "Print the scenarios and end");
    app.add_flag("--list-texts", texts, "Print every text that the meter may send and end");
    CLI11_PARSE(app, argc, argv);
    if (list) {
        ListScenarios();
        return 0;
    }
    if (texts) {
        for (std::string_view text : meter::texts::All()) std::puts(std::string(text).c_str());
        return 0;
    }
    std::signal(SIGINT, [](int) { stopRequested = 1; });
    std::signal(SIGTERM, [](int) { stopRequested = 1; });
    try {
        return Run(options);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "meter-simulator: %s\n", failure.what());
        return 1;
    }
}
