#include <filesystem>
#include <iostream>

#include "tools/formats/file_bytes.h"
#include "tools/formats/program.h"
#include "tools/inspection/report.h"
#include "tools/inspection/sheets.h"

namespace {

struct Options {
    std::filesystem::path file;
    std::filesystem::path fonts;
    std::filesystem::path bitmaps;
    bool json = false;
};

void Inspect(const Options& options) {
    const ResourceFile file = ReadResourceFile(options.file.string(), ReadFile(options.file));
    if (options.json) {
        std::cout << DescribeResources(file).dump(2) << '\n';
    } else {
        PrintResources(std::cout, file);
    }
    if (!options.fonts.empty()) WriteFontSheets(options.fonts, file);
    if (!options.bitmaps.empty()) WriteBitmapSheets(options.bitmaps, file);
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Shows what a resource file of the panel holds.", "resource-inspector");
    app.add_option("file", options.file, "resource file, in either byte order")->required();
    app.add_flag("--json", options.json, "print JSON");
    app.add_option("--fonts", options.fonts, "write a picture of every font into this folder");
    app.add_option("--bitmaps", options.bitmaps, "write every bitmap and a sheet of them into this folder");
    return RunProgram(app, argc, argv, [&] { Inspect(options); });
}
