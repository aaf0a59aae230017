#include "tools/panel_tour/text_record.h"

#include "peg/core/window.h"
#include "peg/widgets/prompt.h"

namespace {

/// Prompts on a window, drawn in the built-in font.
class Record : public ToolkitBench {
protected:
    Record() { Manager().AddChild(m_window, true); }
    ~Record() override { Manager().RemoveChild(m_window); }

    PegPrompt& Add(const PegRect& rect, const char16_t* text, std::uint32_t more = 0) {
        return AddNew<PegPrompt>(m_window, rect, text, std::uint16_t{0}, kStyleTextLeft | kStyleBorderNone | more);
    }
    const RecordedText& Draw(std::size_t index) {
        Pump();
        m_record.Clear();
        Manager().Invalidate(m_window.Real());
        Pump();
        return m_record.Texts().at(index);
    }

    TextRecord m_record{Screen()};
    PegWindow m_window{RectOf(0, 0, 319, 239), 0, kStyleBorderNone};
};

TEST_F(Record, TellsAWholeTextFromACutOne) {
    Add(RectOf(10, 10, 100, 30), u"whole");
    Add(RectOf(10, 40, 30, 60), u"too long");
    EXPECT_FALSE(Draw(0).IsClipped() || Draw(0).LeavesItsRoom() || Draw(0).lacksGlyph);
    EXPECT_TRUE(Draw(1).IsClipped() && Draw(1).LeavesItsRoom());
}

TEST_F(Record, NoticesATextUnderAnother) {
    Add(RectOf(10, 10, 100, 30), u"below");
    Add(RectOf(14, 12, 100, 32), u"above", kStyleTransparent);
    EXPECT_EQ(Draw(1).hits, std::vector<std::size_t>{0});
}

TEST_F(Record, NoticesATextThatIsPaintedOver) {
    Add(RectOf(10, 10, 100, 30), u"covered");
    Add(RectOf(30, 10, 100, 30), nullptr);
    EXPECT_TRUE(Draw(0).IsPaintedOver() && !Draw(0).IsGone());
}

TEST_F(Record, NoticesACharacterWithoutAGlyph) {
    Add(RectOf(10, 10, 100, 30), u"\u2603");
    EXPECT_TRUE(Draw(0).lacksGlyph);
}

}  // namespace
