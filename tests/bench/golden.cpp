#include "tests/bench/golden.h"

#include <png.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

using Pixels = std::vector<std::uint8_t>;  // red, green, blue

Pixels Expand(const std::uint16_t* frame, std::size_t count) {
    Pixels pixels;
    pixels.reserve(count * 3);
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned red = frame[i] >> 11;
        const unsigned green = frame[i] >> 5 & 0x3F;
        const unsigned blue = frame[i] & 0x1F;
        pixels.push_back(static_cast<std::uint8_t>(red << 3 | red >> 2));
        pixels.push_back(static_cast<std::uint8_t>(green << 2 | green >> 4));
        pixels.push_back(static_cast<std::uint8_t>(blue << 3 | blue >> 2));
    }
    return pixels;
}

png_image ImageOf(int width, int height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    return image;
}

bool Write(const std::filesystem::path& path, const Pixels& pixels, int width, int height) {
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    png_image image = ImageOf(width, height);
    return png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr) != 0;
}

bool Read(const std::filesystem::path& path, Pixels& pixels, int width, int height) {
    png_image image = ImageOf(0, 0);
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return false;
    const bool sized = static_cast<int>(image.width) == width && static_cast<int>(image.height) == height;
    image.format = PNG_FORMAT_RGB;
    pixels.resize(PNG_IMAGE_SIZE(image));
    return png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0 && sized;
}

/// White where two pictures are equal, red where not.
Pixels Difference(const Pixels& a, const Pixels& b, std::size_t& differing) {
    Pixels difference(a.size(), 0xFF);
    for (std::size_t i = 0; i + 2 < a.size(); i += 3) {
        if (a[i] == b[i] && a[i + 1] == b[i + 1] && a[i + 2] == b[i + 2]) continue;
        difference[i + 1] = difference[i + 2] = 0;
        ++differing;
    }
    return difference;
}

}  // namespace

::testing::AssertionResult FrameMatchesGolden(const std::uint16_t* frame, int width, int height,
                                              const std::string& name) {
    const std::filesystem::path golden = std::filesystem::path(GOLDENS_DIR) / (name + ".png");
    const std::filesystem::path actual = std::filesystem::path(ACTUAL_DIR) / (name + ".png");
    const std::filesystem::path difference = std::filesystem::path(ACTUAL_DIR) / (name + ".difference.png");
    const Pixels pixels = Expand(frame, static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const char* rewrite = std::getenv("REWRITE_GOLDENS");
    if (rewrite != nullptr && *rewrite != 0) {
        if (Write(golden, pixels, width, height)) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "cannot write " << golden;
    }
    Pixels expected;
    if (!Read(golden, expected, width, height)) {
        Write(actual, pixels, width, height);
        return ::testing::AssertionFailure() << "no golden " << golden << "; the panel is in " << actual;
    }
    if (expected == pixels) return ::testing::AssertionSuccess();
    std::size_t differing = 0;
    const Pixels marks = Difference(pixels, expected, differing);
    Write(actual, pixels, width, height);
    Write(difference, marks, width, height);
    return ::testing::AssertionFailure() << differing << " pixels differ from " << golden << "; see " << actual
                                         << " and " << difference;
}
