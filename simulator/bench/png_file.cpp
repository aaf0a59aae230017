#include "simulator/bench/png_file.h"

#include <png.h>

namespace {

png_image ImageOf(int width, int height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    return image;
}

}  // namespace

RgbPixels Expand(std::span<const std::uint16_t> frame) {
    RgbPixels pixels;
    pixels.reserve(frame.size() * 3);
    for (const std::uint16_t pixel : frame) {
        const unsigned red = pixel >> 11;
        const unsigned green = pixel >> 5 & 0x3F;
        const unsigned blue = pixel & 0x1F;
        pixels.push_back(static_cast<std::uint8_t>(red << 3 | red >> 2));
        pixels.push_back(static_cast<std::uint8_t>(green << 2 | green >> 4));
        pixels.push_back(static_cast<std::uint8_t>(blue << 3 | blue >> 2));
    }
    return pixels;
}

bool WritePngFile(const std::filesystem::path& path, const RgbPixels& pixels, int width, int height) {
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    png_image image = ImageOf(width, height);
    return png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr) != 0;
}

bool ReadPngFile(const std::filesystem::path& path, RgbPixels& pixels, int width, int height) {
    png_image image = ImageOf(0, 0);
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return false;
    const bool sized = static_cast<int>(image.width) == width && static_cast<int>(image.height) == height;
    image.format = PNG_FORMAT_RGB;
    pixels.resize(PNG_IMAGE_SIZE(image));
    return png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0 && sized;
}
