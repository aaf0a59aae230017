#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include "peg/core/brush.h"
#include "peg/core/rect.h"
#include "peg/core/text_observer.h"
#include "peg/resources/bitmap.h"
#include "peg/resources/font.h"
#include "peg/resources/resource_set.h"

class PegThing;

/// A rectangle of a thing, in a chain: something to be drawn, or a part of a window that no window in front covers.
struct PegArea {
    PegThing* thing = nullptr;
    PegRect rect;
    PegArea* next = nullptr;
};

/// The screen as things see it: drawing passes, the clip that each opens, and primitives that never touch a pixel
/// outside it. Text is measured here too. What a pixel is, the drivers below know.
///
/// Passes nest; the frame goes to the device when the outermost one ends. Outside a pass primitives draw nothing.
class PegScreen {
public:
    PegScreen(int width, int height);
    PegScreen(const PegScreen&) = delete;
    PegScreen& operator=(const PegScreen&) = delete;
    virtual ~PegScreen() = default;

    int Width() const { return m_width; }
    int Height() const { return m_height; }

    /// Opens a pass that may draw where the thing's clip meets the invalid rectangle and no other window covers it.
    void BeginDraw(const PegThing& thing, const PegRect& invalid);
    void EndDraw();

    /// An arc from `startAngle` to `endAngle` in degrees, counter-clockwise from three o'clock; with a fill style, a
    /// pie. Equal angles draw the whole ellipse.
    void DrawArc(int centerX, int centerY, int startAngle, int endAngle, int radiusX, int radiusY,
                 const PegBrush& brush);
    void DrawBitmap(PegPoint topLeft, const PegBitmap* bitmap);
    void DrawCircle(int centerX, int centerY, int radius, const PegBrush& brush);

    /// @param count  characters to draw; -1: all
    /// @param room   where the text is meant to fit; null: the rectangle of the thing that is being drawn
    void DrawText(PegPoint topLeft, const char16_t* text, const PegBrush& brush, const PegFont* font, int count = -1,
                  const PegRect* room = nullptr);
    void DrawLine(int x1, int y1, int x2, int y2, const PegBrush& brush);
    void PutPixel(int x, int y, std::uint16_t color);
    void DrawRectangle(const PegRect& rect, const PegBrush& brush);
    void Fill(const PegRect& rect, std::uint16_t color);

    static int FontHeight(const PegFont* font) { return HeightOf(font); }
    static int TextWidth(const char16_t* text, const PegFont* font, int count = -1);

    /// A bitmap of the caller's own, black or, with PegBitmap::kTransparent, not drawn at all; null for an empty size.
    static std::unique_ptr<LoadedBitmap> CreateBitmap(int width, int height, std::uint16_t flags);

    /// Describes the frame in memory as a bitmap of that size.
    virtual PegBitmap ScreenBitmap(int width, int height) = 0;
    virtual void FlushToDevice() = 0;
    /// Whether the device did not take the frame when it was sent last.
    virtual bool IsBehind() const { return false; }

    /// Null: nobody listens.
    void SetTextObserver(PegTextObserver* observer) { m_textObserver = observer; }

protected:
    /// What a driver does inside `area`, which is visible and not empty.
    virtual void FillArea(const PegRect& area, std::uint16_t color) = 0;
    virtual void PaintBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) = 0;
    virtual void PaintText(const PegRect& area, PegPoint topLeft, std::u16string_view text, const PegBrush& brush,
                           const PegFont& font) = 0;

private:
    struct Clip {
        const PegThing* thing;  // that opened the pass
        PegRect rect;
        const PegArea* viewports;  // null: nothing covers the rectangle
        bool inWindow;             // the viewports are the limit, even when there are none
    };
    static constexpr int kClipStackSize = 20;  // the bottom entry stands for no pass

    /// Runs an operation for each part of `bounds` where the pass may draw.
    template <typename Operation>
    void ForEachVisible(const PegRect& bounds, Operation operation);
    /// Fills what of a rectangle, which may reach far outside the screen, lies in `area`, which is visible.
    void FillVisible(int left, int top, int right, int bottom, const PegRect& area, std::uint16_t color) {
        const PegRect part = RectOf(std::max<int>(left, area.left), std::max<int>(top, area.top),
                                    std::min<int>(right, area.right), std::min<int>(bottom, area.bottom));
        if (left <= right && top <= bottom && !part.IsEmpty()) FillArea(part, color);
    }
    void FillOrTile(const PegRect& rect, const PegBrush& brush);
    void DrawSlopedLine(int x1, int y1, int x2, int y2, const PegBrush& brush);

    int m_width;
    int m_height;
    int m_nesting = 0;
    std::array<Clip, kClipStackSize> m_clips{};
    PegTextObserver* m_textObserver = nullptr;
};

template <typename Operation>
void PegScreen::ForEachVisible(const PegRect& bounds, Operation operation) {
    if (m_nesting == 0 || m_nesting >= kClipStackSize) return;
    const Clip& clip = m_clips[static_cast<std::size_t>(m_nesting)];
    const PegRect area = Intersection(bounds, clip.rect);
    if (area.IsEmpty()) return;
    if (!clip.inWindow) {
        operation(area);
        return;
    }
    for (const PegArea* viewport = clip.viewports; viewport != nullptr; viewport = viewport->next) {
        const PegRect visible = Intersection(area, viewport->rect);
        if (!visible.IsEmpty()) operation(visible);
    }
}

/// A drawing pass of one thing, from here to the end of the block.
class DrawingPass {
public:
    DrawingPass(const PegThing& thing, const PegRect& invalid);
    DrawingPass(const DrawingPass&) = delete;
    DrawingPass& operator=(const DrawingPass&) = delete;
    ~DrawingPass();
};
