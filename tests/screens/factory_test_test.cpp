#include <set>

#include "peg/resources/resources.h"
#include "screens/factory_test/display_test_screen.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"

namespace {

constexpr std::int32_t kHome = 200;
constexpr std::uint32_t kAsked = 11;
constexpr std::uint32_t kPressed = 2;
constexpr const char* kVerdict = "DISPLAYMODE_setFactoryTestScreenResult";

class FactoryTest : public PanelTest {
protected:
    FactoryTest() {
        CreateCustomScreens();
        CreateFactoryTestScreen();
        Begin("12:34:56");
    }
    void Begin(std::string_view time) {
        DateTimeStrings now{};
        std::ranges::copy(time, now.time.begin());
        meter().Answer("DATETIMEINTERFACE_getLocalDateTimeStrings", now);
        Show(kHome);
        Show(SCREEN_ID_FACTORY_TEST);
    }
    /// The keys whose shapes have a colour.
    std::vector<KeyCode> Keys(std::uint32_t color) const {
        constexpr PegPoint kPlaces[] = {{53, 115}, {124, 115}, {195, 115}, {266, 115}, {160, 170}};
        std::vector<KeyCode> keys;
        for (int i = 0; i < 5; ++i) {
            const bool matches = Pixel(kPlaces[i].x, kPlaces[i].y) == PegResources::GetColor(color);
            if (matches) keys.push_back(static_cast<KeyCode>(KEY_SOFT_1 + i));
        }
        return keys;
    }
    KeyCode Asked() const { return Keys(kAsked).at(0); }
    KeyCode Other() const { return Asked() == KEY_HOME ? KEY_SOFT_1 : static_cast<KeyCode>(Asked() + 1); }

    /// Presses what is asked until the verdict. @return the order
    std::vector<KeyCode> Obey() {
        std::vector<KeyCode> order;
        while (!Keys(kAsked).empty() && order.size() < 9) {
            order.push_back(Asked());
            Press(order.back());
        }
        return order;
    }
};

TEST_F(FactoryTest, PassesAPanelWhoseFiveKeysComeInTheAskedOrder) {
    testing::internal::CaptureStdout();
    const std::vector<KeyCode> order = Obey();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\nPASS - Main screen turn on.\n");
    EXPECT_EQ(std::set(order.begin(), order.end()).size(), 5U);
    EXPECT_EQ(meter().Calls(kVerdict), 1);
    EXPECT_EQ(meter().LastArgument(kVerdict), 0U);
    EXPECT_TRUE(PanelShows("factory_test/passed"));
    Begin("09:59:59");
    EXPECT_NE(Obey(), order);
    Begin("12:34:56");
    EXPECT_EQ(Obey(), order) << "the same order at the same time only";
}

TEST_F(FactoryTest, FailsAtTheFirstOtherKeyAndGoesHomeFiveSecondsLater) {
    KeyDown(Other());
    KeyDown(Asked());
    KeyUp(KEY_SOFT_2_3);
    KeyUp(KEY_SIMULATED);
    EXPECT_TRUE(PanelShows("factory_test/running")) << "releases of the five keys count";
    Press(Asked());
    testing::internal::CaptureStdout();
    Press(Other());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\nFAIL - All your base are belong to us.\n");
    EXPECT_EQ(meter().LastArgument(kVerdict), 0xFFFFFFFFU);
    EXPECT_TRUE(PanelShows("factory_test/failed"));
    for (const KeyCode key : {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_4, KEY_HOME}) Press(key);
    EXPECT_EQ(meter().Calls(kVerdict), 1) << "no more key is looked at";
    EXPECT_EQ(Keys(kPressed).size(), 1U);
    Ticks(99);
    EXPECT_EQ(Shown(), SCREEN_ID_FACTORY_TEST);
    Ticks(1);
    EXPECT_EQ(Shown(), kHome);
    Show(SCREEN_ID_FACTORY_TEST);
    EXPECT_EQ(Obey().size(), 5U) << "it begins anew";
    EXPECT_EQ(meter().LastArgument(kVerdict), 0U);
}

}  // namespace
