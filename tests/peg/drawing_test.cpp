#include <random>

#include "peg/core/screen.h"
#include "peg/port/pixel.h"
#include "peg/resources/builtin_fonts.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

constexpr std::uint16_t kRed = 0xF800;
constexpr std::uint16_t kGreen = 0x07E0;
constexpr std::uint16_t kBlack = 0;
using Rows = std::vector<std::string>;

/// Primitives on a black frame, inside a pass of the whole screen.
class Drawing : public ToolkitTest {
protected:
    Recorder canvas{RectOf(0, 0, 319, 239)};

    template <typename Draw>
    void In(const PegRect& clip, Draw draw) {
        DrawingPass pass(canvas, clip);
        draw(*toolkit.screen);
    }
    Rows Shape(const PegRect& rect) const { return Picture(rect, {{kBlack, '.'}, {kRed, '#'}, {kGreen, 'o'}}); }
};

TEST_F(Drawing, HappensOnlyInsideAPassFlushesWhenTheOutermostEndsAndSurvivesMoreThanTheStackHolds) {
    toolkit.screen->Fill(RectOf(0, 0, 9, 9), kRed);
    EXPECT_EQ(Pixel(0, 0), kBlack);
    toolkit.screen->EndDraw();
    EXPECT_EQ(Screen().flushes, 0);
    In(canvas.Real(), [&](PegScreen& screen) {
        In(RectOf(0, 0, 4, 4), [](PegScreen& inner) { inner.Fill(RectOf(0, 0, 9, 9), kRed); });
        EXPECT_EQ(Screen().flushes, 0);
        screen.PutPixel(9, 9, kGreen);
    });
    EXPECT_EQ(Screen().flushes, 1);
    EXPECT_EQ(Pixel(4, 4), kRed);
    EXPECT_EQ(Pixel(5, 4), kBlack) << "the inner pass has its own clip";
    EXPECT_EQ(Pixel(9, 9), kGreen) << "and the outer one its own again";

    for (int i = 0; i < 25; ++i) toolkit.screen->BeginDraw(canvas, canvas.Real());
    toolkit.screen->Fill(canvas.Real(), kRed);
    EXPECT_EQ(Pixel(5, 4), kBlack) << "too deep: nothing is drawn";
    for (int i = 0; i < 25; ++i) toolkit.screen->EndDraw();
    EXPECT_EQ(Screen().flushes, 2);
}

TEST_F(Drawing, NeverTouchesAPixelOutsideTheClip) {
    std::mt19937 random(7);
    const auto any = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    const auto bitmap = PegScreen::CreateBitmap(40, 30, 0);
    std::fill_n(bitmap->pixels.get(), 40 * 30, kRed);
    for (int round = 0; round < 300; ++round) {
        const int left = any(0, 300);
        const int top = any(0, 220);
        const PegRect clip = RectOf(left, top, any(left, 319), any(top, 239));
        PegBrush brush(kRed, kRed, static_cast<std::uint32_t>(any(0, 3)) | (any(0, 1) != 0 ? 0x80U : 0U), any(1, 9));
        brush.pattern = &bitmap->bitmap;
        In(clip, [&](PegScreen& screen) {
            screen.DrawLine(any(-400, 700), any(-400, 700), any(-400, 700), any(-400, 700), brush);
            screen.DrawRectangle(RectOf(any(-99, 200), any(-99, 200), any(100, 400), any(100, 400)), brush);
            screen.DrawArc(any(-50, 400), any(-50, 300), any(-720, 720), any(-720, 720), any(0, 300), any(0, 300),
                           brush);
            screen.DrawBitmap(PointOf(any(-60, 330), any(-40, 250)), &bitmap->bitmap);
            screen.DrawText(PointOf(any(-60, 330), any(-20, 250)), u"Wg%1", brush, &BuiltInFontA());
        });
        In(clip, [&](PegScreen& screen) { screen.Fill(clip, kBlack); });
        for (int y = 0; y < 240; ++y) {
            for (int x = 0; x < 320; ++x) ASSERT_EQ(Pixel(x, y), kBlack) << x << ", " << y << " in round " << round;
        }
    }
}

