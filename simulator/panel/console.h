#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "simulator/panel/feed.h"

namespace panel {

/// What the programs of the bench print, for the page; the emulator's own lines go to standard output as well.
class Console {
public:
    Console() : m_lines(kLines) {}

    /// Shows a line that another program printed.
    void Show(std::string_view source, std::string_view text);

    /// Says that something was refused, and why. A flood of refusals is counted instead of printed.
    void Refuse(std::string_view text);

    const Feed& Lines() const { return m_lines; }

private:
    using Clock = std::chrono::steady_clock;

    static constexpr std::size_t kLines = 2000;

    void Say(const std::string& text);

    Feed m_lines;
    Clock::time_point m_second{};  // when the present second of refusals began
    int m_refusals = 0;            // in it
};

/// A text from outside in quotes, so that it cannot pass for a line of ours.
std::string Quoted(std::string_view text);

}  // namespace panel
