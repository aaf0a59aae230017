#include "simulator/panel/frame.h"

#include <png.h>

#include <stdexcept>

namespace panel {
namespace {

constexpr std::size_t kPngPixelBytes = 3;

/// Spreads a channel of `bits` bits over eight, so that none stays 0 and all becomes 255.
constexpr std::uint8_t Widen(unsigned value, unsigned bits) {
    return static_cast<std::uint8_t>((value << (8 - bits)) | (value >> (2 * bits - 8)));
}
static_assert(Widen(0x1F, 5) == 255 && Widen(0x3F, 6) == 255 && Widen(0x10, 5) == 0x84 && Widen(0, 6) == 0);

std::vector<std::uint8_t> Rgb888(const Frame& frame) {
    std::vector<std::uint8_t> pixels;
    pixels.reserve(frame.size() / 2 * kPngPixelBytes);
    for (std::size_t at = 0; at < frame.size(); at += 2) {
        const unsigned pixel = frame[at] | (unsigned{frame[at + 1]} << 8);
        pixels.push_back(Widen(pixel >> 11, 5));
        pixels.push_back(Widen((pixel >> 5) & 0x3F, 6));
        pixels.push_back(Widen(pixel & 0x1F, 5));
    }
    return pixels;
}

}  // namespace

std::vector<std::uint8_t> EncodePng(const Frame& frame) {
    const std::vector<std::uint8_t> pixels = Rgb888(frame);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = kPanelWidth;
    image.height = kPanelHeight;
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::vector<std::uint8_t> png(size);
    if (png_image_write_to_memory(&image, png.data(), &size, 0, pixels.data(), 0, nullptr) == 0)
        throw std::runtime_error(image.message);
    png.resize(size);
    return png;
}

}  // namespace panel
