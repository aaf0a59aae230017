#include <cstring>

#include "localization/display_config.h"
#include "setup/view/duration_text.h"
#include "tests/bench/allocation_count.h"
#include "tests/setup/setup_view_bench.h"

namespace {

struct Setting {
    std::uint32_t registerId;
    std::int32_t editScreen;
};
using Page = std::vector<Setting>;

class SetupViewValues : public SetupViewBench {
protected:
    /// The registers that a screen reads in a second, in their order.
    std::vector<std::uint32_t> RegistersOf(std::int32_t screen) {
        std::vector<std::uint32_t> read;
        meter().AnswerBy(kReadRegister, [&read](std::span<const std::byte> asked, std::span<std::byte>) {
            WireU32 id{};
            std::memcpy(&id, asked.data(), sizeof id);
            read.push_back(id.Get());
            return true;
        });
        Open(screen);
        meter().AnswerBy(kReadRegister, [](auto...) { return true; });
        return read;
    }

    /// Checks what a page reads, and what soft key 4 opens after each press of soft key 1.
    void Expect(std::int32_t screen, const Page& page) {
        std::vector<std::uint32_t> registers;
        for (const Setting& setting : page) registers.push_back(setting.registerId);
        EXPECT_EQ(RegistersOf(screen), registers) << screen;
        for (std::size_t i = 0; i <= page.size(); ++i) {
            const std::int32_t expected = page[i % page.size()].editScreen;
            Press(KEY_SOFT_4);
            EXPECT_EQ(Shown(), expected < 0 ? screen : expected) << screen << ", line " << i;
            Show(screen);
            Press(KEY_SOFT_1);
        }
    }
};

TEST_F(SetupViewValues, ComeFromTheirRegistersAndLeadToTheirEditScreens) {
    Open(100);
    LogIn();
    Expect(100, {{3717, 101}, {2063, 102}});
    Expect(110, {{3676, 112}, {3679, 114}, {3680, 116}});
    Expect(117, {{1358, 119}, {1359, 121}, {1360, 123}, {1347, 125}});
    Expect(126, {{2658, 127}, {354, 128}, {1945, 129}});
    Expect(132, {{2590, 133}, {2592, 134}, {2591, 135}, {1916, -1}});
    Expect(136, {{26, -1}, {28, -1}, {27, -1}, {1916, -1}});
    Expect(144, {{94, 145}, {93, 146}, {97, 147}, {99, 148}, {98, 149}, {95, 150}});
    Expect(151, {{101, 152}, {100, 153}, {103, 154}, {105, 155}, {104, 156}});
    Expect(157, {{106, 158}, {108, 159}});
    Expect(181, {{2601, 183}, {145, 184}, {2616, 185}, {177, 186}});
    Expect(182, {{78, 187}, {2604, 188}, {2605, 189}});
    Expect(192, {{2608, -1}, {2609, -1}, {2610, -1}, {2611, -1}});
    Expect(193, {{2512, -1}, {2513, -1}, {2514, -1}, {2515, -1}});
    Expect(169, {{54, 172}});
    Expect(170, {{2062, 173}, {1919, 174}, {2033, 197}});
    Expect(171, {{166, 175}, {3718, 176}, {113, 177}, {2364, 178}});
    // The grid begins at the row that was added last.
    EXPECT_EQ(RegistersOf(103), (std::vector<std::uint32_t>{2461, 2462, 111, 112, 1215, 1216}));
    for (const std::int32_t editScreen : {108, 109, 104, 105, 106, 107, 108}) {
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), editScreen);
        Show(103);
        Press(KEY_SOFT_1);
    }
}

TEST_F(SetupViewValues, StandAloneOrInPairsOnTheLargePages) {
    Open(100);
    LogIn();
    struct LargePage {
        std::int32_t screen;
        std::vector<std::uint32_t> registers;
        std::int32_t editScreen;
    };
    for (const LargePage& page :
         {LargePage{130, {1409}, 131}, LargePage{137, {1410}, 138}, LargePage{139, {1412}, -1},
          LargePage{140, {2594, 2593}, -1}, LargePage{141, {30, 29}, -1}, LargePage{142, {198, 172}, -1},
          LargePage{167, {1947}, -1}, LargePage{168, {2521}, -1}, LargePage{143, {2430, 2517}, -1},
          LargePage{179, {1914}, 180}, LargePage{190, {}, 191}, LargePage{194, {}, 195}}) {
        EXPECT_EQ(RegistersOf(page.screen), page.registers);
        Press(KEY_SOFT_1);
        EXPECT_EQ(Shown(), page.screen) << "soft key 1 means nothing here";
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), page.editScreen < 0 ? page.screen : page.editScreen);
    }
}

TEST_F(SetupViewValues, GiveSecondsAsHoursMinutesAndSeconds) {
    EXPECT_EQ(DurationText("3725").View(), "01:02:05");
    EXPECT_EQ(DurationText("-3600").View(), "-01:00:00");
    EXPECT_EQ(DurationText("-3725").View(), "-01:02:05");
    EXPECT_EQ(DurationText("360000").View(), "100:00:00");
    EXPECT_EQ(DurationText("-2147483648").View(), "-596523:14:08");
    for (const std::string_view none : {"", " ", "-", "x", "99999999999"}) {
        EXPECT_EQ(DurationText(none).View(), "00:00:00") << none;
    }
}

TEST_F(SetupViewValues, AreEmptyWhileTheMeterIsSilent) {
    meter().FallSilent();
    for (const std::int32_t screen : {181, 103, 140, 190, 198}) {
        Open(screen);
        std::string golden = "setup/view_silent_";
        golden += std::to_string(screen);
        EXPECT_TRUE(PanelShows(golden));
    }
    meter().Recover();
    Ticks(20);
    EXPECT_TRUE(PanelShows("setup/view_198"));
}

TEST_F(SetupViewValues, StayInTheirFieldsHoweverLongTheTextsAre) {
    meter().AnswerBy(kReadRegister, [](std::span<const std::byte>, std::span<std::byte> answer) {
        std::ranges::fill(answer, std::byte{'W'});
        return true;
    });
    for (const std::int32_t screen : {144, 103, 140, 198}) {
        Open(screen);
        std::string golden = "setup/view_long_";
        golden += std::to_string(screen);
        EXPECT_TRUE(PanelShows(golden));
    }
}

TEST_F(SetupViewValues, AreDrawnOnlyWhenTheyChange) {
    for (const SetupViewRow& row : kSetupViewRows) {
        Open(row.screen);
        EXPECT_EQ(FramesIn(40), 0) << row.screen;
        EXPECT_GT(meter().Calls(), 0);
    }
    Open(100);
    RegisterValue value{};
    Write(value.value, "3W-WYE");
    meter().Answer(kReadRegister, value);
    EXPECT_EQ(FramesIn(20), 1);
}

TEST_F(SetupViewValues, TakeNothingFromTheHeapWhenTheyAreReadAgain) {
    for (const SetupViewRow& row : kSetupViewRows) {
        Open(row.screen);
        for (const bool silent : {false, true, false}) {
            if (silent) {
                meter().FallSilent();
            } else {
                meter().Recover();
            }
            const long before = AllocationCount::taken;
            Ticks(40);
            EXPECT_EQ(AllocationCount::taken, before) << row.screen << (silent ? ", silent meter" : "");
        }
        const long before = AllocationCount::taken;
        DISPCFG_setLanguage(static_cast<std::uint32_t>(row.screen) % 6);
        Ticks(40);
        EXPECT_EQ(AllocationCount::taken, before) << row.screen << ", another language";
    }
}

}  // namespace
