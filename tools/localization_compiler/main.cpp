#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

#include "tools/catalogue/catalogue.h"
#include "tools/catalogue/substitutions.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/localization_file.h"
#include "tools/formats/program.h"

namespace {

struct Options {
    std::vector<std::filesystem::path> texts;
    std::filesystem::path substitutions;
    std::filesystem::path output;
    ByteOrder order = ByteOrder::Little;
};

void Compile(const Options& options) {
    const Catalogue catalogue(options.texts);
    LocalizationFile file;
    file.strings = catalogue.Table("panel texts");
    if (!options.substitutions.empty()) {
        Substitutions substitutions = ReadSubstitutions(options.substitutions, catalogue);
        file.measurementSymbols = std::move(substitutions.measurementSymbols);
        file.phaseLabels = std::move(substitutions.phaseLabels);
    }
    WriteFile(options.output, WriteLocalizationFile(file, options.order));
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Makes the panel's localisation file from its texts.", "localization-compiler");
    app.add_option("texts", options.texts, "PO files, the base language first")->required();
    app.add_option("--substitutions", options.substitutions, "phase labels and measurement symbols (JSON)");
    app.add_option("-o,--output", options.output, "file to write")->required();
    AddByteOrder(app, options.order);
    return RunProgram(app, argc, argv, [&] { Compile(options); });
}
