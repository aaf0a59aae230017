#include <filesystem>
#include <iomanip>
#include <iostream>

#include "tools/drawing/palette.h"
#include "tools/formats/program.h"

namespace {

constexpr std::uint16_t kWhite = 0xFFFF;
constexpr std::uint16_t kBlack = 0x0000;

void Print(const Palette& palette) {
    std::cout << "| number | name | colour | on white | on black | use |\n|---|---|---|---|---|---|\n"
              << std::fixed << std::setprecision(1);
    for (const Palette::Entry& entry : palette.Entries()) {
        std::cout << "| " << entry.number << " | " << entry.name << " | `" << HexOf(entry.value) << "` | "
                  << Contrast(entry.value, kWhite) << " | " << Contrast(entry.value, kBlack) << " | " << entry.use
                  << " |\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::filesystem::path palette;
    CLI::App app("Prints the contrast of every colour with white and black, as the panel shows it.", "contrast");
    app.add_option("palette", palette, "colours (JSON)")->required();
    return RunProgram(app, argc, argv, [&] { Print(Palette::Read(palette)); });
}
