#include "simulator/meter/link/scenario_file.h"

#include <stdexcept>
#include <string>

#include "simulator/meter/link/console.h"
#include "tests/fuzz/target.h"

namespace {

constexpr std::uint64_t kSeed = 1;
constexpr meter::Instant kStart{1'750'000'000'000};
constexpr std::int64_t kLatest = 2 * meter::kDay;  // no wave, event or fault of a file is later
constexpr int kSteps = 3;

const meter::Meter* fresh = nullptr;

}  // namespace

const MemoryBound kMemoryBound = {.bytes = 2 * 1024 * 1024, .perByte = 256};

void Prepare() { fresh = new meter::Meter(kSeed, kStart); }

/// Reads a scenario, lets the meter begin to play it and carries out everything that it would do later.
void Take(std::span<const std::uint8_t> input) {
    std::unique_ptr<meter::ScenarioFile> file;
    try {
        file = meter::ParseScenario("a.json", {input.begin(), input.end()});
    } catch (const std::runtime_error&) {
        return;
    }
    meter::Meter meter = *fresh;
    meter::MeterServer server(meter);
    const meter::DisplayLink nobody([](auto, auto, auto) { return std::nullopt; });
    meter::Console console(meter, server, nobody, kSeed);
    meter.Play(file->situation, file->waves);
    for (int step = 1; step <= kSteps; ++step) {
        meter.Advance(100);
        for (const std::string& line : file->script.TakeDue(step * kLatest / kSteps)) {
            // To let hours pass takes the simulator as long as it takes; that is what such a line is for.
            if (line.find("advance") == line.npos) static_cast<void>(console.Execute(line));
        }
    }
    static_cast<void>(console.State());
}
