#include "navigation/widgets/table_row.h"

#include "peg/resources/resources.h"
#include "tests/bench/test_on.h"

namespace {

using Rows = std::vector<std::string>;

constexpr std::uint32_t kRed = 1;
constexpr std::uint32_t kGreen = 2;
constexpr std::uint32_t kBlue = 4;

class TableRow : public ToolkitTest {
protected:
    /// The panel's top left corner: letters for the rows' colours and the lines.
    Rows Corner(int width, int height) {
        Pump();
        const auto color = [](std::uint32_t number) { return PegResources::GetColor(number); };
        return Picture(RectOf(0, 0, width - 1, height - 1),
                       {{color(kRed), 'r'}, {color(kGreen), 'g'}, {color(kBlue), '#'}, {color(15), '.'}});
    }
    PegWindow& window = AddNew<PegWindow>(Manager(), RectOf(0, 0, 319, 239), std::uint16_t{0}, kStyleBorderNone);
    tableRowClass& table =
        AddNew<tableRowClass>(window, PointOf(1, 1), tableRowClass::Sizes{3, 4, 3}, tableRowClass::Sizes{4, 0, 5});
};

TEST_F(TableRow, LeavesOutWhatHasNoSizeAndTakesAnyOtherNumberForOne) {
    EXPECT_EQ(table.cell(3, 2).Real(), RectOf(5, 8, 9, 10));
    for (const int number : {5, 4, 0, -1, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(&table.cell(1, number), &table.cell(1, 1)) << number;
        EXPECT_EQ(&table.cell(number, 2), &table.cell(1, 2)) << number;
    }
}

TEST_F(TableRow, DrawsRowsLinesAndFramesAndClosesUpOverHiddenRows) {
    table.setGridColour(kBlue);
    table.setRowColour(1, kGreen);
    table.setRowColour(2, kRed);
    const Rows whole = {
        "...........", ".#########.", ".#ggg#ggg#.", ".#ggg#ggg#.", ".#########.", ".#rrr#rrr#.",
        ".#rrr#rrr#.", ".#rrr#rrr#.", ".#########.", ".#...#...#.", ".#########.", "...........",
    };
    EXPECT_EQ(Corner(11, 12), whole);
    table.hideRow(2);
    table.hideRow(2);
    EXPECT_EQ(Corner(11, 8), (Rows{
                                 "...........",
                                 ".#########.",
                                 ".#ggg#ggg#.",
                                 ".#ggg#ggg#.",
                                 ".#########.",
                                 ".#...#...#.",
                                 ".#########.",
                                 "...........",
                             }));
    table.hideRow(1);
    table.hideRow(3);
    table.cell(1, 1).SetText(u"8");
    EXPECT_EQ(Corner(11, 12), Rows(12, std::string(11, '.'))) << "nothing is left of it";
    table.cell(1, 1).SetText(nullptr);
    for (const int row : {3, 1, 2}) table.showRow(row);
    EXPECT_EQ(Corner(11, 12), whole);
    table.setOuterFrame(false);
    table.setColumnLines(false);
    table.setHeaderFrame(true);
    table.setHeaderFrameColour(kRed);
    EXPECT_EQ(Corner(11, 9), (Rows{
                                 "...........",
                                 ".rrrrrrrrr.",
                                 ".rgggggggr.",
                                 ".rrrrrrrrr.",
                                 ".#########.",
                                 ".rrrrrrrrr.",
                                 ".rrrrrrrrr.",
                                 ".rrrrrrrrr.",
                                 ".#########.",
                             }));
    table.setRowLines(false);
    EXPECT_EQ(Corner(11, 5)[4], ".rrrrrrrrr.");
}

TEST_F(TableRow, KeepsToTheMiddleWhileRowsComeAndGo) {
    table.setVerticalBounds(56, 213);
    table.centreHorizontally();
    EXPECT_EQ(table.Real(), RectOf(155, 130, 163, 139));
    table.hideRow(2);
    EXPECT_EQ(table.Real(), RectOf(155, 132, 163, 137));
    table.setOrigin(PointOf(20, 30));
    table.showRow(2);
    EXPECT_EQ(table.Real(), RectOf(20, 30, 28, 39));
    table.centreVertically();
    EXPECT_EQ(table.Real().top, 130) << "within the bounds";
}

TEST_F(TableRow, HasCellsWhoseTextsFitHoweverNarrowTheyBecome) {
    dataPegPromptClass cell(RectOf(0, 0, 199, 19), u"230.12 V");
    cell.SetFontNumber(1);
    cell.setFitFont(0, 0);
    EXPECT_EQ(cell.FontNumber(), 1U);
    cell.Resize(RectOf(0, 0, 29, 19));
    EXPECT_EQ(cell.FontNumber(), 0U);
}

}  // namespace
