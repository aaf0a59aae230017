#pragma once

#include <stdexcept>
#include <string>

/// A mistake in a source or binary file. The message names the file and, where there is one, the line.
class SourceError : public std::runtime_error {
public:
    SourceError(const std::string& file, const std::string& what) : std::runtime_error(file + ": " + what) {}
    SourceError(const std::string& file, int line, const std::string& what)
        : std::runtime_error(file + ":" + std::to_string(line) + ": " + what) {}
};
