#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <set>

#include "tools/catalogue/catalogue.h"
#include "tools/catalogue/source_numbers.h"
#include "tools/catalogue/substitutions.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/json_source.h"
#include "tools/formats/program.h"
#include "tools/formats/resource_file.h"
#include "tools/formats/utf.h"

namespace {

namespace fs = std::filesystem;
using Numbers = std::set<std::uint32_t>;

constexpr std::uint32_t kFirstKeyLabel = 1000 + ' ';  // character c of the keyboard is string 1000 + c
constexpr std::uint32_t kLastKeyLabel = 1000 + '~';
constexpr std::uint32_t kBuiltInColours = 85;  // the panel's colours may replace what its toolkit has anyway

struct Options {
    fs::path assets;
    fs::path resources;
    std::vector<fs::path> sources;
    std::vector<fs::path> meter;
};

class Check {
public:
    explicit Check(const Options& options) : m_options(options), m_sources(options.sources), m_meter(options.meter) {}

    int Run() {
        CheckStrings();
        ResourceFile file = ReadResourceFile(m_options.resources.string(), ReadFile(m_options.resources));
        Numbers fonts;
        Numbers bitmaps;
        Numbers colours;
        for (const ResourceSet& set : file.sets) {
            for (std::size_t i = 0; i < set.fonts.size(); ++i) {
                fonts.insert(kFirstFontNumber + static_cast<std::uint32_t>(fonts.size()));
            }
            for (const Bitmap& bitmap : set.bitmaps) bitmaps.insert(bitmap.number);
            for (const Colour& colour : set.colours) colours.insert(colour.number);
        }
        CheckNumbers(AssetKind::Font, "font", fonts);
        CheckNumbers(AssetKind::Bitmap, "bitmap", bitmaps);
        CheckNumbers(AssetKind::Colour, "colour", colours);
        CheckDrawings();
        return m_faults;
    }

private:
    void Report(const std::string& what) {
        std::cout << what << '\n';
        ++m_faults;
    }

    /// Every named number has a source.
    void CheckNamed(AssetKind kind, const std::string& name, const Numbers& there) {
        for (const auto& [number, file] : m_sources.Named(kind)) {
            if (!there.contains(number)) Report(file + ": " + name + " " + std::to_string(number) + " has no source");
        }
    }

    /// And every source is used.
    void CheckNumbers(AssetKind kind, const std::string& name, const Numbers& there) {
        CheckNamed(kind, name, there);
        for (const std::uint32_t number : there) {
            const bool isFree = kind == AssetKind::Colour && number < kBuiltInColours;
            if (!isFree && !m_sources.Holds(number)) Report(name + " " + std::to_string(number) + " is used nowhere");
        }
    }

    void CheckStrings() {
        const fs::path texts = m_options.assets / "texts";
        const Catalogue catalogue({texts / "en.po"});
        const StringTable table = catalogue.Table("");
        const auto& english = table.languages.front().texts;
        Numbers there;
        Numbers used;
        for (std::uint32_t number = 0; number < english.size(); ++number) {
            if (!catalogue.Holds(number)) continue;
            there.insert(number);
            const bool isKey = number >= kFirstKeyLabel && number <= kLastKeyLabel;
            const std::string text = ToUtf8(english[number]);
            const bool isSaid = m_meter.Quotes(text) || m_sources.Quotes(text);  // what is found by its wording
            if (isKey || isSaid || m_sources.Holds(number)) used.insert(number);
        }
        CheckNamed(AssetKind::String, "string", there);
        const Substitutions substitutions = ReadSubstitutions(texts / "substitutions.json", catalogue);
        AddReplacements(substitutions.phaseLabels, used);
        AddReplacements(substitutions.measurementSymbols, used);
        for (const std::uint32_t number : there) {
            if (used.contains(number)) continue;
            Report("string " + std::to_string(number) + " \"" + ToUtf8(english[number]) + "\" is used nowhere");
        }
    }

    /// What replaces a used string is used.
    static void AddReplacements(const SubstitutionTable& table, Numbers& used) {
        for (std::size_t column = 0; column < table.rows.front().size(); ++column) {
            if (!used.contains(table.rows.front()[column])) continue;
            for (const auto& row : table.rows) used.insert(row[column]);
        }
    }

    void CheckDrawings() {
        const JsonSource file = JsonSource::Read(m_options.assets / "bitmaps.json");
        std::set<fs::path> drawings;
        for (const JsonSource& bitmap : file.At("bitmaps").Items()) drawings.insert(bitmap.At("drawing").Text());
        for (const JsonSource& key : file.At("softKeys").At("keys").Items()) drawings.insert(key.At("symbol").Text());
        const fs::path folder = m_options.assets / file.At("folder").Text();
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (!entry.is_regular_file()) continue;
            const fs::path drawing = fs::relative(entry.path(), folder);
            if (!drawings.contains(drawing)) Report(entry.path().string() + " is in no bitmap");
        }
    }

    const Options& m_options;
    SourceNumbers m_sources;
    SourceNumbers m_meter;  // the texts that the meter says
    int m_faults = 0;
};

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app(
        "Looks for numbers of strings, fonts, colours and bitmaps that the display's sources name and the assets lack, "
        "and for assets that nothing uses.",
        "asset-checker");
    app.add_option("assets", options.assets, "folder of the assets")->required();
    app.add_option("--resources", options.resources, "the panel's resource file, made from them")->required();
    app.add_option("--sources", options.sources, "folders of the display's sources")->required();
    app.add_option("--meter", options.meter, "folders of a meter's sources, whose texts the display translates");
    return RunProgram(app, argc, argv, [&] {
        const int faults = Check(options).Run();
        if (faults > 0) throw std::runtime_error(std::to_string(faults) + " faults");
    });
}
