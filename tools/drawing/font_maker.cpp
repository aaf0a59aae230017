#include "tools/drawing/font_maker.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

#include "tools/drawing/outline_face.h"
#include "tools/formats/json_source.h"
#include "tools/formats/utf.h"

namespace {

// A line is as high as this, and higher where the tallest letters of the panel's languages ask for a pixel more.
constexpr double kAscent = 0.93;  // of the size
constexpr double kDescent = 0.24;
constexpr std::u16string_view kTallest = u"ÄÉÈÊÑÓÚЙЁ";
constexpr std::u16string_view kDeepest = u"gjpqyçQЩЦ";
constexpr int kMostSize = 200;

struct Range {
    char16_t first;
    char16_t last;
};

// "0020-007E" or "2026"
Range ReadRange(const JsonSource& source) {
    const std::string text = source.Text();
    const auto point = [&](const char* from, const char* to) {
        unsigned value = 0;
        const auto [end, error] = std::from_chars(from, to, value, 16);
        if (error != std::errc{} || end != to || value > 0xFFFF) source.Fail("\"" + text + "\" is no range");
        return static_cast<char16_t>(value);
    };
    const char* end = text.data() + text.size();
    const char* dash = std::find(text.data(), end, '-');
    const char16_t first = point(text.data(), dash);
    const char16_t last = dash == end ? first : point(dash + 1, end);
    if (last < first) source.Fail("\"" + text + "\" runs backwards");
    return {first, last};
}

std::uint8_t ToFourBits(std::uint8_t coverage) { return static_cast<std::uint8_t>((coverage * 15 + 127) / 255); }

class PageMaker {
public:
    PageMaker(const OutlineFace& face, const OutlineFace& fallback, int size) : m_face(face), m_fallback(fallback) {
        long ascent = std::lround(size * kAscent);
        for (const char16_t letter : kTallest) ascent = std::max<long>(ascent, face.Draw(letter).top);
        long descent = std::lround(size * kDescent);
        for (const char16_t letter : kDeepest) {
            const Glyph glyph = face.Draw(letter);
            descent = std::max<long>(descent, glyph.height - glyph.top);
        }
        m_page.flags = kFontFourBits;
        m_page.ascent = static_cast<std::uint8_t>(ascent);
        m_page.descent = static_cast<std::uint8_t>(descent);
        m_page.height = static_cast<std::uint8_t>(ascent + descent);
    }

    FontPage Make(Range range) {
        m_page.firstChar = range.first;
        m_page.lastChar = range.last;
        for (unsigned character = range.first; character <= range.last; ++character) {
            Place(static_cast<char16_t>(character));
        }
        m_page.offsets.push_back(static_cast<std::uint16_t>(m_width));
        m_page.bytesPerRow = static_cast<std::uint16_t>((m_width + 1) / 2);
        m_page.glyphs.resize(std::size_t{m_page.bytesPerRow} * m_page.height);
        for (const auto& [column, glyph] : m_glyphs) Paint(column, glyph);
        return std::move(m_page);
    }

private:
    // A glyph moved to stand in its cell, and how wide the cell is.
    struct Cell {
        Glyph glyph;
        int width = 0;
    };

    Cell CellOf(char16_t character) const {
        const bool own = m_face.Holds(character);
        if (!own && !m_fallback.Holds(character)) return {};
        Cell cell{.glyph = (own ? m_face : m_fallback).Draw(character), .width = 0};
        const int shift = std::max(0, -cell.glyph.left);
        cell.glyph.left += shift;
        cell.width = std::max(cell.glyph.advance + shift, cell.glyph.left + cell.glyph.width);
        return cell;
    }

    // Figures change while they are looked at: they share one width, the widest one's, so that nothing moves.
    int FigureWidth() const {
        int width = 0;
        for (char16_t figure = u'0'; figure <= u'9'; ++figure) width = std::max(width, CellOf(figure).width);
        return width;
    }

    void Place(char16_t character) {
        m_page.offsets.push_back(static_cast<std::uint16_t>(m_width));
        Cell cell = CellOf(character);
        if (character >= u'0' && character <= u'9') cell.width = FigureWidth();
        m_glyphs.emplace_back(m_width, std::move(cell.glyph));
        m_width += cell.width;
    }

    void Paint(int cell, const Glyph& glyph) {
        // A mark that would lie under the line, as the underscore of a small font, stands in its last row.
        const int top = std::min(m_page.ascent - glyph.top, m_page.height - 1);
        for (int row = 0; row < glyph.height; ++row) {
            const int y = top + row;
            if (y < 0 || y >= m_page.height) continue;
            for (int column = 0; column < glyph.width; ++column) {
                const int x = cell + glyph.left + column;
                const int pixel = row * glyph.width + column;
                const int place = y * m_page.bytesPerRow + x / 2;
                const std::uint8_t level = ToFourBits(glyph.coverage[static_cast<std::size_t>(pixel)]);
                auto& byte = m_page.glyphs[static_cast<std::size_t>(place)];
                byte = static_cast<std::uint8_t>(byte | (x % 2 == 0 ? level << 4 : level));
            }
        }
    }

    const OutlineFace& m_face;
    const OutlineFace& m_fallback;
    FontPage m_page;
    int m_width = 0;
    std::vector<std::pair<int, Glyph>> m_glyphs;  // by first column of the cell
};

class FontsFile {
public:
    explicit FontsFile(const std::filesystem::path& path) : m_file(JsonSource::Read(path)) {
        m_fallback = PathOf(m_file.At("fallback"));
    }

    std::vector<Font> Make() const {
        std::vector<Font> fonts;
        for (const JsonSource& font : m_file.At("fonts").Items()) {
            if (font.At("number").Number<std::uint16_t>() != kFirstFontNumber + fonts.size()) {
                font.Fail("its number does not follow the one before");
            }
            fonts.push_back(MakeFont(font));
        }
        return fonts;
    }

private:
    std::filesystem::path PathOf(const JsonSource& name) const { return m_file.At("faces").At(name.Text()).Text(); }

    Font MakeFont(const JsonSource& source) const {
        const int size = source.At("size").Number<std::uint8_t>();
        if (size < 1 || size > kMostSize) source.Fail("no size for a font");
        const OutlineFace face(PathOf(source.At("face")), size);
        const OutlineFace fallback(m_fallback, size);
        Font font{.name = source.At("face").Text() + " " + std::to_string(size), .pages = {}};
        for (const JsonSource& range : m_file.At("ranges").At(source.At("ranges").Text()).Items()) {
            font.pages.push_back(PageMaker(face, fallback, size).Make(ReadRange(range)));
        }
        return font;
    }

    JsonSource m_file;
    std::filesystem::path m_fallback;
};

}  // namespace

std::vector<Font> MakeFonts(const std::filesystem::path& path) { return FontsFile(path).Make(); }
