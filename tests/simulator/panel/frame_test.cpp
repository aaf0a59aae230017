#include "simulator/panel/frame.h"

#include <gtest/gtest.h>
#include <png.h>

#include <array>

namespace {

/// A frame that holds every colour: pixel n has the value n, and the rest begin anew.
panel::Frame EveryColour() {
    panel::Frame frame{};
    for (std::size_t i = 0; i < frame.size() / 2; ++i) {
        frame[2 * i] = static_cast<std::uint8_t>(i & 0xFF);
        frame[2 * i + 1] = static_cast<std::uint8_t>(i >> 8 & 0xFF);
    }
    return frame;
}

TEST(Frame, ComesBackFromThePngPixelByPixel) {
    const std::vector<std::uint8_t> png = panel::EncodePng(EveryColour());
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_memory(&image, png.data(), png.size()), 0);
    ASSERT_EQ(image.width, 320U);
    ASSERT_EQ(image.height, 240U);
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
    for (std::size_t i = 0; i < pixels.size() / 3; ++i) {
        // Rounded to the nearest of so many steps, a channel gives back the value that it was made from.
        const auto step = [&](std::size_t channel, unsigned steps) {
            return (pixels[3 * i + channel] * steps + 127) / 255;
        };
        ASSERT_EQ(step(0, 31) << 11 | step(1, 63) << 5 | step(2, 31), i & 0xFFFF);
    }
    EXPECT_EQ(pixels[3 * 0xFFFF], 255) << "white is white";
}

}  // namespace
