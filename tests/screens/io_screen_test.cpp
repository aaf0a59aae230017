#include "screens/io/io_screen.h"

#include "screens/parameters/custom_screen.h"
#include "tests/bench/panel_bench.h"
#include "tests/bench/wire_text.h"

namespace {

constexpr std::int32_t kDigitalInputs = 94;
/// Digital inputs that a test makes up.
class DigitalInputs : public PanelBench {
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
    // How many points there are, and how many each page has.
    const std::vector<std::pair<std::uint32_t, std::vector<std::uint32_t>>> cases = {
        {1, {1}}, {3, {3}}, {4, {4}}, {5, {4, 1}}, {8, {4, 4}}, {11, {4, 4, 3}}};
    Show(kDigitalInputs);
    for (const auto& [points, pages] : cases) {
        count = points;
        Ticks(20);
        for (std::size_t page = 0; page < pages.size(); ++page) {
            EXPECT_EQ(asked, Range(4 * page, pages[page])) << points << " points";
            Press(KEY_SOFT_3);
        }
        EXPECT_EQ(asked, Range(4 * (pages.size() - 1), pages.back())) << "there is no page behind the last";
        for (std::size_t page = pages.size() - 1; page > 0; --page) {
            Press(KEY_SOFT_2);
            EXPECT_EQ(asked, Range(4 * (page - 1), 4));
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
