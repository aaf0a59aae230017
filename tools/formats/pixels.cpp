#include "tools/formats/pixels.h"

#include <algorithm>

#include "tools/formats/source_error.h"

namespace {

constexpr std::size_t kLongestRun = 0x8000;
constexpr std::uint16_t kLiteralRun = 0x8000;

using Words = std::vector<std::uint16_t>;

// One or two words a pixel: the colour and, with alpha, its coverage. Pixels that nobody sees are all alike.
Words ToWords(const Image& image, PixelFormat format) {
    Words words;
    for (const Image::Pixel& pixel : image.pixels) {
        const bool seen = pixel.alpha != 0 || format == PixelFormat::Opaque;
        const std::uint16_t colour = seen ? ToRgb565(pixel) : 0;
        switch (format) {
            case PixelFormat::Opaque: words.push_back(colour); break;
            case PixelFormat::Transparent:
                words.push_back(!seen ? kTransparentValue : colour == kTransparentValue ? 0 : colour);
                break;
            case PixelFormat::Alpha: words.insert(words.end(), {colour, pixel.alpha}); break;
        }
    }
    return words;
}

int FlagOf(PixelFormat format) {
    switch (format) {
        case PixelFormat::Opaque: return 0;
        case PixelFormat::Transparent: return kBitmapTransparent;
        case PixelFormat::Alpha: return kBitmapAlpha;
    }
    return 0;
}

class RunLengthRow {
public:
    RunLengthRow(std::span<const std::uint16_t> row, std::size_t wordsPerPixel)
        : m_row(row), m_step(wordsPerPixel), m_count(row.size() / wordsPerPixel) {}

    void AppendTo(Words& out) const {
        for (std::size_t at = 0; at < m_count;) {
            const std::size_t repeats = RepeatsFrom(at);
            at += repeats >= kWorthwhile ? PutRun(out, at, repeats) : PutLiterals(out, at);
        }
    }

private:
    static constexpr std::size_t kWorthwhile = 3;  // shorter runs cost as much as their pixels

    [[nodiscard]] std::span<const std::uint16_t> PixelAt(std::size_t at) const {
        return m_row.subspan(at * m_step, m_step);
    }

    [[nodiscard]] std::size_t RepeatsFrom(std::size_t at) const {
        std::size_t end = at + 1;
        while (end < m_count && end - at < kLongestRun && std::ranges::equal(PixelAt(at), PixelAt(end))) ++end;
        return end - at;
    }

    std::size_t PutRun(Words& out, std::size_t at, std::size_t repeats) const {
        out.push_back(static_cast<std::uint16_t>(repeats - 1));
        out.insert(out.end(), PixelAt(at).begin(), PixelAt(at).end());
        return repeats;
    }

    std::size_t PutLiterals(Words& out, std::size_t at) const {
        std::size_t end = at;
        while (end < m_count && end - at < kLongestRun && RepeatsFrom(end) < kWorthwhile) ++end;
        out.push_back(static_cast<std::uint16_t>(kLiteralRun | (end - at - 1)));
        const auto pixels = m_row.subspan(at * m_step, (end - at) * m_step);
        out.insert(out.end(), pixels.begin(), pixels.end());
        return end - at;
    }

    std::span<const std::uint16_t> m_row;
    std::size_t m_step;
    std::size_t m_count;
};

Words Unrolled(const Bitmap& bitmap, std::span<const std::uint16_t> words, std::size_t wordsPerPixel) {
    Words out;
    const std::size_t total = std::size_t{bitmap.width} * bitmap.height * wordsPerPixel;
    const auto damaged = [&] { return SourceError("bitmap " + std::to_string(bitmap.number), "its runs are damaged"); };
    while (out.size() < total) {
        if (words.empty()) throw damaged();
        const bool literal = (words[0] & kLiteralRun) != 0;
        const std::size_t count = std::size_t{words[0] & (kLiteralRun - 1U)} + 1;
        const std::size_t given = (literal ? count : 1) * wordsPerPixel;
        const std::size_t rowRest = bitmap.width - out.size() / wordsPerPixel % bitmap.width;
        if (words.size() < given + 1 || count > rowRest) throw damaged();
        for (std::size_t i = 0; i < count; ++i) {
            const auto pixel = words.subspan(1 + (literal ? i : 0) * wordsPerPixel, wordsPerPixel);
            out.insert(out.end(), pixel.begin(), pixel.end());
        }
        words = words.subspan(given + 1);
    }
    return out;
}

}  // namespace

