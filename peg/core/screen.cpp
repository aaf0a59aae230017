#include "peg/core/screen.h"

#include <algorithm>
#include <string_view>

#include "peg/core/presentation_manager.h"
#include "peg/core/screen_clip.h"
#include "peg/core/thing.h"
#include "peg/core/toolkit.h"

namespace {

constexpr PegRect kNowhere{0, 0, -1, -1};

std::u16string_view TextOf(const char16_t* text, int count) {
    if (text == nullptr) return {};
    std::u16string_view view(text);
    return count < 0 ? view : view.substr(0, static_cast<std::size_t>(count));
}

}  // namespace

PegScreen::PegScreen(int width, int height) : m_width(width), m_height(height) { m_clips[0].rect = kNowhere; }

void PegScreen::BeginDraw(const PegThing& thing, const PegRect& invalid) {
    ++m_nesting;
    if (m_nesting >= kClipStackSize) return;
    Clip& clip = m_clips[static_cast<std::size_t>(m_nesting)];
    clip.thing = &thing;
    clip.rect = Intersection(thing.Clip(), invalid);
    clip.rect.IntersectWith(RectOf(0, 0, m_width - 1, m_height - 1));
    clip.inWindow = toolkit.manager != nullptr && toolkit.manager->FindViewports(thing, clip.viewports);
}

void PegScreen::EndDraw() {
    if (m_nesting == 0) return;
    if (m_nesting == 1) FlushToDevice();
    --m_nesting;
}

void PegScreen::Fill(const PegRect& rect, std::uint16_t color) {
    ForEachVisible(rect, [&](const PegRect& area) { FillArea(area, color); });
}

void PegScreen::PutPixel(int x, int y, std::uint16_t color) { Fill(ClampedRect(x, y, x, y), color); }

void PegScreen::FillOrTile(const PegRect& rect, const PegBrush& brush) {
    if (rect.IsEmpty()) return;
    if (!brush.Has(PegBrush::kPattern)) {
        if (brush.Has(PegBrush::kFill)) Fill(rect, brush.background);
        return;
    }
    const PegBitmap* pattern = brush.pattern;
    if (pattern == nullptr || pattern->width == 0 || pattern->height == 0) return;
    ForEachVisible(rect, [&](const PegRect& area) {
        for (int y = rect.top; y <= area.bottom; y += pattern->height) {
            for (int x = rect.left; x <= area.right; x += pattern->width) {
                const PegRect tile =
                    Intersection(area, ClampedRect(x, y, x + pattern->width - 1, y + pattern->height - 1));
                if (!tile.IsEmpty()) PaintBitmap(tile, PointOf(x, y), *pattern);
            }
        }
    });
}

void PegScreen::DrawBitmap(PegPoint topLeft, const PegBitmap* bitmap) {
    if (bitmap == nullptr || bitmap->width == 0 || bitmap->height == 0) return;
    const PegRect bounds =
        ClampedRect(topLeft.x, topLeft.y, topLeft.x + bitmap->width - 1, topLeft.y + bitmap->height - 1);
    ForEachVisible(bounds, [&](const PegRect& area) { PaintBitmap(area, topLeft, *bitmap); });
}

void PegScreen::DrawText(PegPoint topLeft, const char16_t* text, const PegBrush& brush, const PegFont* font, int count,
                         const PegRect* room) {
    const std::u16string_view drawn = TextOf(text, count);
    if (drawn.empty() || font == nullptr) return;
    if (m_textObserver != nullptr && m_nesting > 0 && m_nesting < kClipStackSize) {
        const Clip& clip = m_clips[static_cast<std::size_t>(m_nesting)];
        m_textObserver->OnText(
            {*clip.thing, drawn, *font, topLeft, room != nullptr ? *room : clip.thing->Real(), clip.rect});
    }
    const int width = WidthOf(drawn, font);
    const PegRect bounds = ClampedRect(topLeft.x, topLeft.y, topLeft.x + width - 1, topLeft.y + FontHeight(font) - 1);
    ForEachVisible(bounds, [&](const PegRect& area) { PaintText(area, topLeft, drawn, brush, *font); });
    if (!brush.Has(PegBrush::kUnderline)) return;
    const int line = topLeft.y + font->ascent;
    const int thickness = 1 + (font->underline >> 5);
    Fill(ClampedRect(topLeft.x, line, topLeft.x + width - 1, line + thickness - 1), brush.foreground);
}

int PegScreen::TextWidth(const char16_t* text, const PegFont* font, int count) {
    return WidthOf(TextOf(text, count), font);
}

std::unique_ptr<LoadedBitmap> PegScreen::CreateBitmap(int width, int height, std::uint16_t flags) {
    constexpr int kLargest = 0x7FFF;
    if (width <= 0 || height <= 0 || width > kLargest || height > kLargest) return nullptr;
    auto created = std::make_unique<LoadedBitmap>();
    PegBitmap& bitmap = created->bitmap;
    bitmap.flags = flags;
    const bool alpha = bitmap.Has(PegBitmap::kAlpha);
    const std::size_t words = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * (alpha ? 2U : 1U);
    created->pixels = MakePixels(words);
    bitmap.bitsPerPixel = alpha ? 32 : 16;
    bitmap.width = static_cast<std::uint16_t>(width);
    bitmap.height = static_cast<std::uint16_t>(height);
    bitmap.data = created->pixels.get();
    created->bytes = words * sizeof(std::uint16_t);
    if (bitmap.Has(PegBitmap::kTransparent)) {
        bitmap.transparent = kTransparentPixel;
        std::fill_n(bitmap.data, words, kTransparentPixel);
    }
    return created;
}

DrawingPass::DrawingPass(const PegThing& thing, const PegRect& invalid) { toolkit.screen->BeginDraw(thing, invalid); }

DrawingPass::~DrawingPass() { toolkit.screen->EndDraw(); }
