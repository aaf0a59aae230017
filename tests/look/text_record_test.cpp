#include "tools/panel_tour/text_record.h"

#include "peg/core/window.h"
#include "peg/widgets/prompt.h"
#include "tests/bench/test_on.h"

namespace {

/// Prompts on a window, drawn in the built-in font.
class Record : public ToolkitTest {
protected:
    Record() { Manager().AddChild(m_window, true); }
    ~Record() override { Manager().RemoveChild(m_window); }

    void Add(const PegRect& rect, const char16_t* text, std::uint32_t more = 0) {
        AddNew<PegPrompt>(m_window, rect, text, std::uint16_t{0}, kStyleTextLeft | kStyleBorderNone | more);
    }

    TextRecord m_record{Screen()};
    PegWindow m_window{RectOf(0, 0, 319, 239), 0, kStyleBorderNone};
};

TEST_F(Record, TellsWhatIsWrongWithAText) {
    enum Text : std::size_t { kWhole, kTooLong, kBelow, kAbove, kCovered, kWithoutGlyph };
    Add(RectOf(10, 10, 100, 30), u"whole");
    Add(RectOf(10, 40, 30, 60), u"too long");
    Add(RectOf(10, 70, 100, 90), u"below");
    Add(RectOf(14, 72, 100, 92), u"above", kStyleTransparent);
    Add(RectOf(10, 100, 100, 120), u"covered");
    Add(RectOf(30, 100, 100, 120), nullptr);
    Add(RectOf(10, 130, 100, 150), u"\u2603");
    Pump();
    const std::vector<RecordedText>& texts = m_record.Texts();
    EXPECT_FALSE(texts[kWhole].IsClipped() || texts[kWhole].LeavesItsRoom() || texts[kWhole].lacksGlyph);
    EXPECT_TRUE(texts[kTooLong].IsClipped() && texts[kTooLong].LeavesItsRoom());
    EXPECT_EQ(texts[kAbove].hits, std::vector<std::size_t>{kBelow});
    EXPECT_TRUE(texts[kCovered].IsPaintedOver() && !texts[kCovered].IsGone());
    EXPECT_TRUE(texts[kWithoutGlyph].lacksGlyph);
}

}  // namespace
