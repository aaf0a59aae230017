#include <random>

#include "peg/core/screen.h"
#include "peg/port/pixel.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

// The drawing kernels against what they mean, pixel by pixel, over random places and clips.

namespace {

constexpr int kRounds = 300;
constexpr PegRect kArea = RectOf(0, 0, 79, 59);

/// A frame that is drawn on one pixel at a time.
class Reference {
public:
    explicit Reference(const BenchScreen& screen) {
        for (int y = 0; y <= kArea.bottom; ++y)
            m_pixels.insert(m_pixels.end(), screen.Row(y), screen.Row(y) + kArea.Width());
    }
    std::uint16_t At(int x, int y) const { return *(m_pixels.begin() + y * kArea.Width() + x); }
    void Put(int x, int y, std::uint16_t color, const PegRect& clip) {
        if (Intersection(clip, kArea).Contains(PointOf(x, y))) *(m_pixels.begin() + y * kArea.Width() + x) = color;
    }

private:
    std::vector<std::uint16_t> m_pixels;
};

class Kernels : public ToolkitTest {
protected:
    Kernels() {
        Draw(kArea, [&](PegScreen& screen) {
            for (int i = 0; i < kArea.Width() * kArea.Height(); ++i)
                screen.PutPixel(i % kArea.Width(), i / kArea.Width(), AnyColor());
        });
    }
    int AnyInt(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }
    std::uint16_t AnyColor() { return static_cast<std::uint16_t>(AnyInt(0, 0xFFFF)); }
    PegRect AnyClip() {
        const int left = AnyInt(0, 79);
        const int top = AnyInt(0, 59);
        return RectOf(left, top, AnyInt(left, 90), AnyInt(top, 70));
    }
    template <typename Operation>
    void Draw(const PegRect& clip, Operation draw) {
        const DrawingPass pass(m_canvas, clip);
        draw(*toolkit.screen);
    }
    /// Both frames are the same, also around what was drawn.
    void ExpectEqual(const Reference& reference, int round) {
        for (int y = 0; y <= kArea.bottom; ++y) {
            for (int x = 0; x <= kArea.right; ++x)
                ASSERT_EQ(Pixel(x, y), reference.At(x, y)) << "pixel " << x << ", " << y << " in round " << round;
        }
    }

private:
    std::mt19937 m_random{11};
    Recorder m_canvas{kArea};
};

TEST_F(Kernels, BlendEachChannelForItself) {
    constexpr int kWidth = 21;
    constexpr int kHeight = 5;
    const auto blend = [](std::uint16_t over, std::uint16_t below, unsigned alpha) {
        const auto channel = [&](int shift, unsigned mask) {
            const unsigned mixed = (over >> shift & mask) * alpha + (below >> shift & mask) * (256 - alpha);
            return (mixed >> 8) << shift;
        };
        return static_cast<std::uint16_t>(channel(11, 0x1F) | channel(5, 0x3F) | channel(0, 0x1F));
    };
    for (int round = 0; round < kRounds; ++round) {
        const bool alphaFirst = round % 2 == 0;
        const bool keyed = round % 3 == 0;
        const auto bitmap = PegScreen::CreateBitmap(kWidth, kHeight, PegBitmap::kAlpha);
        if (alphaFirst) bitmap->bitmap.flags |= PegBitmap::kAlphaFirst;
        if (keyed) bitmap->bitmap.flags |= PegBitmap::kTransparent;
        const PegRect clip = AnyClip();
        const PegPoint place = PointOf(AnyInt(-20, 79), AnyInt(-4, 59));
        Reference reference(Screen());
        for (int i = 0; i < kWidth * kHeight; ++i) {
            const std::uint16_t color = AnyInt(0, 9) == 0 ? kTransparentPixel : AnyColor();
            const auto alpha = static_cast<std::uint16_t>(AnyInt(0, 300));
            std::uint16_t* pixel = bitmap->bitmap.data + 2 * i;
            pixel[alphaFirst ? 1 : 0] = color;
            pixel[alphaFirst ? 0 : 1] = alpha;
            const int x = place.x + i % kWidth;
            const int y = place.y + i / kWidth;
            if (!kArea.Contains(PointOf(x, y)) || (keyed && color == kTransparentPixel)) continue;
            reference.Put(x, y, blend(color, reference.At(x, y), alpha >= 255 ? 256 : alpha), clip);
        }
        Draw(clip, [&](PegScreen& screen) { screen.DrawBitmap(place, &bitmap->bitmap); });
        ASSERT_NO_FATAL_FAILURE(ExpectEqual(reference, round));
    }
}

TEST_F(Kernels, DrawTextByTheCoverageOfItsGlyphs) {
    constexpr int kHeight = 11;
    constexpr char16_t kLast = u'F';
    for (int round = 0; round < kRounds; ++round) {
        // A page of glyphs up to 40 pixels wide, with rows and columns without ink.
        std::vector<std::uint16_t> offsets{0};
        for (char16_t code = u'A'; code <= kLast; ++code)
            offsets.push_back(static_cast<std::uint16_t>(offsets.back() + AnyInt(0, 40)));
        const auto stride = static_cast<std::uint16_t>((offsets.back() + 1) / 2);
        std::vector<std::uint8_t> rows;
        for (int i = 0; i < kHeight * stride; ++i) {
            const bool inked = i / stride > AnyInt(0, 3) && i / stride < AnyInt(6, kHeight) && AnyInt(0, 2) > 0;
            rows.push_back(static_cast<std::uint8_t>(inked ? AnyInt(0, 255) : 0));
        }
        rows.insert(rows.end(), kPackingReadsBeyond, 0xFF);
        const PackedGlyphs packed = PackGlyphs(rows.data(), kHeight, stride, offsets);
        const PegFont font{PegFont::kFourBits, kHeight, 0,       kHeight, {}, 0, stride, u'A', kLast,
                           offsets.data(),     nullptr, nullptr, &packed};

        std::u16string text;
        for (int i = AnyInt(1, 5); i > 0; --i) text += static_cast<char16_t>(AnyInt(u'A', kLast));
        const PegBrush brush(AnyColor(), AnyColor(), round % 4 == 0 ? PegBrush::kFill : 0);
        const ColorRamp ramp = RampBetween(brush.background, brush.foreground);
        const PegRect clip = AnyClip();
        const PegPoint place = PointOf(AnyInt(-30, 79), AnyInt(-9, 59));
        Reference reference(Screen());
        int x = place.x;
        for (const char16_t code : text) {
            for (int column = font.Column(code); column < font.Column(code) + font.Width(code); ++column, ++x) {
                for (int row = 0; row < kHeight; ++row) {
                    const std::uint8_t pair = *(rows.begin() + row * stride + column / 2);
                    const unsigned coverage = column % 2 == 0 ? pair >> 4U : pair & 0xFU;
                    if (brush.Has(PegBrush::kFill)) reference.Put(x, place.y + row, brush.background, clip);
                    if (coverage != 0) reference.Put(x, place.y + row, ramp[coverage], clip);
                }
            }
        }
        Draw(clip, [&](PegScreen& screen) { screen.DrawText(place, text.c_str(), brush, &font); });
        ASSERT_NO_FATAL_FAILURE(ExpectEqual(reference, round));
    }
}

TEST_F(Kernels, MakeEllipsesOfWhatLiesWithinHalfAPixel) {
    const auto isInside = [](int dx, int dy, int radiusX, int radiusY) {
        const double a = radiusX + 0.5;
        const double b = radiusY + 0.5;
        return radiusX >= 0 && radiusY >= 0 && dx * dx / (a * a) + dy * dy / (b * b) <= 1.0;
    };
    for (int round = 0; round < kRounds; ++round) {
        const int x = AnyInt(-10, 90);
        const int y = AnyInt(-10, 70);
        const int radiusX = AnyInt(0, 40);
        const int radiusY = round % 2 == 0 ? radiusX : AnyInt(0, 40);
        const int pen = AnyInt(0, 6);
        const PegBrush brush(AnyColor(), AnyColor(), round % 3 == 0 ? PegBrush::kFill : 0, pen);
        const PegRect clip = AnyClip();
        Reference reference(Screen());
        for (int dy = -radiusY; dy <= radiusY; ++dy) {
            for (int dx = -radiusX; dx <= radiusX; ++dx) {
                if (!isInside(dx, dy, radiusX, radiusY)) continue;
                if (pen > 0 && !isInside(dx, dy, radiusX - pen, radiusY - pen)) {
                    reference.Put(x + dx, y + dy, brush.foreground, clip);
                } else if (brush.Has(PegBrush::kFill)) {
                    reference.Put(x + dx, y + dy, brush.background, clip);
                }
            }
        }
        Draw(clip, [&](PegScreen& screen) { screen.DrawArc(x, y, 0, 0, radiusX, radiusY, brush); });
        ASSERT_NO_FATAL_FAILURE(ExpectEqual(reference, round));
    }
}

}  // namespace
