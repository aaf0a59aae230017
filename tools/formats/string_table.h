#pragma once

#include <string>
#include <vector>

#include "tools/formats/byte_reader.h"
#include "tools/formats/byte_writer.h"

struct Language {
    std::string name;
    std::vector<std::u16string> texts;  // empty: this language has no text for the number

    bool operator==(const Language&) const = default;
};

/// The texts of one file: every language holds the same numbers, counted from the table's first.
struct StringTable {
    std::string name;
    std::vector<Language> languages;

    bool operator==(const StringTable&) const = default;
};

constexpr std::uint16_t kRecordMagic = 0xBEEF;

/// Both files keep their texts in the same two records: the table and, behind it, one record a language.
void WriteStringTable(ByteWriter& out, const StringTable& table);
[[nodiscard]] StringTable ReadStringTable(ByteReader& in);