std::uint16_t ToRgb565(Image::Pixel pixel) {
    return static_cast<std::uint16_t>((pixel.red * 31 + 127) / 255 << 11 | (pixel.green * 63 + 127) / 255 << 5 |
                                      (pixel.blue * 31 + 127) / 255);
}

Image::Pixel FromRgb565(std::uint16_t value) {
    const auto widen = [](int part, int most) { return static_cast<std::uint8_t>((part * 255 + most / 2) / most); };
    return {widen(value >> 11, 31), widen(value >> 5 & 0x3F, 63), widen(value & 0x1F, 31), 255};
}

Bitmap ToBitmap(std::uint32_t number, const Image& image, PixelFormat format) {
    const std::size_t wordsPerPixel = format == PixelFormat::Alpha ? 2 : 1;
    const Words plain = ToWords(image, format);
    const std::size_t rowWords = static_cast<std::size_t>(image.width) * wordsPerPixel;
    Words runs;
    for (std::size_t at = 0; at < plain.size(); at += rowWords) {
        RunLengthRow(std::span(plain).subspan(at, rowWords), wordsPerPixel).AppendTo(runs);
    }
    const bool useRuns = runs.size() < plain.size();
    ByteWriter data(ByteOrder::Little);
    for (const std::uint16_t word : useRuns ? runs : plain) data.U16(word);
    const int flags = FlagOf(format) | (useRuns ? kBitmapRunLength : 0);
    return {.number = number,
            .flags = static_cast<std::uint8_t>(flags),
            .bitsPerPixel = static_cast<std::uint8_t>(wordsPerPixel * 16),
            .width = static_cast<std::uint16_t>(image.width),
            .height = static_cast<std::uint16_t>(image.height),
            .transparent = format == PixelFormat::Transparent ? kTransparentValue : 0U,
            .data = data.Result()};
}

Bitmap ToSmallestBitmap(std::uint32_t number, const Image& image) {
    const auto all = [&](auto holds) { return std::ranges::all_of(image.pixels, holds, &Image::Pixel::alpha); };
    if (all([](int alpha) { return alpha == 255; })) return ToBitmap(number, image, PixelFormat::Opaque);
    const bool hard = all([](int alpha) { return alpha == 0 || alpha == 255; });
    return ToBitmap(number, image, hard ? PixelFormat::Transparent : PixelFormat::Alpha);
}

Image ToImage(const Bitmap& bitmap) {
    const std::string name = "bitmap " + std::to_string(bitmap.number);
    if (bitmap.bitsPerPixel != 16 && bitmap.bitsPerPixel != 32) throw SourceError(name, "has no colours of its own");
    const std::size_t wordsPerPixel = bitmap.bitsPerPixel / 16U;
    Words words;
    for (std::size_t i = 0; i + 1 < bitmap.data.size(); i += 2) {
        words.push_back(static_cast<std::uint16_t>(bitmap.data[i] | bitmap.data[i + 1] << 8));
    }
    if (bitmap.flags & kBitmapRunLength) words = Unrolled(bitmap, words, wordsPerPixel);
    if (words.size() != std::size_t{bitmap.width} * bitmap.height * wordsPerPixel) {
        throw SourceError(name, "its pixels are not all there");
    }
    Image image(bitmap.width, bitmap.height);
    const bool alphaFirst = (bitmap.flags & kBitmapAlphaFirst) != 0;
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const auto pixel = std::span(words).subspan(i * wordsPerPixel, wordsPerPixel);
        image.pixels[i] = FromRgb565(pixel[alphaFirst && wordsPerPixel == 2 ? 1 : 0]);
        if (wordsPerPixel == 2) image.pixels[i].alpha = static_cast<std::uint8_t>(pixel[alphaFirst ? 0 : 1]);
        if ((bitmap.flags & kBitmapTransparent) && pixel[0] == bitmap.transparent) image.pixels[i].alpha = 0;
    }
    return image;
}
