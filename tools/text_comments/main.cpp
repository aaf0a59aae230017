#include <CLI/CLI.hpp>
#include <charconv>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "tools/catalogue/text_spots.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/program.h"
#include "tools/formats/source_error.h"

namespace {

constexpr std::string_view kComment = "#. ";
constexpr std::string_view kNumber = "msgctxt \"";

struct Options {
    std::vector<std::filesystem::path> texts;
    std::filesystem::path places;
    bool check = false;
};

/// The file with the comments that the spots call for, and without those of former spots. All else stays as it is.
std::string Renewed(const std::string& text, const TextSpots& spots) {
    std::istringstream lines(text);
    std::ostringstream renewed;
    std::string line;
    while (std::getline(lines, line)) {
        if (line.starts_with(kComment) && TextSpot::FromComment(line.substr(kComment.size()))) continue;
        if (line.starts_with(kNumber)) {
            std::uint32_t number = 0;
            std::from_chars(line.data() + kNumber.size(), line.data() + line.size(), number);
            const auto found = spots.find(number);
            if (found != spots.end()) {
                for (const TextSpot& spot : found->second) renewed << kComment << spot.Comment() << '\n';
            }
        }
        renewed << line << '\n';
    }
    return renewed.str();
}

void Run(const Options& options) {
    const TextSpots spots = ReadTextSpots(options.places);
    for (const auto& path : options.texts) {
        const std::string text = ReadTextFile(path);
        const std::string renewed = Renewed(text, spots);
        if (renewed == text) continue;
        if (options.check) throw SourceError(path.string(), "the comments on fonts and room are stale");
        WriteFile(path, {reinterpret_cast<const std::uint8_t*>(renewed.data()), renewed.size()});
    }
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Tells translators in the PO files where each string is shown, in which font and in how many pixels.",
                 "text-comments");
    app.add_option("texts", options.texts, "PO files")->required();
    app.add_option("--places", options.places, "what the audit of the layout found")->required();
    app.add_flag("--check", options.check, "write nothing, fail when a file is stale");
    return RunProgram(app, argc, argv, [&] { Run(options); });
}
