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

    /// The longest text of the catalogue that a drawn text is, or begins with; without numbers when there is
    /// none.
    struct Part {
        std::u16string text;
        std::vector<std::uint32_t> numbers;
    };
    Part FindIn(const std::u16string& text) const;

    /// The texts of the catalogue that go on where this one ends.
    std::vector<std::u16string> Longer(const std::u16string& text) const;

private:
    std::map<std::u16string, std::vector<std::uint32_t>> m_numbers;
};
