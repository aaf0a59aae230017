#include "tools/catalogue/substitutions.h"

#include "tools/formats/json_source.h"

namespace {

// The file lists columns, each with one number a set; the panel wants sets.
SubstitutionTable ReadTable(const JsonSource& source, const Catalogue& catalogue) {
    SubstitutionTable table;
    table.rows.resize(source.At("sets").Items().size());
    for (const JsonSource& column : source.At("columns").Items()) {
        const auto cells = column.Items();
        if (cells.size() != table.rows.size()) column.Fail("one number a set was expected");
        for (std::size_t set = 0; set < cells.size(); ++set) {
            const auto number = cells[set].Number<std::uint16_t>();
            if (!catalogue.Holds(number)) {
                cells[set].Fail("string " + std::to_string(number) + " is not in the catalogue");
            }
            table.rows[set].push_back(number);
        }
    }
    return table;
}

}  // namespace

Substitutions ReadSubstitutions(const std::filesystem::path& path, const Catalogue& catalogue) {
    const JsonSource file = JsonSource::Read(path);
    return {ReadTable(file.At("measurementSymbols"), catalogue), ReadTable(file.At("phaseLabels"), catalogue)};
}
