#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

/// Compares a frame of RGB565 pixels with the golden picture of that name, pixel by pixel.
///
/// A missing golden fails. A difference leaves the actual picture and one of the differing pixels in the build folder's
/// goldens/. With the environment variable REWRITE_GOLDENS set, the frame becomes the golden.
::testing::AssertionResult FrameMatchesGolden(const std::uint16_t* frame, int width, int height,
                                              const std::string& name);
