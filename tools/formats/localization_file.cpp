#include "tools/formats/localization_file.h"

namespace {

void WriteSubstitutions(ByteWriter& out, const SubstitutionTable& table) {
    out.U16(kRecordMagic);
    out.U16(static_cast<std::uint16_t>(table.rows.size()));
    out.U16(static_cast<std::uint16_t>(table.Columns()));
    for (const auto& row : table.rows) {
        for (const std::uint16_t number : row) out.U16(number);
    }
}

SubstitutionTable ReadSubstitutions(ByteReader& in, std::size_t stringCount) {
    if (in.U16() != kRecordMagic) in.Fail("no substitution table");
    const std::size_t rows = in.U16();
    const std::size_t columns = in.U16();
    SubstitutionTable table;
    for (std::size_t r = 0; r < rows; ++r) {
        auto& row = table.rows.emplace_back();
        for (std::size_t c = 0; c < columns; ++c) {
            row.push_back(in.U16());
            if (row.back() >= stringCount)
                in.Fail("a substitution names the missing string " + std::to_string(row.back()));
        }
    }
    return table;
}

}  // namespace

Bytes WriteLocalizationFile(const LocalizationFile& file, ByteOrder order) {
    ByteWriter out(order);
    WriteStringTable(out, file.strings);
    WriteSubstitutions(out, file.measurementSymbols);
    WriteSubstitutions(out, file.phaseLabels);
    return out.Result();
}

LocalizationFile ReadLocalizationFile(const std::string& name, std::span<const std::uint8_t> bytes) {
    ByteReader in(name, bytes);
    if (!bytes.empty() && bytes[0] == kRecordMagic >> 8) in.SetOrder(ByteOrder::Big);
    LocalizationFile file;
    file.strings = ReadStringTable(in);
    const std::size_t count = file.strings.languages.empty() ? 0 : file.strings.languages.front().texts.size();
    file.measurementSymbols = ReadSubstitutions(in, count);
    file.phaseLabels = ReadSubstitutions(in, count);
    if (!in.AtEnd()) in.Fail("there is more than the file's two tables");
    return file;
}
