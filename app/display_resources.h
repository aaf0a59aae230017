#pragma once

#include <cstdint>

/// What the toolkit task runs before its first message: loads the resource file, puts the start-up screen on the panel
/// and starts the localisation. A missing or broken file is reported on the console; the panel comes up without it.
/// @param presentationManager  the toolkit's, as a word
std::intptr_t loadDisplayResources(std::intptr_t presentationManager);
