#pragma once

#include <string>

/// Walks through everything that the panel can show in English, and through all its screens in the other languages, and
/// writes where each string stands, as TextPlaces does. @return false when the file cannot be written
///
/// Once in a process, as the display's singletons are.
[[nodiscard]] bool WriteTextPlaces(const std::string& path);
