#include "screens/io/io_screen.h"

#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

constexpr std::int32_t kDigitalInputs = 94;
/// Digital inputs that a test makes up.
class DigitalInputs : public PanelTest {
protected:
    DigitalInputs() {
        CreateCustomScreens();  // the screen to start from is among them
        CreateIoScreens();
        meter().AnswerFrom("IOI_getDigitalInputCount", [this](auto&) { return count; });
        meter().AnswerFrom("IOI_getDigitalInputData", [this](const auto& range) {
            asked = {range[0], range[1]};
            std::vector<IoPointEntry> points;
            for (std::uint32_t i = asked.first; i < asked.first + asked.second; ++i) {
                IoPointEntry& point = points.emplace_back();
                Write(point.label, "Point " + std::to_string(i));
                Write(point.state, i % 2 == 0 ? "Off" : "On");
                Write(point.secondState, std::to_string(i));
            }
            return points;
        });
    }

    using Range = std::pair<std::uint32_t, std::uint32_t>;
    std::uint32_t count = 0;
    Range asked;
};

TEST_F(DigitalInputs, FillTheirPagesFromTheFirstToTheLast) {
    Show(kDigitalInputs);
    for (const Range& lastPage : {Range{0, 1}, {0, 3}, {0, 4}, {4, 1}, {4, 4}, {8, 3}}) {
        count = lastPage.first + lastPage.second;
        Ticks(20);
        for (std::uint32_t first = 0; first < lastPage.first; first += 4) {
            EXPECT_EQ(asked, Range(first, 4)) << count << " points";
            Press(KEY_SOFT_3);
        }
        Press(KEY_SOFT_3);
        EXPECT_EQ(asked, lastPage) << "there is no page behind the last";
        for (std::uint32_t first = lastPage.first; first > 0; first -= 4) {
            Press(KEY_SOFT_2);
            EXPECT_EQ(asked, Range(first - 4, 4));
        }
        Press(KEY_SOFT_2);
        EXPECT_EQ(asked.first, 0U) << "there is no page before the first";
    }
}

TEST_F(DigitalInputs, KeepTheirPageOrStepBackToTheLastThatIsLeft) {
    count = 0xFFFFFFFF;
    Show(kDigitalInputs);
    Press(KEY_SOFT_3, 2);
    EXPECT_EQ(asked, Range(8, 4));
    count = 5;
    Ticks(20);
    EXPECT_EQ(asked, Range(4, 1));
    EXPECT_TRUE(PanelShows("io/five_last"));
    Show(95);
    Show(kDigitalInputs);
    EXPECT_TRUE(PanelShows("io/five_last")) << "the page outlives a visit elsewhere";
    Press(KEY_SOFT_2);
    EXPECT_TRUE(PanelShows("io/five_first"));
    count = 4;
    Ticks(20);
    EXPECT_TRUE(PanelShows("io/four"));
}

TEST_F(DigitalInputs, SayThatThereAreNoneWhenACallFailsAndRecover) {
    count = 5;
    Show(kDigitalInputs);
    Press(KEY_SOFT_3);
    for (const char* failing : {"IOI_getDigitalInputCount", "IOI_getDigitalInputData", "neither"}) {
        meter().Fail(failing);
        if (failing == std::string_view("neither")) count = 0;
        Ticks(20);
        EXPECT_TRUE(PanelShows("io/no_data"));
        meter().Recover();
        count = 5;
        Ticks(20);
        EXPECT_TRUE(PanelShows("io/five_last")) << "the page is still known";
    }
    meter().FallSilent();
    Ticks(20);
    EXPECT_TRUE(PanelShows("io/silent_meter"));
    Press(KEY_SOFT_2);
    meter().Recover();
    Ticks(20);
    EXPECT_TRUE(PanelShows("io/five_last")) << "a key while the meter is silent turns no page";
}

}  // namespace
