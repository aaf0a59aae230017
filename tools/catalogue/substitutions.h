#pragma once

#include <filesystem>

#include "tools/catalogue/catalogue.h"
#include "tools/formats/localization_file.h"

struct Substitutions {
    SubstitutionTable measurementSymbols;
    SubstitutionTable phaseLabels;
};

/// Reads the sets of phase labels and measurement symbols: the names of the sets, and the columns of string numbers,
/// each with one number a set.
/// @throws SourceError when a column has another length or names a string that the catalogue lacks
[[nodiscard]] Substitutions ReadSubstitutions(const std::filesystem::path& path, const Catalogue& catalogue);
