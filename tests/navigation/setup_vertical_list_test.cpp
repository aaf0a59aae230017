#include "navigation/widgets/setup_vertical_list.h"

#include "tests/bench/test_on.h"

namespace {

constexpr std::uint32_t kIcon = 224;

class SetupVerticalList : public PanelTest {};

TEST_F(SetupVerticalList, PassesOverWhatIsHiddenAndStopsAtTheEnds) {
    EXPECT_EQ(setupVerticalList({9, 0, {}}, SetupItemLook::Plain).Real(), RectOf(8, 56, 312, 211)) << "six rows fit";
    setupVerticalList list({5, 0, {0, 102, 121}}, SetupItemLook::ShowSelected);
    for (const std::uint32_t label : {325U, 328U, 326U}) list.addItem(label, 90, kIcon);
    EXPECT_EQ(list.item(0)->BitmapNumber(PegBitmapPrompt::LeftIcon), 90U);
    EXPECT_EQ(list.item(0)->BitmapNumber(PegBitmapPrompt::RightIcon), kIcon);
    list.item(1)->SetStatusBits(STAT_NO_CLIENT_CLIP);
    EXPECT_EQ(list.visibleCount(), 2);
    list.select(0);
    EXPECT_TRUE(list.selectNext());
    EXPECT_EQ(list.selectedIndex(), 1);
    EXPECT_FALSE(list.selectNext());
    EXPECT_TRUE(list.selectPrevious());
    EXPECT_FALSE(list.selectPrevious());
    EXPECT_EQ(list.selectedIndex(), 0);
    EXPECT_EQ(list.item(2), nullptr);
}

}  // namespace
