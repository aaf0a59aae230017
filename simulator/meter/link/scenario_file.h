#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "simulator/meter/link/script.h"
#include "simulator/meter/model/scenario.h"
#include "simulator/meter/model/waves.h"

namespace meter {

/// A scenario that a tester wrote: a situation, how the network changes in it, and what happens when.
///
/// scenario.schema.json describes the form; docs/bench.md shows one.
struct ScenarioFile {
    std::string name;
    std::string purpose;
    Scenario situation;  // its texts are those above
    Waves waves;
    Script script;  // events and faults as control lines
};

/// @throws std::runtime_error that names the file and the place of the first mistake
std::unique_ptr<ScenarioFile> LoadScenarioFile(const std::string& path);

/// The same from its text. @param path  as mistakes name it
std::unique_ptr<ScenarioFile> ParseScenario(const std::string& path, const std::string& text);

/// Whether a scenario is named by its file.
bool IsScenarioFile(std::string_view name);

}  // namespace meter
