#include "tools/inspection/picture.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kGap = 6;
constexpr int kSquare = 4;  // of the chequer

constexpr int kFigureWidth = 3;
constexpr int kFigureHeight = 5;
// Five rows of three pixels each, top row first, for the figures 0 to 9.
constexpr std::array<std::uint16_t, 10> kFigures = {0x7B6F, 0x2C97, 0x73E7, 0x73CF, 0x5BC9,
                                                    0x79CF, 0x79EF, 0x7249, 0x7BEF, 0x7BCF};

void Blend(Image& on, int left, int top, const Image& from) {
    for (int y = 0; y < from.height; ++y) {
        for (int x = 0; x < from.width; ++x) {
            const Image::Pixel above = from.At(x, y);
            Image::Pixel& below = on.At(left + x, top + y);
            const auto mix = [&](std::uint8_t a, std::uint8_t b) {
                return static_cast<std::uint8_t>((a * above.alpha + b * (255 - above.alpha) + 127) / 255);
            };
            below = {mix(above.red, below.red), mix(above.green, below.green), mix(above.blue, below.blue), 255};
        }
    }
}

Image Chequer(int width, int height) {
    Image image(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint8_t grey = (x / kSquare + y / kSquare) % 2 == 0 ? 226 : 214;
            image.At(x, y) = {grey, grey, grey, 255};
        }
    }
    return image;
}

}  // namespace

void ContactSheet::Add(const Image& tile, const std::string& caption) {
    const Image label = DrawCaption(caption);
    const int width = std::max(tile.width, label.width);
    if (m_x > 0 && m_x + width + kGap > m_width) {
        m_x = 0;
        m_y += m_lineHeight + kGap;
        m_lineHeight = 0;
    }
    const int x = m_x + kGap;
    const int y = m_y + kGap;
    m_tiles.push_back({x, y, label});
    m_tiles.push_back({x, y + label.height + 2, tile});
    m_x += width + kGap;
    m_lineHeight = std::max(m_lineHeight, label.height + 2 + tile.height);
}

Image ContactSheet::Finish() const {
    int right = m_width;
    for (const Tile& tile : m_tiles) right = std::max(right, tile.x + tile.image.width + kGap);
    Image sheet = Chequer(right, m_y + m_lineHeight + 2 * kGap);
    for (const Tile& tile : m_tiles) Blend(sheet, tile.x, tile.y, tile.image);
    return sheet;
}

Image DrawText(const Font& font, std::u16string_view text) {
    Image image(std::max(font.TextWidth(text), 1), std::max(font.Height(), 1));
    std::ranges::fill(image.pixels, Image::Pixel{255, 255, 255, 255});
    int left = 0;
    for (const char16_t character : text) {
        const FontPage* page = font.PageOf(character);
        if (page == nullptr) continue;
        const std::size_t index = character - page->firstChar;
        const int first = page->offsets[index];
        const int width = page->offsets[index + 1] - first;
        for (int y = 0; y < page->height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int column = first + x;
                const int coverage = page->Coverage(static_cast<std::size_t>(column), static_cast<std::size_t>(y));
                const auto grey = static_cast<std::uint8_t>(255 - coverage * 17);
                image.At(left + x, y) = {grey, grey, grey, 255};
            }
        }
        left += width;
    }
    return image;
}

Image DrawCaption(const std::string& digits) {
    Image image(std::max(static_cast<int>(digits.size()) * (kFigureWidth + 1), 1), kFigureHeight);
    int left = 0;
    for (const char digit : digits) {
        const std::uint16_t rows = digit >= '0' && digit <= '9' ? kFigures[static_cast<std::size_t>(digit - '0')] : 0;
        for (int bit = 0; bit < kFigureWidth * kFigureHeight; ++bit) {
            if ((rows >> (kFigureWidth * kFigureHeight - 1 - bit) & 1) != 0) {
                image.At(left + bit % kFigureWidth, bit / kFigureWidth) = {60, 60, 60, 255};
            }
        }
        left += kFigureWidth + 1;
    }
    return image;
}
