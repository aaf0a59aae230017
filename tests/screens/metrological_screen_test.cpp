#include "screens/metrological/metrological_screen.h"

#include "rda/records.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

constexpr auto kRead = "PDMINTERFACE_getRegisterValue";
constexpr std::int32_t kScreen = 46;
constexpr std::uint32_t kSecondOfThree = 1725;

class MetrologicalScreens : public PanelTest {
protected:
    MetrologicalScreens() {
        CreateMetrologicalScreens();
        CreateCustomScreens();
    }
};

TEST_F(MetrologicalScreens, ShowEmptyTextsForARegisterThatFails) {
    meter().AnswerBy(kRead, [](auto payload, auto response) {
        std::uint32_t id = 0;
        std::memcpy(&id, payload.data(), sizeof id);
        return id != kSecondOfThree && meter().Model().Answer(kRead, payload, response);
    });
    Show(kScreen);
    EXPECT_TRUE(PanelShows("metrological/one_fails"));
}

TEST_F(MetrologicalScreens, TakeASmallerFontForALongerValueAndAFrameForTheWidest) {
    Show(kScreen);
    for (const auto& [name, value, unit] :
         {std::tuple{"long", "-1 234 567 890.123", "Mvarh"}, {"longer", "1234567890123456789012345", "W"}}) {
        RegisterValue record{};
        Write(record.value, value);
        Write(record.unit, unit);
        meter().Answer(kRead, record);
        Ticks(20);
        EXPECT_TRUE(PanelShows(std::string("metrological/") + name));
    }
}

}  // namespace
