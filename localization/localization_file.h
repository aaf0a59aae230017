#pragma once

#include <cstdint>
#include <vector>

#include "peg/resources/file.h"
#include "peg/resources/string_table.h"

/// Sets of string numbers: each row replaces the numbers of row 0, the base set, column by column.
struct SubstitutionTable {
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    std::vector<std::uint16_t> cells;  // row by row

    /// The number that stands for `number` in a set; itself when no column names it. A replacement may be replaced by a
    /// later column in turn.
    std::uint32_t Replace(std::uint32_t number, std::uint32_t set) const;
};

/// What the localisation file holds. A part that is missing or broken is empty.
struct LocalizationContent {
    StringTable strings;
    std::uint32_t stringCount = 0;
    SubstitutionTable measSymbols;
    SubstitutionTable phaseLabels;
};

/// Reads the localisation file. Broken strings do not keep the substitution tables behind them from being read.
void ReadLocalizationFile(PegFile& file, LocalizationContent& content);
