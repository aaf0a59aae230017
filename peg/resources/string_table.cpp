#include "peg/resources/string_table.h"

#include "peg/resources/record_types.h"

bool StringTable::Read(FieldReader& fields, std::uint16_t languageCount, std::uint16_t stringCount) {
    m_languages.clear();
    for (int i = 0; i < languageCount; ++i) {
        if (!ReadLanguage(fields, stringCount, m_languages.emplace_back())) {
            m_languages.clear();
            return false;
        }
    }
    return true;
}

const char16_t* StringTable::Find(std::uint32_t language, std::uint32_t number) const {
    if (language >= m_languages.size()) return nullptr;
    const auto& strings = m_languages[language].strings;
    return number < strings.size() ? strings[number] : nullptr;
}

bool StringTable::ReadLanguage(FieldReader& fields, std::uint16_t stringCount, Language& language) {
    const bool known = fields.U16() == kRecordMagic && fields.U16() == kLanguageRecord;
    fields.Skip(kNameBytes + sizeof(std::uint16_t));
    const std::uint32_t bytes = fields.U32();
    if (!known || !fields.Ok() || bytes > fields.Remaining()) return false;

    const std::size_t units = bytes / sizeof(char16_t);
    if (units < stringCount) return false;  // every text has its terminator at least
    language.texts = std::make_unique_for_overwrite<char16_t[]>(units);
    fields.Units({language.texts.get(), units});
    fields.Skip(bytes % sizeof(char16_t));

    language.strings.reserve(stringCount);
    for (std::size_t at = 0; language.strings.size() < stringCount; ++at) {
        const std::size_t start = at;
        while (at < units && language.texts[at] != 0) ++at;
        if (at >= units) return false;
        language.strings.push_back(at > start ? &language.texts[start] : nullptr);
    }
    return true;
}
