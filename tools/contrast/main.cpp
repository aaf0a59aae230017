#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "tools/drawing/palette.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/json_source.h"
#include "tools/formats/program.h"
#include "tools/formats/source_error.h"

namespace {

constexpr std::uint16_t kWhite = 0xFFFF;
constexpr std::uint16_t kBlack = 0x0000;
constexpr double kLegible = 4.5;

struct Options {
    std::filesystem::path palette;
    std::filesystem::path sheet;
    bool check = false;
};

/// A table of a document: its head line tells it from others, and it ends before an empty line.
struct Table {
    std::string head;
    std::string rows;

    [[nodiscard]] std::string Text() const { return head + "\n" + rows; }
};

std::ostringstream Figures() {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1);
    return text;
}

Table ColourTable(const Palette& palette) {
    std::ostringstream rows = Figures();
    rows << "|---|---|---|---|---|---|\n";
    for (const Palette::Entry& entry : palette.Entries()) {
        rows << "| " << entry.number << " | " << entry.name << " | `" << HexOf(entry.value) << "` | "
             << Contrast(entry.value, kWhite) << " | " << Contrast(entry.value, kBlack) << " | " << entry.use << " |\n";
    }
    return {"| number | name | colour | on white | on black | use |", rows.str()};
}

const Palette::Entry& EntryNamed(const Palette& palette, const JsonSource& name) {
    for (const Palette::Entry& entry : palette.Entries()) {
        if (entry.name == name.Text()) return entry;
    }
    name.Fail("the palette has no such colour");
}

/// One row a colour of texts. @throws SourceError when a text would be hard to read on one of its grounds
Table TextTable(const Palette& palette, const JsonSource& source) {
    std::ostringstream rows = Figures();
    rows << "|---|---|\n";
    for (const JsonSource& row : source.At("texts").Items()) {
        const Palette::Entry& text = EntryNamed(palette, row.At("text"));
        std::string separator = "| " + text.name + " | ";
        for (const JsonSource& name : row.At("on").Items()) {
            const Palette::Entry& ground = EntryNamed(palette, name);
            const double contrast = Contrast(text.value, ground.value);
            if (contrast < kLegible) name.Fail("\"" + text.name + "\" is hard to read on this colour");
            rows << separator << ground.name << ' ' << contrast;
            separator = ", ";
        }
        rows << " |\n";
    }
    return {"| text | contrast with its grounds |", rows.str()};
}

/// The document with the table in place of the one that has its head line.
std::string WithTable(const std::string& document, const Table& table, const std::filesystem::path& path) {
    const std::size_t begin = document.find(table.head + "\n");
    if (begin == std::string::npos) throw SourceError(path.string(), "there is no table " + table.head);
    const std::size_t end = std::min(document.find("\n\n", begin), document.size() - 1) + 1;
    return document.substr(0, begin) + table.Text() + document.substr(end);
}

void Run(const Options& options) {
    const Palette palette = Palette::Read(options.palette);
    const Table colours = ColourTable(palette);
    const Table texts = TextTable(palette, JsonSource::Read(options.palette));
    if (options.sheet.empty()) {
        std::cout << colours.Text() << '\n' << texts.Text();
        return;
    }
    const std::string sheet = ReadTextFile(options.sheet);
    const std::string renewed = WithTable(WithTable(sheet, colours, options.sheet), texts, options.sheet);
    if (renewed == sheet) return;
    if (options.check) throw SourceError(options.sheet.string(), "its colours are not those of the palette");
    WriteFile(options.sheet, {reinterpret_cast<const std::uint8_t*>(renewed.data()), renewed.size()});
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app(
        "Tells the contrast of every colour of the panel, as the panel shows it.\n"
        "Fails when a text would have less than 4.5 on a ground that it stands on.",
        "contrast");
    app.add_option("palette", options.palette, "colours (JSON)")->required();
    app.add_option("--sheet", options.sheet, "renew the tables of colours in this document instead of printing them");
    app.add_flag("--check", options.check, "write nothing, fail when the document has other figures");
    return RunProgram(app, argc, argv, [&] { Run(options); });
}
