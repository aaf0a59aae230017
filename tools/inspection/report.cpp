#include "tools/inspection/report.h"

#include <array>
#include <iomanip>
#include <string>

#include "tools/formats/utf.h"

namespace {

using Json = nlohmann::ordered_json;

std::string FormatOf(const Bitmap& bitmap) {
    std::string format = std::to_string(bitmap.bitsPerPixel) + " bits";
    if (bitmap.flags & kBitmapRunLength) format += ", runs";
    if (bitmap.flags & kBitmapTransparent) format += ", transparent value";
    if (bitmap.flags & kBitmapAlpha) format += ", alpha";
    if (bitmap.flags & kBitmapAlphaFirst) format += " first";
    return format;
}

std::string Hex(std::uint32_t value, int digits) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*X", digits, value);
    return text.data();
}

Json Describe(const Font& font, std::uint32_t number) {
    Json pages = Json::array();
    for (const FontPage& page : font.pages) {
        pages.push_back({{"first", Hex(page.firstChar, 4)},
                         {"last", Hex(page.lastChar, 4)},
                         {"columns", page.offsets.back()},
                         {"bytes", page.glyphs.size()}});
    }
    return {{"number", number},
            {"name", font.name},
            {"height", font.Height()},
            {"ascent", font.pages.front().ascent},
            {"descent", font.pages.front().descent},
            {"figureWidth", font.TextWidth(u"0")},
            {"pages", std::move(pages)}};
}

Json Describe(const StringTable& strings, std::uint32_t first) {
    Json languages = Json::array();
    for (const Language& language : strings.languages) {
        Json texts = Json::object();
        for (std::size_t i = 0; i < language.texts.size(); ++i) {
            if (!language.texts[i].empty()) texts[std::to_string(first + i)] = ToUtf8(language.texts[i]);
        }
        languages.push_back({{"name", language.name}, {"texts", std::move(texts)}});
    }
    return {{"name", strings.name}, {"first", first}, {"languages", std::move(languages)}};
}

void PrintStrings(std::ostream& out, const StringTable& strings, std::uint32_t first) {
    for (const Language& language : strings.languages) {
        const auto present = std::ranges::count_if(language.texts, [](const auto& text) { return !text.empty(); });
        out << "language \"" << language.name << "\": " << present << " texts, numbers " << first << " to "
            << first + language.texts.size() - 1 << '\n';
    }
}

void PrintTable(std::ostream& out, const char* name, const SubstitutionTable& table) {
    out << name << ": " << table.rows.size() << " sets of " << table.Columns() << '\n';
}

}  // namespace

void PrintResources(std::ostream& out, const ResourceFile& file) {
    if (file.strings) PrintStrings(out, *file.strings, kFirstToolkitString);
    for (const ResourceSet& set : file.sets) {
        out << "set: " << set.fonts.size() << " fonts, " << set.bitmaps.size() << " bitmaps, " << set.colours.size()
            << " colours" << (set.palette ? ", a palette" : "") << '\n';
        std::uint32_t number = kFirstFontNumber;
        for (const Font& font : set.fonts) {
            const FontPage& page = font.pages.front();
            out << "font " << number++ << ": " << std::left << std::setw(28) << font.name << std::right << " height "
                << font.Height() << " = " << int{page.ascent} << " + " << int{page.descent} << ", figures "
                << font.TextWidth(u"0") << " wide, " << font.pages.size() << " pages\n";
        }
        for (const Bitmap& bitmap : set.bitmaps) {
            out << "bitmap " << bitmap.number << ": " << bitmap.width << " x " << bitmap.height << ", "
                << FormatOf(bitmap) << ", " << bitmap.data.size() << " bytes\n";
        }
        for (const Colour& colour : set.colours) {
            out << "colour " << colour.number << ": " << Hex(colour.value, 4) << '\n';
        }
    }
}

void PrintLocalization(std::ostream& out, const LocalizationFile& file) {
    PrintStrings(out, file.strings, 0);
    PrintTable(out, "measurement symbols", file.measurementSymbols);
    PrintTable(out, "phase labels", file.phaseLabels);
}

Json DescribeResources(const ResourceFile& file) {
    Json sets = Json::array();
    for (const ResourceSet& set : file.sets) {
        Json fonts = Json::array();
        for (const Font& font : set.fonts) {
            fonts.push_back(Describe(font, kFirstFontNumber + static_cast<std::uint32_t>(fonts.size())));
        }
        Json bitmaps = Json::array();
        for (const Bitmap& bitmap : set.bitmaps) {
            bitmaps.push_back({{"number", bitmap.number},
                               {"width", bitmap.width},
                               {"height", bitmap.height},
                               {"format", FormatOf(bitmap)},
                               {"bytes", bitmap.data.size()}});
        }
        Json colours = Json::object();
        for (const Colour& colour : set.colours) colours[std::to_string(colour.number)] = Hex(colour.value, 4);
        sets.push_back({{"fonts", std::move(fonts)}, {"bitmaps", std::move(bitmaps)}, {"colours", std::move(colours)}});
    }
    Json result{{"sets", std::move(sets)}};
    if (file.strings) result["strings"] = Describe(*file.strings, kFirstToolkitString);
    return result;
}

Json DescribeLocalization(const LocalizationFile& file) {
    return {{"strings", Describe(file.strings, 0)},
            {"measurementSymbols", file.measurementSymbols.rows},
            {"phaseLabels", file.phaseLabels.rows}};
}
