#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "peg/resources/field_reader.h"

/// Numbered texts in several languages, kept as the file has them: one block of UTF-16 code units a language and a
/// pointer to each text in it. An empty text is null: the language has none for that number.
class StringTable {
public:
    /// Reads `languageCount` language records of `stringCount` texts each.
    /// @return false, and nothing is kept, when a record is not what it should be
    [[nodiscard]] bool Read(FieldReader& fields, std::uint16_t languageCount, std::uint16_t stringCount);

    /// The text, or null when there is none, or no such language or number.
    const char16_t* Find(std::uint32_t language, std::uint32_t number) const;

    std::uint32_t LanguageCount() const { return static_cast<std::uint32_t>(m_languages.size()); }

private:
    struct Language {
        std::unique_ptr<char16_t[]> texts;
        std::vector<const char16_t*> strings;
    };

    static bool ReadLanguage(FieldReader& fields, std::uint16_t stringCount, Language& language);

    std::vector<Language> m_languages;
};
