#include "tests/bench/text_record.h"

#include <algorithm>

namespace {

/// A screen without an application, to see what a bitmap leaves of the pixels below it.
class BitmapProbe : public L16Screen {
public:
    explicit BitmapProbe(const PegBitmap& bitmap) : L16Screen(bitmap.width, bitmap.height) {}
    void FlushToDevice() override {}

    std::vector<std::uint16_t> On(std::uint16_t ground, const PegBitmap& bitmap) {
        const PegRect all = RectOf(0, 0, Width() - 1, Height() - 1);
        FillArea(all, ground);
        PaintBitmap(all, {}, bitmap);
        return {Row(0), Row(0) + Width() * Height()};
    }
};

unsigned CoverageAt(const PegFont& page, int column, int row) {
    const std::uint8_t* bytes = page.glyphs + row * page.bytesPerRow;
    if ((page.flags & PegFont::kFourBits) == 0)
        return static_cast<unsigned>(bytes[column >> 3] << (column & 7)) & 0x80U;
    return (column & 1) == 0 ? bytes[column >> 1] >> 4U : bytes[column >> 1] & 0xFU;
}

/// Every pixel that a text's glyphs touch.
std::vector<PegPoint> InkOf(const PegDrawnText& text) {
    std::vector<PegPoint> ink;
    int x = text.topLeft.x;
    for (const char16_t code : text.text) {
        const PegFont* page = PageOf(&text.font, code);
        if (page == nullptr) continue;
        for (int column = 0; column < page->Width(code); ++column, ++x) {
            for (int row = 0; row < page->height; ++row) {
                if (CoverageAt(*page, page->Column(code) + column, row) != 0)
                    ink.push_back(PointOf(x, text.topLeft.y + row));
            }
        }
    }
    return ink;
}

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
    m_owners.assign(static_cast<std::size_t>(m_screen.Width() * m_screen.Height()), kNobody);
    m_hasInk.assign(static_cast<std::size_t>(m_screen.Height()), false);
}

void TextRecord::OnText(const PegDrawnText& text) {
    m_ink = InkOf(text);
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
            if (opaque[static_cast<std::size_t>((y - topLeft.y) * bitmap.width + x - topLeft.x)]) Cover(x, y);
        }
    }
}

/// A pixel is opaque when it looks the same on every ground.
const std::vector<bool>& TextRecord::OpaquePixels(const PegBitmap& bitmap) {
    std::vector<bool>& opaque = m_opaque[&bitmap];
    if (!opaque.empty()) return opaque;
    BitmapProbe probe(bitmap);
    const auto onBlack = probe.On(0x0000, bitmap);
    const auto onWhite = probe.On(0xFFFF, bitmap);
    for (std::size_t i = 0; i < onBlack.size(); ++i) opaque.push_back(onBlack[i] == onWhite[i]);
    return opaque;
}
