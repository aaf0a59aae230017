#include "localization/display_config.h"
#include "tests/setup/setup_edit_bench.h"

namespace {

constexpr std::string_view kItems = "PDMINTERFACE_getEnumerationData";
constexpr std::string_view kCurrent = "PDMINTERFACE_getEnumerationValue";
constexpr std::int32_t kWiring = 101;

class ChoiceScreen : public SetupEditBench {
protected:
    static EnumerationData Items(std::uint32_t count, std::uint32_t current) {
        EnumerationData data{};
        data.count.Set(count);
        data.current.Set(current);
        for (std::size_t i = 0; i < data.items.size(); ++i) {
            data.items[i].fill('x');  // unterminated
            data.items[i][0] = static_cast<char>('A' + i % 26);
        }
        return data;
    }
    static ChoiceList& List() { return ChoiceList::getInstance(); }
};

TEST_F(ChoiceScreen, WritesEveryRegisterInTheMetersOwnWordsAndReadsItBack) {
    DISPCFG_setLanguage(1);
    for (const ChoiceRow& row : kChoiceRows) {
        EnumerationData data{};
        ASSERT_EQ(PDMINTERFACE_getEnumerationData(row.registerId, data), 0);
        const std::uint32_t current = data.current.Get();
        const bool isLast = current + 1 == data.count.Get();
        const std::string_view target = TextIn(data.items.at(isLast ? current - 1 : current + 1));
        const KeyCode away = isLast ? KEY_SOFT_2 : KEY_SOFT_3;
        Open(row.screen);
        Press(away);
        Press(isLast ? KEY_SOFT_3 : KEY_SOFT_2);
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), kView) << "there and back is no change";
        EXPECT_EQ(List().Parent(), nullptr);
        Open(row.screen);
        Press(away);
        Press(KEY_SOFT_4);
        EXPECT_EQ(meter().Calls(kWrite), 0) << "nothing is written unconfirmed";
        Press(KEY_SOFT_4);
        EXPECT_EQ(meter().LastArgument(kWrite), row.registerId);
        EXPECT_EQ(Written(), target) << row.screen;
        EXPECT_EQ(HeldText(row.registerId), target) << row.screen;
        EXPECT_EQ(Shown(), kView) << row.screen;
    }
}

TEST_F(ChoiceScreen, ReadsTheTextsOnceAndTheChoiceInForceOnEveryShow) {
    meter().Fail(kItems);
    Open(kWiring);
    EXPECT_EQ(List().visibleCount(), 0);
    for (const KeyCode key : {KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_4}) Press(key);
    EXPECT_EQ(Shown(), kView) << "nothing can be chosen";

    meter().Recover();
    Open(kWiring);
    const int count = List().visibleCount();
    EXPECT_GT(count, 1) << "asked again after the failure";
    meter().Answer(kItems, Items(40, 0));
    for (const auto& [current, selected] : {std::pair{1U, 1}, {99U, 0}}) {
        EnumerationValue value{};
        value.current.Set(current);
        meter().Answer(kCurrent, value);
        Open(kWiring);
        EXPECT_EQ(List().visibleCount(), count);
        EXPECT_EQ(List().selectedIndex(), selected);
    }
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kWiring) << "the choice shown may be another than the one in force: it asks";
    EXPECT_TRUE(PanelShows("setup/edit_choice_unknown_old_value"));
    Show(102);
    EXPECT_EQ(List().Parent(), Manager().FirstChild()) << "straight from one choice to another";
    meter().Fail(kCurrent);
    Open(kWiring);
    EXPECT_EQ(List().visibleCount(), count) << "the texts are still there";
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kWiring);
}

TEST_F(ChoiceScreen, HoldsWhatTheMeterCountsAgainstWhatThereIs) {
    for (const auto& [screen, count, current, shown, selected] : {std::tuple{102, 0U, 0U, 0, -1},
                                                                  {114, 40U, 39U, 40, 39},
                                                                  {116, 41U, 40U, 40, 0},
                                                                  {119, 3U, 3U, 3, 0},
                                                                  {121, UINT32_MAX, 0x80000000U, 40, 0}}) {
        meter().Answer(kItems, Items(count, current));
        Open(screen);
        EXPECT_EQ(List().visibleCount(), shown) << screen;
        EXPECT_EQ(List().selectedIndex(), selected) << screen;
        Press(KEY_SOFT_3, 45);
        EXPECT_EQ(List().selectedIndex(), shown - 1) << screen;
        Press(KEY_SOFT_2, 45);
        EXPECT_EQ(List().selectedIndex(), shown > 0 ? 0 : -1) << screen;
    }
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(Written().size(), 40U) << "a text without terminator ends with its field";
}

TEST_F(ChoiceScreen, ShowsItsChoicesInEveryStateAndLanguage) {
    Open(kWiring);
    EXPECT_TRUE(PanelShows("setup/edit_choice"));
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("setup/edit_choice_other"));
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_choice_confirmation"));
    DISPCFG_setLanguage(5);
    Manager().FirstChild()->Message(MessageOf(MSG_LANGUAGE));
    Pump();
    EXPECT_TRUE(PanelShows("setup/edit_choice_confirmation_russian")) << "also while the question is open";
    Open(kLanguageScreen);
    EXPECT_TRUE(PanelShows("setup/edit_choice_language")) << "each in its own";
    meter().Answer(kItems, Items(40, 33));
    Open(189);
    EXPECT_TRUE(PanelShows("setup/edit_choice_forty"));
}

}  // namespace
