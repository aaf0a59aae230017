#pragma once

#include <cstdint>

/// The display configuration: which language, phase labels and measurement symbols the meter asks for.
///
/// The setters may be called from any task and only store the index; the toolkit task takes it over at its next lookup.
void DISPCFG_setLanguage(std::uint32_t index);
void DISPCFG_setPhaseLabels(std::uint32_t index);
void DISPCFG_setMeasSymbols(std::uint32_t index);
std::uint32_t DISPCFG_getLanguage();
std::uint32_t DISPCFG_getPhaseLabels();
std::uint32_t DISPCFG_getMeasSymbols();

/// What the start of the display configuration needs from above.
struct DisplayConfigSources {
    /// The item that a register of the meter selects. @return 0, or -1 when the meter could not tell
    int (*readSelection)(std::uint32_t registerId, std::uint32_t& selected);
    /// Drives an output line of the panel low (0) or high.
    int (*setOutputLine)(int line, int level);
};

/// Takes over what the meter has selected, as far as it answers, and puts the panel's output lines into their places.
void DISPCFG_init(const DisplayConfigSources& sources);
