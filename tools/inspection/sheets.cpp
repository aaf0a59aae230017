#include "tools/inspection/sheets.h"

#include "tools/inspection/picture.h"
#include "tools/inspection/png.h"

namespace {

constexpr int kSheetWidth = 680;
constexpr std::u16string_view kSample = u"0123456789 -1.5 kVAR Hg Ägyptçé Ωφ Ждщ";

Image Page(const Font& font, const FontPage& page) {
    std::u16string all;
    for (unsigned character = page.firstChar; character <= page.lastChar; ++character) {
        all.push_back(static_cast<char16_t>(character));
    }
    return DrawText(font, all);
}

// A long page in lines of the sheet's width.
std::vector<Image> Lines(const Image& strip) {
    constexpr int kLine = kSheetWidth - 20;
    std::vector<Image> lines;
    for (int left = 0; left < strip.width; left += kLine) {
        Image line(std::min(kLine, strip.width - left), strip.height);
        for (int y = 0; y < line.height; ++y) {
            for (int x = 0; x < line.width; ++x) line.At(x, y) = strip.At(left + x, y);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace

void WriteFontSheets(const std::filesystem::path& folder, const ResourceFile& file) {
    for (const ResourceSet& set : file.sets) {
        std::uint32_t number = kFirstFontNumber;
        for (const Font& font : set.fonts) {
            ContactSheet sheet(kSheetWidth);
            sheet.Add(DrawText(font, kSample), std::to_string(number));
            for (const FontPage& page : font.pages) {
                for (const Image& line : Lines(Page(font, page))) sheet.Add(line, "");
            }
            WritePng(folder / ("font-" + std::to_string(number) + ".png"), sheet.Finish());
            ++number;
        }
    }
}

void WriteBitmapSheets(const std::filesystem::path& folder, const ResourceFile& file) {
    ContactSheet sheet(kSheetWidth);
    for (const ResourceSet& set : file.sets) {
        for (const Bitmap& bitmap : set.bitmaps) {
            const std::string number = std::to_string(bitmap.number);
            const Image image = ToImage(bitmap);
            WritePng(folder / ("bitmap-" + number + ".png"), image);
            sheet.Add(image, number);
        }
    }
    WritePng(folder / "sheet.png", sheet.Finish());
}
