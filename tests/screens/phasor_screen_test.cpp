#include "screens/phasor/phasor_screen.h"

#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

constexpr std::int32_t kScreen = 68;
constexpr auto kOperation = "PQINTERFACE_getPhasorData";
using Reply = std::array<PhasorEntry, 10>;

PhasorEntry Phasor(std::int32_t magnitude, std::int32_t angle, std::uint32_t shown = 1) {
    PhasorEntry entry{};
    Write(entry.magnitudeLabel, "U1");
    Write(entry.magnitudeText, std::to_string(magnitude));
    Write(entry.angleLabel, "V");
    Write(entry.angleText, std::to_string(angle));
    entry.magnitude.Set(magnitude);
    entry.angle.Set(angle);
    entry.shown.Set(shown);
    return entry;
}

class PhasorScreen : public PanelTest {
protected:
    PhasorScreen() {
        CreateCustomScreens();  // among them the one that navigation starts from
        CreatePhasorScreen();
    }

    void ShowPhasors(const Reply& reply) {
        meter().Answer(kOperation, reply);
        Show(kScreen);
        Ticks(20);
    }
};

TEST_F(PhasorScreen, ShowsEveryAngleOfTheCircle) {
    ShowPhasors({Phasor(100, 90), Phasor(100, -30), Phasor(100, 210), Phasor(0, 0, 0), Phasor(50, 0), Phasor(50, -90),
                 Phasor(50, 540)});
    EXPECT_TRUE(PanelShows("phasor/angles"));
    ShowPhasors({Phasor(100, 450), Phasor(100, -390), Phasor(100, -150), Phasor(0, 0, 0), Phasor(50, 360),
                 Phasor(50, 270), Phasor(50, INT32_MIN)});
    EXPECT_TRUE(PanelShows("phasor/turned_angles"));
}

TEST_F(PhasorScreen, LeavesOutThePhasorsThatHaveNoArrow) {
    Reply reply{};
    for (const std::size_t drawn : {0U, 1U, 2U, 4U, 5U, 6U}) reply[drawn] = Phasor(100, static_cast<int>(drawn) * 50);
    ShowPhasors(reply);
    EXPECT_TRUE(PanelShows("phasor/six_arrows"));
    for (const std::size_t other : {3U, 8U, 9U}) reply[other] = Phasor(1'000'000, 25);
    ShowPhasors(reply);
    EXPECT_TRUE(PanelShows("phasor/six_arrows")) << "they do not enter the scale either";
    reply[2].shown.Set(2);
    reply[5].shown.Set(0);
    reply[5].magnitude.Set(1'000'000);
    ShowPhasors(reply);
    EXPECT_TRUE(PanelShows("phasor/four_arrows"));
}

TEST_F(PhasorScreen, KeepsArrowsOfNoLengthAtTheCentre) {
    ShowPhasors({Phasor(0, 0), Phasor(0, 120), Phasor(0, -120)});
    EXPECT_TRUE(PanelShows("phasor/no_length"));
    ShowPhasors({Phasor(0, 0), Phasor(0, 120), Phasor(INT32_MIN, -120)});
    // The figure in the table differs, the diagram does not.
    EXPECT_TRUE(PanelShows("phasor/negative_alone"));
}

TEST_F(PhasorScreen, TurnsANegativeMagnitudeRoundAndStaysInTheDiagram) {
    ShowPhasors({Phasor(100, 0), Phasor(-50, 45), Phasor(-1'000'000'000, -100)});
    EXPECT_TRUE(PanelShows("phasor/negative"));
    ShowPhasors({Phasor(INT32_MAX, 30), Phasor(INT32_MAX / 2, 150), Phasor(INT32_MIN, 200)});
    EXPECT_TRUE(PanelShows("phasor/largest"));
}

}  // namespace
