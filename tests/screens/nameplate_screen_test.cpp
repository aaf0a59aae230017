#include "screens/nameplate/nameplate_screen.h"

#include "rda/records.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"

namespace {

constexpr std::int32_t kNameplate = 98;
constexpr std::int32_t kMidNameplate = 97;  // any screen will do to show it on
constexpr int kPages = 6;

class Nameplate : public PanelTest {
protected:
    Nameplate() {
        CreateCustomScreens();  // the screen to start from is among them
        CreateNameplateScreens();
        auto* mid = new midNameplateScrnClass(kNameplate);
        Navigation().addScreen(kMidNameplate, *mid, SCREEN_KIND_DATA);
    }
};

TEST_F(Nameplate, TurnsFromPageToPageAndStaysAtBothEnds) {
    Show(kNameplate);
    Press(KEY_SOFT_2);
    for (int page = 0; page < kPages; ++page) {
        EXPECT_TRUE(PanelShows("nameplate/page_" + std::to_string(page)));
        Press(KEY_SOFT_3);
    }
    meter().ForgetCalls();
    Press(KEY_SOFT_3, 2);
    EXPECT_EQ(meter().Calls("NAMEPLATEIF_getNameplateData"), 0) << "nothing to read where there is no page";
    Press(KEY_SOFT_2);
    Show(200);
    Show(kNameplate);
    EXPECT_TRUE(PanelShows("nameplate/page_4")) << "presses at the end do not count; the page outlives a visit";
    for (int page = 3; page >= 0; --page) {
        Press(KEY_SOFT_2);
        EXPECT_TRUE(PanelShows("nameplate/page_" + std::to_string(page)));
    }
    meter().AnswerBy("NAMEPLATEIF_getNameplateData", [](auto, auto response) {
        std::ranges::fill(response, std::byte{'x'});
        return false;  // the reply broke off
    });
    Ticks(kTicksPerSecond);
    EXPECT_TRUE(PanelShows("nameplate/labels_alone"));
    meter().FallSilent();
    Ticks(kTicksPerSecond);
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("nameplate/silent_meter_memory")) << "no unit without a number";
}

TEST_F(Nameplate, LeavesOutTheModelOnTheOtherVariant) {
    Show(kMidNameplate);
    EXPECT_TRUE(PanelShows("nameplate/mid_page_0"));
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("nameplate/page_1"));
}

}  // namespace
