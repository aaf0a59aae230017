#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "simulator/descriptor.h"

/// When the display called the meter, as the meter's trace tells while it happens.
class CallLog {
public:
    /// Asks the meter for its trace. @param control  its control socket
    explicit CallLog(const std::filesystem::path& control);

    using Time = std::chrono::steady_clock::time_point;

    /// Takes what the meter has told; to be called often, for the time of a call is that of the taking.
    void Take();

    /// Forgets the calls so far.
    void Clear();
    const std::vector<Time>& TimesOf(const std::string& operation) { return m_times[operation]; }

private:
    void TakeLine(const std::string& line);

    Descriptor m_socket;
    std::string m_pending;
    std::map<std::string, std::vector<Time>> m_times;
};

/// Sends one control line to the meter simulator. @return its answer
std::string TellMeter(const std::filesystem::path& control, const std::string& line);
