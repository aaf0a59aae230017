#include "simulator/meter/link/script.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace meter {
namespace {

constexpr double kLatest = 7.0 * 86400.0;  // seconds

}  // namespace

Script::Script(std::istream& text) {
    std::string line;
    for (int number = 1; std::getline(text, line); ++number) {
        std::istringstream words(line);
        if (line.find_first_not_of(" \t\r") == std::string::npos || line.starts_with('#')) continue;
        double seconds = 0.0;
        std::string command;
        const bool isStep = words >> seconds && std::getline(words >> std::ws, command) && !command.empty();
        const double earliest = m_steps.empty() ? 0.0 : static_cast<double>(m_steps.back().milliseconds) / 1000.0;
        if (!isStep || seconds < earliest || seconds > kLatest)
            throw std::runtime_error("line " + std::to_string(number) + " of the script is no step: " + line);
        m_steps.push_back({static_cast<std::int64_t>(seconds * 1000.0), command});
    }
}

void Script::Add(std::int64_t milliseconds, std::string line) {
    const auto place = std::ranges::upper_bound(m_steps, milliseconds, {}, &Step::milliseconds);
    m_steps.insert(place, {milliseconds, std::move(line)});
}

std::vector<std::string> Script::TakeDue(std::int64_t milliseconds) {
    std::vector<std::string> due;
    for (; m_next < m_steps.size() && m_steps[m_next].milliseconds <= milliseconds; ++m_next)
        due.push_back(m_steps[m_next].line);
    return due;
}

}  // namespace meter
