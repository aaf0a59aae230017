#include <filesystem>
#include <iostream>

#include "tools/formats/file_bytes.h"
#include "tools/formats/program.h"
#include "tools/inspection/report.h"

namespace {

struct Options {
    std::filesystem::path file;
    bool json = false;
};

void Inspect(const Options& options) {
    const LocalizationFile file = ReadLocalizationFile(options.file.string(), ReadFile(options.file));
    if (options.json) {
        std::cout << DescribeLocalization(file).dump(2) << '\n';
    } else {
        PrintLocalization(std::cout, file);
    }
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Shows what a localisation file of the panel holds.", "localization-inspector");
    app.add_option("file", options.file, "localisation file, in either byte order")->required();
    app.add_flag("--json", options.json, "print JSON with all texts");
    return RunProgram(app, argc, argv, [&] { Inspect(options); });
}