TEST_F(Drawing, OutlinesAndFillsRectanglesAndMakesCirclesRoundAndPiesOfTheirSector) {
    const PegBrush filled(kRed, kGreen, PegBrush::kFill, 1);
    In(canvas.Real(), [&](PegScreen& screen) {
        screen.DrawRectangle(RectOf(0, 0, 4, 3), filled);
        screen.DrawRectangle(RectOf(6, 0, 10, 3), PegBrush(kRed, kGreen, 0, 1));
        screen.DrawRectangle(RectOf(12, 0, 18, 4), PegBrush(kRed, kGreen, PegBrush::kFill, 2));
        screen.DrawRectangle(RectOf(20, 0, 22, 3), PegBrush(kRed, kGreen, PegBrush::kFill, 0));
        screen.DrawCircle(27, 3, 3, filled);
        screen.DrawArc(35, 3, 0, 90, 3, 3, filled);
    });
    EXPECT_EQ(Shape(RectOf(0, 0, 39, 6)), (Rows{
                                              "#####.#####.#######.ooo...###......##...",
                                              "#ooo#.#...#.#######.ooo..#ooo#.....oo#..",
                                              "#ooo#.#...#.##ooo##.ooo.#ooooo#....ooo#.",
                                              "#####.#####.#######.ooo.#ooooo#....ooo#.",
                                              "............#######.....#ooooo#.........",
                                              ".........................#ooo#..........",
                                              "..........................###...........",
                                          }));
}

TEST_F(Drawing, StepsSlopedLinesAndWidensThemToTheRightOrToBothSides) {
    In(canvas.Real(), [](PegScreen& screen) {
        screen.DrawLine(0, 0, 5, 2, PegBrush(kRed, 0));
        screen.DrawLine(7, 3, 9, 0, PegBrush(kRed, 0));
        screen.DrawLine(12, 1, 12, 3, PegBrush(kRed, 0, 0, 3));
        screen.DrawLine(18, 1, 18, 3, PegBrush(kRed, 0, PegBrush::kCentred, 3));
    });
    EXPECT_EQ(Shape(RectOf(0, 0, 20, 3)), (Rows{
                                              "##.......#...........",
                                              "..##....#...###..###.",
                                              "....##..#...###..###.",
                                              ".......#....###..###.",
                                          }));
}

TEST_F(Drawing, RampsFourBitGlyphsFromBackgroundToForeground) {
    EXPECT_EQ(RampBetween(0x0000, 0xFFFF)[15], 0xFFFF) << "coverage 15 is the foreground itself";
    EXPECT_EQ(RampBetween(0x0000, 0xFFFF)[8], 15 << 11 | 31 << 5 | 15) << "half of each channel, rounded down";
    EXPECT_EQ(RampBetween(0xFFFF, 0x0000)[1], 29 << 11 | 59 << 5 | 29) << "down also when the channel falls";
}

TEST_F(Drawing, SkipsCharactersWithoutAGlyphAndUnderlinesTheRest) {
    // Two glyphs of two rows: 16 pixels without ink, and 4 of which the outer ones have it.
    const std::array<std::uint16_t, 3> offsets{0, 16, 20};
    const std::array<std::uint8_t, 20 + kPackingReadsBeyond> rows{0, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x0F,
                                                                  0, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x0F};
    const PackedGlyphs packed = PackGlyphs(rows.data(), 2, 10, offsets);
    const PegFont font{PegFont::kFourBits, 2,       0,       2,      {}, 0x40, 10, u'A', u'B',
                       offsets.data(),     nullptr, nullptr, &packed};
    EXPECT_EQ(PegScreen::TextWidth(u"A?B", &font), 20);
    EXPECT_EQ(PegScreen::TextWidth(u"AB", &font, 1), 16);
    const PegBrush brush(kRed, 0, PegBrush::kUnderline);
    In(canvas.Real(), [&](PegScreen& screen) { screen.DrawText({}, u"?B", brush, &font); });
    EXPECT_EQ(Shape(RectOf(0, 0, 4, 5)), (Rows{"#..#.", "#..#.", "####.", "####.", "####.", "....."}))
        << "1 + (0x40 >> 5) lines under the base line";
}

