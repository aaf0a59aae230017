#include "tools/drawing/bitmap_maker.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "tools/drawing/svg.h"
#include "tools/formats/json_source.h"

namespace {

constexpr Image::Pixel kWhite{255, 255, 255, 255};
constexpr std::uint16_t kWhite565 = 0xFFFF;

struct Size {
    int width;
    int height;
};

Size ReadSize(const JsonSource& source) {
    const auto parts = source.Items();
    if (parts.size() != 2) source.Fail("a width and a height were expected");
    return {parts[0].Number<std::uint16_t>(), parts[1].Number<std::uint16_t>()};
}

Image::Pixel Over(Image::Pixel above, Image::Pixel below) {
    const auto mix = [&](std::uint8_t a, std::uint8_t b) {
        return static_cast<std::uint8_t>((a * above.alpha + b * (255 - above.alpha) + 127) / 255);
    };
    return {mix(above.red, below.red), mix(above.green, below.green), mix(above.blue, below.blue), 255};
}

void PaintCentred(Image& on, const Image& symbol) {
    const int left = (on.width - symbol.width) / 2;
    const int top = (on.height - symbol.height) / 2;
    for (int y = 0; y < symbol.height; ++y) {
        for (int x = 0; x < symbol.width; ++x) {
            auto& pixel = on.At(left + x, top + y);
            pixel = Over(symbol.At(x, y), pixel);
        }
    }
}

/// How much of a pixel lies inside a rectangle of that size with rounded corners, 0 to 255.
std::uint8_t RoundedCoverage(const Image& field, double radius, int x, int y) {
    const double dx = std::max({radius - (x + 0.5), x + 0.5 - (field.width - radius), 0.0});
    const double dy = std::max({radius - (y + 0.5), y + 0.5 - (field.height - radius), 0.0});
    const double inside = std::clamp(radius - std::hypot(dx, dy) + 0.5, 0.0, 1.0);
    return static_cast<std::uint8_t>(std::lround(inside * 255));
}

class BitmapsFile {
public:
    BitmapsFile(const std::filesystem::path& path, const Palette& palette)
        : m_file(JsonSource::Read(path)),
          m_folder(path.parent_path() / m_file.At("folder").Text()),
          m_palette(palette) {}

    std::vector<Bitmap> Make() {
        for (const JsonSource& drawing : m_file.At("bitmaps").Items()) AddDrawing(drawing);
        if (m_file.Has("softKeys")) AddSoftKeys(m_file.At("softKeys"));
        std::vector<Bitmap> bitmaps;
        for (const auto& [number, image] : m_images) bitmaps.push_back(ToSmallestBitmap(number, image));
        return bitmaps;
    }

private:
    void AddDrawing(const JsonSource& source) {
        const Size size = ReadSize(source.At("size"));
        const Image image = DrawSvg(m_folder / source.At("drawing").Text(), m_palette.Style());
        if (image.width != size.width || image.height != size.height) {
            source.Fail("the drawing is " + std::to_string(image.width) + " x " + std::to_string(image.height));
        }
        for (const JsonSource& number : source.At("numbers").Items()) Keep(number, image);
    }

    // One row a meaning: its symbol, the numbers of its normal look by scheme (0: none), and those of its other looks.
    void AddSoftKeys(const JsonSource& source) {
        const Size size = ReadSize(source.At("size"));
        const auto accents = source.At("accents").Items();
        const std::uint16_t held = ColourOf(source.At("held"));
        const std::uint16_t idle = ColourOf(source.At("outOfUse"));
        for (const JsonSource& key : source.At("keys").Items()) {
            const std::filesystem::path symbol = m_folder / key.At("symbol").Text();
            const auto numbers = key.At("normal").Items();
            if (numbers.size() != accents.size()) key.Fail("one number a scheme was expected");
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                if (numbers[i].Number<std::uint16_t>() == 0) continue;
                Keep(numbers[i], OnWhite(size, symbol, ColourOf(accents[i])));
            }
            Keep(key.At("held"), Held(size, symbol, held));
            if (key.Has("outOfUse")) Keep(key.At("outOfUse"), OnWhite(size, symbol, idle));
        }
    }

    Image Symbol(const std::filesystem::path& path, std::uint16_t colour) const {
        return DrawSvg(path, m_palette.Style() + "svg{color:" + HexOf(colour) + "}");
    }

    Image OnWhite(Size size, const std::filesystem::path& symbol, std::uint16_t colour) const {
        Image image(size.width, size.height);
        std::ranges::fill(image.pixels, kWhite);
        PaintCentred(image, Symbol(symbol, colour));
        return image;
    }

    Image Held(Size size, const std::filesystem::path& symbol, std::uint16_t colour) const {
        constexpr double kRadius = 4;
        Image image(size.width, size.height);
        for (int y = 0; y < image.height; ++y) {
            for (int x = 0; x < image.width; ++x) {
                Image::Pixel field = FromRgb565(colour);
                field.alpha = RoundedCoverage(image, kRadius, x, y);
                image.At(x, y) = Over(field, kWhite);
            }
        }
        PaintCentred(image, Symbol(symbol, kWhite565));
        return image;
    }

    std::uint16_t ColourOf(const JsonSource& source) const {
        const Palette::Entry* entry = m_palette.Find(source.Number<std::uint16_t>());
        if (entry == nullptr) source.Fail("the palette has no such colour");
        return entry->value;
    }

    void Keep(const JsonSource& number, const Image& image) {
        if (!m_images.try_emplace(number.Number<std::uint16_t>(), image).second)
            number.Fail("this number stands twice");
    }

    JsonSource m_file;
    std::filesystem::path m_folder;
    const Palette& m_palette;
    std::map<std::uint32_t, Image> m_images;
};

}  // namespace

std::vector<Bitmap> MakeBitmaps(const std::filesystem::path& path, const Palette& palette) {
    return BitmapsFile(path, palette).Make();
}
