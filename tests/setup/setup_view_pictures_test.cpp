#include "tests/setup/setup_view_bench.h"

namespace {

class SetupViewPictures : public SetupViewBench {};

TEST_F(SetupViewPictures, ShowEveryPage) {
    for (const SetupViewRow& row : kSetupViewRows) {
        Open(row.screen);
        std::string golden = "setup/view_";
        golden += std::to_string(row.screen);
        EXPECT_TRUE(PanelShows(golden));
    }
}

TEST_F(SetupViewPictures, ShowWhatIsSelected) {
    Open(132);
    Press(KEY_SOFT_1, 3);
    EXPECT_TRUE(PanelShows("setup/view_fourth_line")) << "without an edit screen";
    Open(103);
    Press(KEY_SOFT_1);
    EXPECT_TRUE(PanelShows("setup/view_next_value"));
    KeyDown(KEY_SOFT_1);
    EXPECT_TRUE(PanelShows("setup/view_held_key"));
}

TEST_F(SetupViewPictures, ShowTheDialogs) {
    Open(100);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/view_user_name"));
    Enter("");
    EXPECT_TRUE(PanelShows("setup/view_password"));
    Verdict(1);
    Enter("1");
    EXPECT_TRUE(PanelShows("setup/view_wrong_password"));
    Press(KEY_SOFT_4);
    Access(0);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/view_no_access"));
}

}  // namespace
