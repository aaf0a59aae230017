#include "screens/harmonics/harmonic_screen.h"

#include <cstring>

#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

constexpr auto kSpectrum = "PQINTERFACE_getHarmonicData";
constexpr auto kCount = "DISPLAYFEATURES_getNumHarmonicsDisplayed";

/// A spectrum whose magnitudes fall off, with a text for every place.
HarmonicData Spectrum(std::uint32_t fullScale) {
    HarmonicData data{};
    for (std::uint32_t i = 0; i < kMaxHarmonics; ++i) data.magnitudes[i].Set(1000 / (i + 1));
    data.fullScale.Set(fullScale);
    for (std::size_t i = 0; i < data.texts.size(); ++i)
        Write(data.texts[i], std::string(1, 't').append(std::to_string(i + 1)));
    return data;
}

class HarmonicScreens : public PanelTest {
protected:
    void Create() {
        CreateCustomScreens();
        CreateHarmonicScreens();
    }
    /// What the last call asked for: channel and harmonic.
    static std::pair<std::uint32_t, std::uint32_t> Asked() {
        std::array<std::uint32_t, 2> words{};
        std::memcpy(words.data(), meter().LastPayload(kSpectrum).data(), sizeof words);
        return {words[0], words[1]};
    }
};

TEST_F(HarmonicScreens, TakeAnyNumberOfHarmonics) {
    CreateCustomScreens();
    std::int32_t screen = 61;
    const auto lastHarmonic = [&] {
        Navigation().addScreen(screen, *new harmonicDiagramScrnClass(screen), SCREEN_KIND_DATA);
        Show(screen++);
        Press(KEY_SOFT_2);
        return Asked().second;
    };
    for (const auto& [count, last] : {std::pair{0U, 30U}, {1U, 0U}, {5U, 4U}, {64U, 62U}, {0xFFFFFFFFU, 62U}}) {
        meter().Answer(kCount, count);
        EXPECT_EQ(lastHarmonic(), last) << count;
    }
    meter().Fail(kCount);
    EXPECT_EQ(lastHarmonic(), 30U);
}

TEST_F(HarmonicScreens, AskForTheirChannelAndRememberTheSelectionOfEach) {
    Create();
    HarmonicData data = Spectrum(1000);
    data.labelChoice.Set(1);
    meter().Answer(kSpectrum, data);
    Show(61);
    EXPECT_TRUE(PanelShows("harmonics/other_label"));
    meter().ForgetCalls();
    Press(KEY_SOFT_2);
    EXPECT_EQ(meter().Calls(kSpectrum), 1) << "read at once";
    EXPECT_EQ(Asked().second, 30U);
    Press(KEY_SOFT_3);
    EXPECT_EQ(Asked().second, 0U);
    Press(KEY_SOFT_3, 4);
    for (const auto& [screen, channel] : {std::pair{62, 1U}, {63, 2U}, {64, 4U}, {65, 5U}, {66, 6U}, {67, 7U}}) {
        Show(screen);
        EXPECT_EQ(Asked(), std::pair(channel, 0U));
    }
    Show(61);
    EXPECT_EQ(Asked(), std::pair(0U, 4U));
    EXPECT_EQ(meter().Calls(kCount), 0) << "asked at first only";
    Press(KEY_SOFT_1);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), 61) << "its parent is not there; nothing to the right";
}

TEST_F(HarmonicScreens, HaveRoomFor63HarmonicsOfAnyMagnitude) {
    meter().Answer(kCount, std::uint32_t{63});
    Create();
    Show(61);
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("harmonics/all_63"));
    Press(KEY_SOFT_2);
    HarmonicData data = Spectrum(1);
    data.magnitudes[20].Set(0xFFFFFFFF);
    meter().Answer(kSpectrum, data);
    Ticks(21);
    EXPECT_TRUE(PanelShows("harmonics/beyond_the_scale"));
}

}  // namespace
