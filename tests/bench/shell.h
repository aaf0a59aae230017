#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// What a command line of the shell gave.
struct Outcome {
    int status = -1;  // also when it ended by a signal
    std::string output;
    std::string talk;  // on standard error
};

inline std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline Outcome Shell(const std::string& line) {
    const auto talk = std::filesystem::temp_directory_path() / ("talk-" + std::to_string(::getpid()));
    FILE* const pipe = ::popen((line + " 2>" + talk.string()).c_str(), "r");
    Outcome outcome{};
    std::array<char, 4096> buffer;
    for (std::size_t count; (count = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        outcome.output.append(buffer.data(), count);
    const int status = ::pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.talk = ContentOf(talk);
    std::filesystem::remove(talk);
    return outcome;
}
