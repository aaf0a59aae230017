#include <filesystem>

#include "tools/catalogue/catalogue.h"
#include "tools/drawing/bitmap_maker.h"
#include "tools/drawing/font_maker.h"
#include "tools/drawing/palette.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/program.h"
#include "tools/formats/resource_file.h"

namespace {

struct Options {
    std::filesystem::path palette;
    std::filesystem::path fonts;
    std::filesystem::path bitmaps;
    std::filesystem::path texts;
    std::filesystem::path output;
    ByteOrder order = ByteOrder::Little;
    bool uncompressed = false;
};

void Compile(const Options& options) {
    const Palette palette = Palette::Read(options.palette);
    ResourceFile file;
    ResourceSet& set = file.sets.emplace_back();
    set.colours = palette.Colours();
    if (!options.fonts.empty()) set.fonts = MakeFonts(options.fonts);
    if (!options.bitmaps.empty()) set.bitmaps = MakeBitmaps(options.bitmaps, palette);
    if (!options.texts.empty()) file.strings = Catalogue({options.texts}).Table("panel texts", kFirstToolkitString);
    const Packing packing = options.uncompressed ? Packing::Plain : Packing::Compressed;
    WriteFile(options.output, WriteResourceFile(file, options.order, packing));
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Makes the panel's resource file from colours, fonts, drawings and texts.", "resource-compiler");
    app.add_option("--palette", options.palette, "colours (JSON)")->required();
    app.add_option("--fonts", options.fonts, "fonts (JSON)");
    app.add_option("--bitmaps", options.bitmaps, "bitmaps and soft keys (JSON; the drawings lie beside it)");
    app.add_option("--texts", options.texts, "texts of the base language (PO), numbers 100 and up");
    app.add_option("-o,--output", options.output, "file to write")->required();
    AddByteOrder(app, options.order);
    app.add_flag("--uncompressed", options.uncompressed, "keep glyphs and pixels as they are");
    return RunProgram(app, argc, argv, [&] { Compile(options); });
}
