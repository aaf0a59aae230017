#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "tools/formats/byte_writer.h"
#include "tools/formats/string_table.h"

/// String numbers by set and column: row 0 holds the numbers of the base texts, row r those that stand in for them
/// while set r is selected.
struct SubstitutionTable {
    std::vector<std::vector<std::uint16_t>> rows;

    [[nodiscard]] std::size_t Columns() const { return rows.empty() ? 0 : rows.front().size(); }
    bool operator==(const SubstitutionTable&) const = default;
};

struct LocalizationFile {
    StringTable strings;  // numbers 0 and up
    SubstitutionTable measurementSymbols;
    SubstitutionTable phaseLabels;

    bool operator==(const LocalizationFile&) const = default;
};

/// The panel reads this file as little-endian; the other order is for tests of its readers.
[[nodiscard]] Bytes WriteLocalizationFile(const LocalizationFile& file, ByteOrder order);

/// @throws SourceError when the bytes are no localisation file; `name` stands in its message
[[nodiscard]] LocalizationFile ReadLocalizationFile(const std::string& name, std::span<const std::uint8_t> bytes);
