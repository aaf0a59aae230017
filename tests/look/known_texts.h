#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// The numbers of what the panel says, found by the words that it shows in the selected language.
class KnownTexts {
public:
    /// Reads the catalogue in a language; afterwards the base phase labels and symbols are selected.
    explicit KnownTexts(std::uint32_t language);

    /// All numbers with that text; none for a text of the meter's own, a figure or a composed text.
    std::vector<std::uint32_t> Find(const std::u16string& text) const;

    /// A text of the catalogue that goes on where this one ends, or an empty one.
    std::u16string Longer(const std::u16string& text) const;

    const std::map<std::u16string, std::vector<std::uint32_t>>& All() const { return m_numbers; }

private:
    std::map<std::u16string, std::vector<std::uint32_t>> m_numbers;
};

std::string Utf8(const std::u16string& text);
