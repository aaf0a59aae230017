#include "screens/io/io_screen.h"

#include <cstring>

#include "localization/display_config.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/panel_bench.h"

namespace {

constexpr std::int32_t kDigitalInputs = 94;
constexpr int kCallsOfTheHeader = 4;

template <std::size_t size>
void Write(std::array<char, size>& field, std::string_view text) {
    std::copy_n(text.begin(), std::min(text.size(), size), field.begin());
}

class IoScreens : public PanelBench {
protected:
    IoScreens() {
        CreateCustomScreens();  // the screen to start from is among them
        CreateIoScreens();
    }
};

TEST_F(IoScreens, LookAsTheyShould) {
    for (const std::int32_t screen : {94, 95, 96, 97}) {
        Show(screen);
        EXPECT_TRUE(PanelShows("io/screen_" + std::to_string(screen)));
        Press(KEY_SOFT_3);
    }
    Show(94);
    EXPECT_TRUE(PanelShows("io/screen_94_next")) << "the page outlives a visit elsewhere";
}

TEST_F(IoScreens, AskOnceARefreshForTheirOwnPoints) {
    const std::vector<std::pair<std::int32_t, std::string>> screens = {
        {94, "DigitalInput"}, {95, "DigitalOutput"}, {96, "AnalogInput"}, {97, "AnalogOutput"}};
    for (const auto& [screen, kind] : screens) {
        Show(screen);
        Ticks(1);
        meter().ForgetCalls();
        Screen().flushes = 0;
        Ticks(20);
        EXPECT_EQ(meter().Calls("IOI_get" + kind + "Count"), 1);
        EXPECT_EQ(meter().Calls("IOI_get" + kind + "Data"), 1);
        EXPECT_EQ(meter().Calls(), 2 + kCallsOfTheHeader) << kind;
        EXPECT_EQ(Screen().flushes, 0) << "the same states, the same date: nothing to draw";
    }
}

TEST_F(IoScreens, SayThatThereAreNoneInEveryLanguage) {
    meter().Answer("IOI_getAnalogInputCount", std::uint32_t{0});
    for (std::uint32_t language = 0; language < 6; ++language) {
        DISPCFG_setLanguage(language);
        Show(96);
        EXPECT_TRUE(PanelShows("io/none_" + std::to_string(language)));
        Show(94);
        EXPECT_TRUE(PanelShows(language == 0 ? "io/screen_94" : "io/language_" + std::to_string(language)));
    }
    EXPECT_EQ(meter().Calls("IOI_getAnalogInputData"), 0);
}

/// Digital inputs that a test makes up.
class DigitalInputs : public IoScreens {
protected:
    DigitalInputs() {
        meter().AnswerBy("IOI_getDigitalInputCount", [this](auto, auto response) {
            WireU32 word;
            word.Set(count);
            std::memcpy(response.data(), &word, sizeof word);
            return true;
        });
        meter().AnswerBy("IOI_getDigitalInputData", [this](auto payload, auto response) {
            std::array<WireU32, 2> range;
            std::memcpy(&range, payload.data(), sizeof range);
            asked = {range[0].Get(), range[1].Get()};
            if (response.size() != asked.second * sizeof(IoPointEntry)) return false;
            for (std::uint32_t i = 0; i < asked.second; ++i) {
                const IoPointEntry entry = Point(asked.first + i);
                std::memcpy(response.data() + i * sizeof entry, &entry, sizeof entry);
            }
            return dataArrives;
        });
    }
    virtual IoPointEntry Point(std::uint32_t index) const {
        IoPointEntry entry{};
        Write(entry.label, "Point " + std::to_string(index));
        Write(entry.state, index % 2 == 0 ? "Off" : "On");
        Write(entry.secondState, std::to_string(index));
        return entry;
    }

    using Range = std::pair<std::uint32_t, std::uint32_t>;
    std::uint32_t count = 0;
    bool dataArrives = true;
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

TEST_F(DigitalInputs, HideTheRowsThatAPageDoesNotUse) {
    count = 5;
    Show(kDigitalInputs);
    EXPECT_TRUE(PanelShows("io/five_first"));
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("io/five_last"));
    Press(KEY_SOFT_2);
    EXPECT_TRUE(PanelShows("io/five_first"));
    count = 4;
    Ticks(20);
    EXPECT_TRUE(PanelShows("io/four"));
}

TEST_F(DigitalInputs, StepBackToTheLastPageWhenPointsGoAway) {
    count = 12;
    Show(kDigitalInputs);
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_3);
    EXPECT_EQ(asked, Range(8, 4));
    count = 5;
    Ticks(20);
    EXPECT_EQ(asked, Range(4, 1));
    EXPECT_TRUE(PanelShows("io/five_last"));
    count = 4;
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("io/four"));
}

TEST_F(DigitalInputs, ReachTheLastOfAsManyAsCanBeCounted) {
    count = 0xFFFFFFFF;
    Show(kDigitalInputs);
    EXPECT_EQ(asked, Range(0, 4));
    count = 4;
    Ticks(20);
    EXPECT_TRUE(PanelShows("io/four"));
}

TEST_F(DigitalInputs, SayThatThereAreNoneWhenACallFailsAndRecover) {
    count = 5;
    Show(kDigitalInputs);
    Press(KEY_SOFT_3);
    for (const auto& breakIt : std::vector<std::function<void()>>{[&] { meter().Fail("IOI_getDigitalInputCount"); },
                                                                  [&] { meter().Fail("IOI_getDigitalInputData"); },
                                                                  [&] { dataArrives = false; }, [&] { count = 0; }}) {
        breakIt();
        Ticks(20);
        EXPECT_TRUE(PanelShows("io/no_data"));
        meter().Recover();
        dataArrives = true;
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

class DigitalInputsWithoutEnd : public DigitalInputs {
protected:
    IoPointEntry Point(std::uint32_t index) const override {
        IoPointEntry entry;
        const std::array<char, 4> letters = {'W', '8', 'i', ' '};
        entry.label.fill(letters[index % 4]);
        entry.state.fill(letters[index % 4]);
        entry.secondState.fill(letters[index % 4]);
        return entry;
    }
};

TEST_F(DigitalInputsWithoutEnd, AreCutAtTheirFields) {
    count = 4;
    Show(kDigitalInputs);
    EXPECT_TRUE(PanelShows("io/endless_texts"));
}

}  // namespace
