#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "simulator/bench/toolkit_bench.h"

/// A text on the panel, as it was drawn.
struct RecordedText {
    std::u16string text;
    const PegFont* font;
    PegRect room;
    PegRect clip;
    PegRect ink;                    // the pixels that its glyphs touch, seen or not
    int left;                       // where its first character begins
    int width;                      // of all its characters in pixels
    std::vector<std::size_t> hits;  // texts under its ink, by index
    int inked;                      // pixels of ink
    int painted;                    // of these, inside the clip
    int standing;                   // of these, not painted over again
    bool lacksGlyph;
    bool isBehind;  // a picture was laid over the whole panel afterwards, as dialogs do

    /// Its place lies outside its clip, as that of a row which is scrolled away.
    bool IsElsewhere() const { return painted == 0 && !clip.Contains(room); }

    /// Painted over as a whole, or never to be seen.
    bool IsGone() const { return standing == 0; }
    /// Its place sticks out of its clip above or below, as that of a row at the end of a list that goes on.
    bool IsPartlyScrolled() const {
        return (room.top < clip.top || room.bottom > clip.bottom) && ink.left >= clip.left && ink.right <= clip.right;
    }
    bool IsClipped() const { return painted < inked; }
    bool IsPaintedOver() const { return standing < painted; }
    bool LeavesItsRoom() const { return ink != Intersection(ink, room); }
};

/// Keeps every text that a bench screen draws, with what became of its pixels.
class TextRecord : public PegTextObserver, public PaintObserver {
public:
    explicit TextRecord(BenchScreen& screen);
    TextRecord(const TextRecord&) = delete;
    TextRecord& operator=(const TextRecord&) = delete;
    ~TextRecord();

    /// The texts since the last Clear, in the order of drawing.
    const std::vector<RecordedText>& Texts() const { return m_texts; }
    void Clear();

    void OnText(const PegDrawnText& text) override;
    void OnCovered(const PegRect& area) override;
    void OnBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) override;
    void OnTextPainted(const PegRect& area) override;

private:
    /// Where a pixel stands among all, row by row.
    static std::size_t PlaceOf(int x, int y, int width) {
        const std::ptrdiff_t place = std::ptrdiff_t{y} * width + x;
        return static_cast<std::size_t>(place);
    }
    static constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

    std::size_t& OwnerAt(int x, int y) { return m_owners[PlaceOf(x, y, m_screen.Width())]; }
    std::vector<PegPoint> InkAt(const PegDrawnText& text);
    void Cover(int x, int y);
    const std::vector<bool>& OpaquePixels(const PegBitmap& bitmap);

    BenchScreen& m_screen;
    std::vector<RecordedText> m_texts;
    std::vector<PegPoint> m_ink;        // of the last text
    std::vector<std::size_t> m_owners;  // by pixel: the text whose ink is there
    std::vector<bool> m_hasInk;         // by line: whether a text was there
    std::map<const PegBitmap*, std::vector<bool>> m_opaque;
    std::map<std::pair<const PegFont*, std::u16string>, std::vector<PegPoint>> m_inkOf;  // of a text at the corner
};
