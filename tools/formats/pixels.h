#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "tools/formats/resource_file.h"

/// A picture in plain colours, rows top to bottom, not premultiplied.
struct Image {
    struct Pixel {
        std::uint8_t red = 0;
        std::uint8_t green = 0;
        std::uint8_t blue = 0;
        std::uint8_t alpha = 0;

        bool operator==(const Pixel&) const = default;
    };

    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    Image() = default;
    Image(int columns, int rows) : width(columns), height(rows), pixels(Area(columns, rows)) {}

    [[nodiscard]] Pixel& At(int x, int y) { return pixels[Area(width, y) + static_cast<std::size_t>(x)]; }
    [[nodiscard]] const Pixel& At(int x, int y) const { return pixels[Area(width, y) + static_cast<std::size_t>(x)]; }

private:
    static std::size_t Area(int columns, int rows) {
        return static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    }
};

[[nodiscard]] std::uint16_t ToRgb565(Image::Pixel pixel);
[[nodiscard]] Image::Pixel FromRgb565(std::uint16_t value);

/// One word a pixel, one word with a value that is not drawn, or two words with a coverage of 0 to 255.
enum class PixelFormat { Opaque, Transparent, Alpha };

constexpr std::uint16_t kTransparentValue = 0x0001;

/// The picture as a bitmap of the file, run-length encoded where that makes it smaller.
[[nodiscard]] Bitmap ToBitmap(std::uint32_t number, const Image& image, PixelFormat format);

/// The same in the smallest format that shows the picture as it is.
[[nodiscard]] Bitmap ToSmallestBitmap(std::uint32_t number, const Image& image);

/// The picture that a 16- or 32-bit bitmap shows.
/// @throws SourceError when its runs do not fill its rows
[[nodiscard]] Image ToImage(const Bitmap& bitmap);
