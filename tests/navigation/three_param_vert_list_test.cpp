#include "navigation/widgets/three_param_vert_list.h"

#include "tests/bench/panel_bench.h"

namespace {

class ThreeParamVertList : public PanelBench {
protected:
    /// The selected value is that one, and it is marked.
    bool IsAt(int row, int column) const {
        const auto& cell = list.cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column) + 1);
        return list.selectedRow() == row && list.selectedColumn() == column && cell.HasStyle(kStyleHighlighted);
    }

    PegWindow& window = AddNew<PegWindow>(Manager(), RectOf(0, 0, 319, 239), std::uint16_t{0}, kStyleBorderNone);
    threeParamVertList& list = AddNew<threeParamVertList>(window, 90);
};

TEST_F(ThreeParamVertList, GrowsUpToSixRowsAndWalksThroughTheirValuesRound) {
    list.selectNext();
    list.clearSelectionLook();
    EXPECT_EQ(list.selectedRow(), -1) << "without rows there is nothing to select";
    for (int row = 0; row < int{threeParamVertList::kMostRows}; ++row) {
        EXPECT_TRUE(list.addRow());
        EXPECT_TRUE(IsAt(row, 0));
    }
    EXPECT_FALSE(list.addRow());
    EXPECT_EQ(list.Real(), RectOf(8, 90, 311, 249));
    list.selectNext();
    EXPECT_TRUE(IsAt(5, 1));
    EXPECT_FALSE(IsAt(5, 0));
    list.selectNext();
    EXPECT_TRUE(IsAt(0, 0));
    list.clearSelectionLook();
    EXPECT_FALSE(IsAt(0, 0)) << "no longer marked";
    EXPECT_EQ(list.selectedRow(), 0) << "but selected";
}

}  // namespace
