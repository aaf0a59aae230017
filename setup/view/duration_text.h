#pragma once

#include <array>
#include <string_view>

/// A number of seconds as hours, minutes and seconds.
class DurationText {
public:
    /// @param seconds  a decimal number, perhaps negative; what is no number counts as 0
    explicit DurationText(std::string_view seconds);

    /// "01:02:05"; the hours carry the sign. Lives as long as this object.
    std::string_view View() const { return m_text.data(); }

private:
    std::array<char, 24> m_text{};
};
