#include <array>
#include <memory>
#include <string>

#include "benchmarks/panel.h"
#include "benchmarks/work.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"
#include "screens/phasor/phasor_arrow.h"

namespace {

constexpr std::uint16_t kInk = 0x1234;
constexpr std::uint16_t kGround = 0xFFFF;

/// Something drawn inside one pass over `clip`.
template <typename Draw>
std::function<void()> InOnePass(Draw draw, const PegRect& clip = kPanel) {
    Panel::Instance();
    static PegWindow window(kPanel, 0, kStyleBorderNone);
    return [=] {
        const DrawingPass pass(window, clip);
        draw(*toolkit.screen);
    };
}

std::function<void()> Fill() {
    return InOnePass([](PegScreen& screen) { screen.Fill(kPanel, kInk); });
}

/// Every other one is cut at an edge of the clip.
std::function<void()> ClippedRectangles() {
    constexpr PegRect kClip = RectOf(10, 6, 309, 233);
    return InOnePass(
        [](PegScreen& screen) {
            for (int i = 0; i < 100; ++i) {
                const int x = i % 10 * 32;
                const int y = i / 10 * 24;
                screen.Fill(RectOf(x, y, x + 19, y + 11), kInk);
            }
        },
        kClip);
}

std::function<void()> Text(const char16_t* text, std::uint32_t font, int lines) {
    Panel::Instance();
    const PegFont* drawn = PegResources::GetFont(font);
    return InOnePass([=](PegScreen& screen) {
        for (int line = 0; line < lines; ++line) {
            screen.DrawText(PointOf(4, 10 + line * HeightOf(drawn)), text, PegBrush(0x0000, kGround), drawn);
        }
    });
}

/// A picture of stripes; with alpha, of every strength.
std::function<void()> Bitmap(int width, int height, std::uint16_t flags) {
    const std::shared_ptr<LoadedBitmap> created = PegScreen::CreateBitmap(width, height, flags);
    const bool alpha = created->bitmap.Has(PegBitmap::kAlpha);
    for (int i = 0; i < width * height; ++i) {
        const auto color = static_cast<std::uint16_t>(i * 37);
        if (alpha) {
            created->bitmap.data[2 * i] = color;
            created->bitmap.data[2 * i + 1] = static_cast<std::uint16_t>(i % 256);
        } else {
            created->bitmap.data[i] = color;
        }
    }
    return InOnePass([=](PegScreen& screen) { screen.DrawBitmap({}, &created->bitmap); });
}

std::function<void()> CircleAndArrows() {
    return InOnePass([](PegScreen& screen) {
        constexpr ArrowPoint kCentre{110, 135};
        screen.DrawCircle(kCentre.x, kCentre.y, kPhasorRadius + 1, PegBrush(kInk, kGround));
        PegBrush line(kInk, kGround, PegBrush::kCentred, 2);
        for (int i = 0; i < 6; ++i) {
            const PhasorArrow arrow = ArrowOf(100 - 8 * i, 100, 60 * i + 17);
            const ArrowPoint tip{kCentre.x + arrow.tip.x, kCentre.y + arrow.tip.y};
            screen.DrawLine(kCentre.x, kCentre.y, tip.x, tip.y, line);
            for (const ArrowPoint& barb : arrow.barbs) {
                screen.DrawLine(tip.x, tip.y, kCentre.x + barb.x, kCentre.y + barb.y, line);
            }
        }
    });
}

}  // namespace

std::vector<Work> DrawingWork() {
    // clang-format off
    return {
        {"fill of the panel",                     1.68, 0.65, 50,  Fill},
        {"100 clipped rectangles of 20 x 12",     10.8, 1.5,  50,  ClippedRectangles},
        {"18 characters at 14 pixels",            3.2,  0.35, 200, [] { return Text(u"Active power L1 kW", 36, 1); }},
        {"18 characters at 20 pixels",            5.3,  0.6,  200, [] { return Text(u"Active power L1 kW", 40, 1); }},
        {"two lines at 40 pixels",                10.8, 1.4,  100, [] { return Text(u"1234.56", 45, 2); }},
        {"bitmap of 78 x 23",                     0.18, 0.05, 500, [] { return Bitmap(78, 23, 0); }},
        {"bitmap of the panel",                   1.23, 1.05, 50,  [] { return Bitmap(kPanelWidth, kPanelHeight, 0); }},
        {"bitmap of 78 x 23 with alpha",          2.15, 0.5,  200, [] { return Bitmap(78, 23, PegBitmap::kAlpha); }},
        {"circle of radius 77 and six arrows",    24.6, 1.0,  50,  CircleAndArrows},
    };
    // clang-format on
}