/// A picture of 4 x 2 pixels in every format, drawn at (1, 1).
class Bitmaps : public Drawing {
protected:
    Rows Paint(const PegBitmap& bitmap, const PegRect& clip = RectOf(0, 0, 9, 9)) {
        In(canvas.Real(), [&](PegScreen& screen) { screen.Fill(canvas.Real(), kBlack); });
        In(clip, [&](PegScreen& screen) { screen.DrawBitmap(PointOf(1, 1), &bitmap); });
        return Shape(RectOf(0, 0, 5, 3));
    }
    void ExpectThePicture(const PegBitmap& bitmap) {
        EXPECT_EQ(Paint(bitmap), (Rows{"......", ".##oo.", ".#..o.", "......"}));
        EXPECT_EQ(Paint(bitmap, RectOf(3, 2, 9, 9)), (Rows{"......", "......", "....o.", "......"}));
    }
    static constexpr std::uint8_t kRedIndex = 7 << 5;
    static constexpr std::uint8_t kGreenIndex = 7 << 2;
};

TEST_F(Bitmaps, OfColoursAndOfIndicesAreCopiedAndTheirTransparentValueIsSkipped) {
    std::array<std::uint16_t, 8> pixels{kRed, kRed, kGreen, kGreen, kRed, 0x0001, 0x0001, kGreen};
    PegBitmap bitmap{PegBitmap::kTransparent, 16, 4, 2, 0x0001, pixels.data()};
    ExpectThePicture(bitmap);
    bitmap.flags = 0;
    EXPECT_EQ(Paint(bitmap)[2], ".#??o.");
    alignas(2) std::array<std::uint8_t, 8> indices{kRedIndex, kRedIndex, kGreenIndex, kGreenIndex,
                                                   kRedIndex, 9,         9,           kGreenIndex};
    ExpectThePicture({PegBitmap::kTransparent, 8, 4, 2, 9, reinterpret_cast<std::uint16_t*>(indices.data())});
}

TEST_F(Bitmaps, OfRunsAreTheSamePictures) {
    constexpr unsigned kRuns = PegBitmap::kRunLength | PegBitmap::kTransparent;
    std::array<std::uint16_t, 11> runs{1,     kRed, 1, kGreen,                  // two repeated runs
                                       0,     kRed, 1, 0x0001, 0x8000, kGreen,  // and a literal one
                                       0xDEAD};
    ExpectThePicture({kRuns, 16, 4, 2, 0x0001, runs.data()});
    alignas(2) std::array<std::uint8_t, 10> indexed{1,         kRedIndex, 1, kGreenIndex, 0,
                                                    kRedIndex, 1,         9, 0x80,        kGreenIndex};
    ExpectThePicture({kRuns, 8, 4, 2, 9, reinterpret_cast<std::uint16_t*>(indexed.data())});
    std::array<std::uint16_t, 15> blended{1,   kRed, 255,    1, kGreen, 255,    0,  kRed,
                                          255, 1,    kGreen, 0, 0x8000, kGreen, 255};
    ExpectThePicture({kRuns | PegBitmap::kAlpha, 32, 4, 2, 0, blended.data()});
}

TEST_F(Bitmaps, CreatedTransparentChangeNothing) {
    const auto created = PegScreen::CreateBitmap(4, 2, PegBitmap::kTransparent);
    EXPECT_EQ(Paint(created->bitmap), (Rows(4, "......")));
    EXPECT_EQ(PegScreen::CreateBitmap(0, 2, 0), nullptr);
    EXPECT_EQ(PegScreen::CreateBitmap(4, 2, PegBitmap::kAlpha)->bitmap.bitsPerPixel, 32);
    const PegBitmap frame = toolkit.screen->ScreenBitmap(320, 240);
    EXPECT_EQ(frame.flags, 0x1002);
    EXPECT_EQ(frame.data, Screen().Row(0));
}

}  // namespace
