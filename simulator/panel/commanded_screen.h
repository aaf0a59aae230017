#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace panel {

/// Which screen the display was told to show. The display says nothing about that itself, so that a key, by which it
/// may have gone anywhere, makes the number a memory.
class CommandedScreen {
public:
    /// Takes note of a control line of the meter that was carried out.
    void Command(std::string_view line);

    /// Takes note of a command that reached the display, from whomever. One to the screen that is known already may be
    /// ours, heard of twice, and says nothing about keys pressed since.
    void Overhear(std::string_view line);

    /// A key went down: from here on the display finds its own way.
    void Key() { m_certain = false; }

    void Forget() { m_number.reset(); }

    std::optional<std::int32_t> Number() const { return m_number; }

    /// Whether nothing happened since that could have moved the display.
    bool Certain() const { return m_number.has_value() && m_certain; }

private:
    std::optional<std::int32_t> m_number;
    bool m_certain = false;
};

}  // namespace panel
