#include "tests/bench/golden.h"

#include <cstdlib>
#include <filesystem>

#include "simulator/bench/png_file.h"

namespace {

/// White where two pictures are equal, red where not.
RgbPixels Difference(const RgbPixels& a, const RgbPixels& b, std::size_t& differing) {
    RgbPixels difference(a.size(), 0xFF);
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
    const RgbPixels pixels = Expand({frame, static_cast<std::size_t>(width) * static_cast<std::size_t>(height)});
    const char* rewrite = std::getenv("REWRITE_GOLDENS");
    if (rewrite != nullptr && *rewrite != 0) {
        if (WritePngFile(golden, pixels, width, height)) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "cannot write " << golden;
    }
    RgbPixels expected;
    if (!ReadPngFile(golden, expected, width, height)) {
        static_cast<void>(WritePngFile(actual, pixels, width, height));
        return ::testing::AssertionFailure() << "no golden " << golden << "; the panel is in " << actual;
    }
    if (expected == pixels) return ::testing::AssertionSuccess();
    std::size_t differing = 0;
    const RgbPixels marks = Difference(pixels, expected, differing);
    static_cast<void>(WritePngFile(actual, pixels, width, height));
    static_cast<void>(WritePngFile(difference, marks, width, height));
    return ::testing::AssertionFailure() << differing << " pixels differ from " << golden << "; see " << actual
                                         << " and " << difference;
}
