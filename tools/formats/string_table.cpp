#include "tools/formats/string_table.h"

#include <limits>
#include <stdexcept>

namespace {

constexpr std::uint16_t kTableRecord = 1;
constexpr std::uint16_t kLanguageRecord = 2;
constexpr std::size_t kTableNameSize = 120;
constexpr std::size_t kLanguageNameSize = 40;

void WriteLanguage(ByteWriter& out, const Language& language) {
    ByteWriter texts(out.Order());
    for (const std::u16string& text : language.texts) texts.Text(text);
    out.U16(kRecordMagic);
    out.U16(kLanguageRecord);
    out.Name(language.name, kLanguageNameSize);
    out.U16(0);
    out.U32(static_cast<std::uint32_t>(texts.Result().size()));
    out.Raw(texts.Result());
}

Language ReadLanguage(ByteReader& in, std::size_t stringCount) {
    if (in.U16() != kRecordMagic || in.U16() != kLanguageRecord) in.Fail("no language record");
    Language language{.name = in.Name(kLanguageNameSize), .texts = {}};
    in.U16();
    const std::size_t size = in.U32();
    const std::size_t start = in.Offset();
    for (std::size_t i = 0; i < stringCount; ++i) language.texts.push_back(in.Text());
    if (in.Offset() - start != size) in.Fail("the texts of " + language.name + " do not fill their record");
    return language;
}

}  // namespace

void WriteStringTable(ByteWriter& out, const StringTable& table) {
    const std::size_t stringCount = table.languages.empty() ? 0 : table.languages.front().texts.size();
    if (stringCount > std::numeric_limits<std::uint16_t>::max()) throw std::length_error("too many strings");
    out.U16(kRecordMagic);
    out.U16(kTableRecord);
    out.U16(static_cast<std::uint16_t>(table.languages.size()));
    out.U16(static_cast<std::uint16_t>(stringCount));
    out.Name(table.name, kTableNameSize);
    for (const Language& language : table.languages) WriteLanguage(out, language);
}

StringTable ReadStringTable(ByteReader& in) {
    if (in.U16() != kRecordMagic || in.U16() != kTableRecord) in.Fail("no string table record");
    const std::size_t languageCount = in.U16();
    const std::size_t stringCount = in.U16();
    StringTable table{.name = in.Name(kTableNameSize), .languages = {}};
    for (std::size_t i = 0; i < languageCount; ++i) table.languages.push_back(ReadLanguage(in, stringCount));
    return table;
}
