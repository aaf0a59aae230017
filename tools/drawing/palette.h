#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/formats/pixels.h"

/// The colours of the panel: a number, a name and what the panel shows for it.
class Palette {
public:
    struct Entry {
        std::uint32_t number = 0;
        std::string name;
        std::string use;
        std::uint16_t value = 0;  // RGB565
    };

    /// @throws SourceError when a colour is no "#rrggbb" or a number stands twice
    [[nodiscard]] static Palette Read(const std::filesystem::path& path);

    [[nodiscard]] const std::vector<Entry>& Entries() const { return m_entries; }
    [[nodiscard]] const Entry* Find(std::uint32_t number) const;
    /// As the file keeps them.
    [[nodiscard]] std::vector<Colour> Colours() const;
    /// Style rules for drawings: the classes fill-NAME and stroke-NAME, in the very colours that the panel shows.
    [[nodiscard]] std::string Style() const;

private:
    std::vector<Entry> m_entries;
};

/// "#rrggbb"
[[nodiscard]] std::string HexOf(std::uint16_t rgb565);

/// Contrast of two colours, 1 to 21, as the accessibility guidelines of the web define it.
[[nodiscard]] double Contrast(std::uint16_t one, std::uint16_t other);
