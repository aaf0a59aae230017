#include "navigation/widgets/three_param_vert_list.h"

#include <utility>

#include "tests/bench/panel_bench.h"

namespace {

constexpr int kTop = 90;

class ThreeParamVertList : public PanelBench {
protected:
    using Selection = std::pair<int, int>;

    Selection Selected() const { return {list.selectedRow(), list.selectedColumn()}; }

    /// Row and value column of every cell that is marked.
    std::vector<Selection> Marked(std::size_t rows) {
        std::vector<Selection> marked;
        for (std::size_t row = 0; row < rows; ++row) {
            for (std::size_t column = 0; column <= threeParamVertList::kValueColumns; ++column) {
                if (!list.cell(row, column).HasStyle(kStyleHighlighted)) continue;
                marked.emplace_back(static_cast<int>(row), static_cast<int>(column) - 1);
            }
        }
        return marked;
    }

    PegWindow& window = AddNew<PegWindow>(Manager(), RectOf(0, 0, 319, 239), std::uint16_t{0}, kStyleBorderNone);
    threeParamVertList& list = AddNew<threeParamVertList>(window, kTop);
};

TEST_F(ThreeParamVertList, GrowsRowByRowUpToSix) {
    EXPECT_EQ(list.Real(), RectOf(8, 90, 311, 111));
    for (std::size_t row = 0; row < threeParamVertList::kMostRows; ++row) EXPECT_TRUE(list.addRow()) << row;
    EXPECT_FALSE(list.addRow());
    EXPECT_EQ(Selected(), Selection(5, 0));
    EXPECT_EQ(list.Real(), RectOf(8, 90, 311, 249));
    EXPECT_EQ(list.cell(0, 0).Real(), RectOf(8, 112, 140, 134));
    EXPECT_EQ(list.cell(0, 1).Real(), RectOf(142, 112, 226, 134));
    EXPECT_EQ(list.cell(1, 2).Real(), RectOf(227, 135, 311, 157));
    EXPECT_EQ(list.header(2).Real(), RectOf(227, 90, 311, 111));
}

TEST_F(ThreeParamVertList, SelectsTheFirstValueOfANewRowAndMarksNoOther) {
    EXPECT_EQ(Selected(), Selection(-1, -1));
    list.selectNext();
    list.clearSelectionLook();
    EXPECT_EQ(Selected(), Selection(-1, -1)) << "without rows there is nothing to select";
    for (int row = 0; row < 3; ++row) {
        list.addRow();
        EXPECT_EQ(Selected(), Selection(row, 0));
    }
    EXPECT_EQ(Marked(3), std::vector{Selection(2, 0)});
}

TEST_F(ThreeParamVertList, WalksThroughTheValuesRowByRowAndRound) {
    list.addRow();
    list.addRow();
    for (const Selection& expected : {Selection(1, 1), Selection(0, 0), Selection(0, 1), Selection(1, 0)}) {
        list.selectNext();
        EXPECT_EQ(Selected(), expected);
        EXPECT_EQ(Marked(2), std::vector{expected});
    }
    list.clearSelectionLook();
    EXPECT_TRUE(Marked(2).empty());
    EXPECT_EQ(Selected(), Selection(1, 0)) << "the value stays selected";
}

}  // namespace
