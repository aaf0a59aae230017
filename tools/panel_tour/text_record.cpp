#include "tools/panel_tour/text_record.h"

#include <algorithm>

namespace {

/// A screen of its own, to see what a drawing does to the pixels below it.
class Probe : public L16Screen {
public:
    using L16Screen::L16Screen;
    void FlushToDevice() override {}

    std::vector<std::uint16_t> BitmapOn(std::uint16_t ground, const PegBitmap& bitmap) {
        FillArea(All(), ground);
        PaintBitmap(All(), {}, bitmap);
        return {Row(0), Row(0) + std::ptrdiff_t{Width()} * Height()};
    }

    /// Every pixel that a text's glyphs touch.
    std::vector<PegPoint> InkOf(std::u16string_view text, const PegFont& font) {
        constexpr std::uint16_t kPaper = 0xFFFF;
        FillArea(All(), kPaper);
        PaintText(All(), {}, text, PegBrush(0, kPaper), font);
        std::vector<PegPoint> ink;
        for (int y = 0; y < Height(); ++y) {
            for (int x = 0; x < Width(); ++x) {
                if (Row(y)[x] != kPaper) ink.push_back(PointOf(x, y));
            }
        }
        return ink;
    }

private:
    PegRect All() const { return RectOf(0, 0, Width() - 1, Height() - 1); }
};

PegRect Around(const std::vector<PegPoint>& points) {
    if (points.empty()) return {0, 0, -1, -1};
    const auto [left, right] = std::ranges::minmax(points, {}, &PegPoint::x);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &PegPoint::y);
    return RectOf(left.x, top.y, right.x, bottom.y);
}

}  // namespace

TextRecord::TextRecord(BenchScreen& screen) : m_screen(screen) {
    screen.SetTextObserver(this);
    screen.observer = this;
    Clear();
}

TextRecord::~TextRecord() {
    m_screen.SetTextObserver(nullptr);
    m_screen.observer = nullptr;
}

void TextRecord::Clear() {
    m_texts.clear();
    m_owners.assign(PlaceOf(0, m_screen.Height(), m_screen.Width()), kNobody);
    m_hasInk.assign(static_cast<std::size_t>(m_screen.Height()), false);
}

std::vector<PegPoint> TextRecord::InkAt(const PegDrawnText& text) {
    const auto [known, fresh] = m_inkOf.try_emplace({&text.font, std::u16string(text.text)});
    if (fresh) {
        constexpr int kSpare = 8;  // a glyph may lean out of its cell
        Probe probe(WidthOf(text.text, &text.font) + kSpare, HeightOf(&text.font));
        known->second = probe.InkOf(text.text, text.font);
    }
    std::vector<PegPoint> ink = known->second;
    for (PegPoint& point : ink) point = PointOf(point.x + text.topLeft.x, point.y + text.topLeft.y);
    return ink;
}

void TextRecord::OnText(const PegDrawnText& text) {
    m_ink = InkAt(text);
    const bool complete =
        std::ranges::all_of(text.text, [&](char16_t code) { return PageOf(&text.font, code) != nullptr; });
    m_texts.push_back({.text = std::u16string(text.text),
                       .font = &text.font,
                       .room = text.room,
                       .clip = text.clip,
                       .ink = Around(m_ink),
                       .left = text.topLeft.x,
                       .width = WidthOf(text.text, &text.font),
                       .hits = {},
                       .inked = static_cast<int>(m_ink.size()),
                       .painted = 0,
                       .standing = 0,
                       .lacksGlyph = !complete,
                       .isBehind = false});
}

void TextRecord::OnTextPainted(const PegRect& area) {
    const std::size_t index = m_texts.size() - 1;
    RecordedText& text = m_texts[index];
    for (const PegPoint point : m_ink) {
        if (!area.Contains(point)) continue;
        std::size_t& owner = OwnerAt(point.x, point.y);
        if (owner != kNobody && owner != index && std::ranges::find(text.hits, owner) == text.hits.end()) {
            text.hits.push_back(owner);
        }
        owner = index;
        m_hasInk[static_cast<std::size_t>(point.y)] = true;
        ++text.painted;
        ++text.standing;
    }
}

void TextRecord::Cover(int x, int y) {
    std::size_t& owner = OwnerAt(x, y);
    if (owner == kNobody) return;
    --m_texts[owner].standing;
    owner = kNobody;
}

void TextRecord::OnCovered(const PegRect& area) {
    for (int y = area.top; y <= area.bottom; ++y) {
        if (!m_hasInk[static_cast<std::size_t>(y)]) continue;
        for (int x = area.left; x <= area.right; ++x) Cover(x, y);
    }
}

void TextRecord::OnBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) {
    const std::vector<bool>& opaque = OpaquePixels(bitmap);
    if (bitmap.width == m_screen.Width() && bitmap.height == m_screen.Height()) {
        for (RecordedText& text : m_texts) text.isBehind = true;
    }
    for (int y = area.top; y <= area.bottom; ++y) {
        if (!m_hasInk[static_cast<std::size_t>(y)]) continue;
        for (int x = area.left; x <= area.right; ++x) {
            if (opaque[PlaceOf(x - topLeft.x, y - topLeft.y, bitmap.width)]) Cover(x, y);
        }
    }
}

/// A pixel is opaque when it looks the same on every ground.
const std::vector<bool>& TextRecord::OpaquePixels(const PegBitmap& bitmap) {
    std::vector<bool>& opaque = m_opaque[&bitmap];
    if (!opaque.empty()) return opaque;
    Probe probe(bitmap.width, bitmap.height);
    const auto onBlack = probe.BitmapOn(0x0000, bitmap);
    const auto onWhite = probe.BitmapOn(0xFFFF, bitmap);
    for (std::size_t i = 0; i < onBlack.size(); ++i) opaque.push_back(onBlack[i] == onWhite[i]);
    return opaque;
}
