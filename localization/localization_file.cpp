#include "localization/localization_file.h"

#include "peg/resources/field_reader.h"
#include "peg/resources/record_types.h"

namespace {

void ReadStrings(FieldReader& fields, LocalizationContent& content) {
    const bool known = fields.U16() == kRecordMagic && fields.U16() == kStringTableRecord;
    const std::uint16_t languageCount = fields.U16();
    const std::uint16_t stringCount = fields.U16();
    fields.Skip(kTableNameBytes);
    if (!known || !fields.Ok() || languageCount == 0) return;
    if (content.strings.Read(fields, languageCount, stringCount)) content.stringCount = stringCount;
}

void ReadTable(FieldReader& fields, SubstitutionTable& table) {
    const std::uint16_t magic = fields.U16();
    const std::uint32_t rows = fields.U16();
    const std::uint32_t columns = fields.U16();
    const std::size_t cells = std::size_t{rows} * columns;
    if (magic != kRecordMagic || cells * sizeof(std::uint16_t) > fields.Remaining()) return;
    table = {rows, columns, std::vector<std::uint16_t>(cells)};
    for (auto& cell : table.cells) cell = fields.U16();
}

}  // namespace

std::uint32_t SubstitutionTable::Replace(std::uint32_t number, std::uint32_t set) const {
    if (set == 0 || set >= rows) return number;
    const std::uint16_t* base = cells.data();
    const std::uint16_t* replacing = base + std::size_t{set} * columns;
    for (std::uint32_t column = 0; column < columns; ++column) {
        if (number == base[column]) number = replacing[column];
    }
    return number;
}

void ReadLocalizationFile(PegFile& file, LocalizationContent& content) {
    FieldReader fields(file);
    ReadStrings(fields, content);
    ReadTable(fields, content.measSymbols);
    ReadTable(fields, content.phaseLabels);
}
