#include "tools/gallery/readme_picture.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "platform/panel.h"
#include "simulator/bench/png_file.h"

namespace {

constexpr int kColumns = 3;
constexpr int kGap = 8;
constexpr std::uint16_t kBetween = 0x7C31;
constexpr std::array<std::string_view, 6> kShown = {"screen-4", "screen-68", "screen-66",
                                                    "menu-2-4", "screen-17", "screen-148-confirmation"};
constexpr int kRows = static_cast<int>(kShown.size()) / kColumns;
constexpr int kWidth = kColumns * (kPanelWidth + kGap) + kGap;
constexpr int kHeight = kRows * (kPanelHeight + kGap) + kGap;

const PanelPicture& Find(std::span<const PanelPicture> walk, std::string_view name) {
    const auto found = std::ranges::find(walk, name, &PanelPicture::name);
    if (found == walk.end()) throw std::runtime_error("the walk has no picture " + std::string(name));
    return *found;
}

RgbPixels Compose(std::span<const PanelPicture> walk) {
    std::vector<std::uint16_t> sheet(static_cast<std::size_t>(kWidth) * kHeight, kBetween);
    for (int i = 0; i < static_cast<int>(kShown.size()); ++i) {
        const PanelPicture& picture = Find(walk, kShown[static_cast<std::size_t>(i)]);
        const int left = kGap + i % kColumns * (kPanelWidth + kGap);
        const int top = kGap + i / kColumns * (kPanelHeight + kGap);
        for (int y = 0; y < kPanelHeight; ++y) {
            std::copy_n(picture.pixels.begin() + std::ptrdiff_t{y} * kPanelWidth, kPanelWidth,
                        sheet.begin() + std::ptrdiff_t{top + y} * kWidth + left);
        }
    }
    return Expand(sheet);
}

}  // namespace

void WriteReadmePicture(const std::filesystem::path& path, std::span<const PanelPicture> walk) {
    if (!WritePngFile(path, Compose(walk), kWidth, kHeight)) throw std::runtime_error("cannot write " + path.string());
}

bool IsReadmePicture(const std::filesystem::path& path, std::span<const PanelPicture> walk) {
    RgbPixels shown;
    return ReadPngFile(path, shown, kWidth, kHeight) && shown == Compose(walk);
}
