#include <array>
#include <cstdint>
#include <span>

#include "peg/core/screen.h"
#include "peg/core/text_thing.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

// The frames of things with text, pixel by pixel.

namespace {

enum class Edge : std::uint8_t { Left, Top, Right, Bottom };

/// A line along an edge: `depth` pixels inside it, from `start` pixels behind its left or upper end to `end` pixels
/// before the other.
struct FrameLine {
    Edge edge;
    std::int8_t depth;
    std::int8_t start;
    std::int8_t end;
    std::uint8_t color;
};

/// A pixel beside a corner, named by its distance from the edges.
struct FramePixel {
    Edge side;  // Left or Right
    std::int8_t x;
    Edge end;  // Top or Bottom
    std::int8_t y;
    std::uint8_t color;
};

struct Frame {
    int inset;  // where the filling begins
    std::span<const FrameLine> lines;
    std::span<const FramePixel> pixels;
};

constexpr std::uint8_t kOutline = 18;  // also the darkest shade
constexpr std::uint8_t kLight = 16;
constexpr std::uint8_t kShade = 17;
constexpr std::uint8_t kFace = 27;

// clang-format off
constexpr auto kThinLines = std::to_array<FrameLine>({
    {Edge::Top,    0, 1, 1, kOutline},
    {Edge::Bottom, 0, 1, 1, kOutline},
    {Edge::Left,   0, 1, 1, kOutline},
    {Edge::Right,  0, 1, 1, kOutline},
});
constexpr auto kThinPixels = std::to_array<FramePixel>({
    {Edge::Left,  1, Edge::Top,    1, kOutline},
    {Edge::Left,  1, Edge::Bottom, 1, kOutline},
    {Edge::Right, 1, Edge::Top,    1, kOutline},
    {Edge::Right, 1, Edge::Bottom, 1, kOutline},
});
constexpr auto kRaisedLines = std::to_array<FrameLine>({
    {Edge::Left,   0, 1, 1, kFace},
    {Edge::Top,    0, 1, 2, kFace},
    {Edge::Left,   1, 2, 2, kLight},
    {Edge::Top,    1, 2, 3, kLight},
    {Edge::Right,  1, 2, 2, kShade},
    {Edge::Bottom, 1, 3, 2, kShade},
    {Edge::Right,  0, 1, 1, kOutline},
    {Edge::Bottom, 0, 2, 1, kOutline},
});
constexpr auto kRaisedPixels = std::to_array<FramePixel>({
    {Edge::Left,  1, Edge::Top,    1, kFace},
    {Edge::Left,  1, Edge::Bottom, 1, kFace},
    {Edge::Left,  2, Edge::Bottom, 1, kFace},
    {Edge::Right, 2, Edge::Top,    1, kFace},
    {Edge::Left,  2, Edge::Top,    2, kLight},
    {Edge::Right, 2, Edge::Bottom, 2, kShade},
    {Edge::Left,  1, Edge::Bottom, 0, kShade},
    {Edge::Right, 1, Edge::Top,    1, kShade},
    {Edge::Right, 1, Edge::Top,    0, kShade},
    {Edge::Right, 1, Edge::Bottom, 1, kOutline},
});
constexpr auto kRecessedLines = std::to_array<FrameLine>({
    {Edge::Bottom, 0, 2, 1, kFace},
    {Edge::Right,  0, 1, 1, kFace},
    {Edge::Bottom, 1, 3, 2, kLight},
    {Edge::Right,  1, 2, 2, kLight},
    {Edge::Top,    0, 1, 2, kShade},
    {Edge::Left,   0, 1, 1, kShade},
    {Edge::Top,    1, 2, 3, kOutline},
    {Edge::Left,   1, 2, 2, kOutline},
});
constexpr auto kRecessedPixels = std::to_array<FramePixel>({
    {Edge::Right, 1, Edge::Bottom, 1, kFace},
    {Edge::Right, 1, Edge::Top,    0, kFace},
    {Edge::Right, 1, Edge::Top,    1, kFace},
    {Edge::Left,  1, Edge::Bottom, 0, kFace},
    {Edge::Left,  2, Edge::Bottom, 1, kFace},
    {Edge::Right, 2, Edge::Bottom, 2, kLight},
    {Edge::Left,  1, Edge::Top,    1, kShade},
    {Edge::Right, 2, Edge::Top,    1, kShade},
    {Edge::Left,  1, Edge::Bottom, 1, kShade},
    {Edge::Left,  2, Edge::Top,    2, kOutline},
});
// clang-format on

constexpr Frame kThin{1, kThinLines, kThinPixels};
constexpr Frame kRaised{2, kRaisedLines, kRaisedPixels};
constexpr Frame kRecessed{2, kRecessedLines, kRecessedPixels};

PegRect Place(const FrameLine& line, const PegRect& rect) {
    const int left = rect.left + line.start;
    const int right = rect.right - line.end;
    const int top = rect.top + line.start;
    const int bottom = rect.bottom - line.end;
    switch (line.edge) {
        case Edge::Left: return RectOf(rect.left + line.depth, top, rect.left + line.depth, bottom);
        case Edge::Top: return RectOf(left, rect.top + line.depth, right, rect.top + line.depth);
        case Edge::Right: return RectOf(rect.right - line.depth, top, rect.right - line.depth, bottom);
        case Edge::Bottom: return RectOf(left, rect.bottom - line.depth, right, rect.bottom - line.depth);
    }
    return rect;
}

PegPoint Place(const FramePixel& pixel, const PegRect& rect) {
    return PointOf(pixel.side == Edge::Left ? rect.left + pixel.x : rect.right - pixel.x,
                   pixel.end == Edge::Top ? rect.top + pixel.y : rect.bottom - pixel.y);
}

const Frame* FrameOf(std::uint32_t style) {
    switch (style & kStyleBorders) {
        case kStyleBorderThin: return &kThin;
        case kStyleBorderRaised: return &kRaised;
        case kStyleBorderRecessed: return &kRecessed;
    }
    return nullptr;
}

}  // namespace

void PegTextThing::DrawFrame(std::uint32_t fillColor) {
    const Frame* frame = FrameOf(GetStyle());
    const bool borderless = (GetStyle() & kStyleBorders) == kStyleBorderNone;
    if (frame == nullptr && !borderless) return;
    if (!HasStyle(kStyleTransparent)) {
        toolkit.screen->Fill(Inset(Real(), borderless ? 0 : frame->inset), PegResources::GetColor(fillColor));
    }
    if (borderless) return;
    for (const FrameLine& line : frame->lines) {
        const PegRect rect = Place(line, Real());
        if (!rect.IsEmpty()) toolkit.screen->Fill(rect, PegResources::GetColor(line.color));
    }
    for (const FramePixel& pixel : frame->pixels) {
        const PegPoint at = Place(pixel, Real());
        toolkit.screen->PutPixel(at.x, at.y, PegResources::GetColor(pixel.color));
    }
}
