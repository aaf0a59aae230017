#include <gtest/gtest.h>

#include <span>

#include "tests/bench/typist.h"
#include "tools/soak/real_bench.h"

namespace {

using std::chrono::seconds;

constexpr const char* kConnected = "\n\tstartupscreen: mConnected == TRUE\n\t";

/// The display's own process on a played board, beside the simulated meter.
class Display : public ::testing::Test, protected RealBench {
protected:
    void SetUp() override {
        if (!IsAlone()) GTEST_SKIP() << "no network namespace can be made here";
    }
    void TearDown() override {
        if (display) {
            EXPECT_TRUE(display->IsRunning()) << display->Console();
        }
    }

    /// Waits for the frame to become another one. @return whether it did
    bool FrameChanges(const std::function<void()>& cause) {
        const auto before = board->NewestFrame();
        cause();
        return Eventually([&] { return *board->NewestFrame() != *before; });
    }
    /// The pixels of the newest frame that a screen's title stands on.
    std::vector<std::uint8_t> TitleBand() const {
        constexpr std::ptrdiff_t kRow = 2 * 320;
        const auto frame = board->NewestFrame();
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(frame->data());
        return {bytes + 25 * kRow, bytes + 54 * kRow};
    }
    void Press(panel::Key key) {
        constexpr std::int32_t kPressed = 0;
        constexpr std::int32_t kReleased = 1;
        const auto code = static_cast<std::int32_t>(key);
        ASSERT_TRUE(board->Send({code, kPressed}));
        ASSERT_TRUE(board->Send({code, kReleased}));
    }
    bool IsHandedOver() {
        return Eventually([this] { return board->State().lineHigh[1]; }) &&
               Eventually([this] { return display->Printed("Starting Display Server"); });
    }
};

TEST_F(Display, ShowsTheSplashForTwoSecondsAndThenLiveValues) {
    ASSERT_TRUE(StartMeter());
    const auto start = std::chrono::steady_clock::now();
    StartDisplay();
    ASSERT_TRUE(Eventually([this] { return board->State().frames > 0; }));
    EXPECT_TRUE(board->State().backlight.on);
    ASSERT_TRUE(IsHandedOver());
    EXPECT_GE(std::chrono::steady_clock::now() - start, seconds(2));
    EXPECT_TRUE(display->Printed(kConnected));
    EXPECT_EQ(board->State().backlight.level, 255);
    EXPECT_FALSE(board->State().lineHigh[0]);
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(FrameChanges([] {})) << "the values run";
    EXPECT_TRUE(display->IsRunning());
}

TEST_F(Display, FollowsTheMetersCommands) {
    ASSERT_TRUE(StartMeter());
    StartDisplay();
    ASSERT_TRUE(IsHandedOver());
    for (const char* line : {"alt-mode 1", "navigate 25", "key soft1", "key soft3", "language 1"})
        EXPECT_TRUE(FrameChanges([&] { EXPECT_EQ(ToMeter(line).substr(0, 2), "ok"); })) << line;
    for (const auto& [line, answer] : {std::pair{"hardware-id", "3"},
                                       {"app-version", "N/A"},
                                       {"app-variant", "2"},
                                       {"kernel-version", "000.000.000"}})
        EXPECT_NE(ToMeter(line).find(answer), std::string::npos) << line;
}

/// From the start screen through menu and password to another language, by nothing but the panel's keys.
TEST_F(Display, ChangesTheLanguageByKeys) {
    ASSERT_TRUE(StartMeter());
    StartDisplay();
    ASSERT_TRUE(IsHandedOver());
    const auto press = [this](std::initializer_list<panel::Key> keys) {
        for (const panel::Key key : keys) {
            Press(key);
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    };
    using enum panel::Key;
    press({Home, Soft3, Soft3, Soft3, Soft4});                 // the menu's group "Setup"
    press({Soft3, Soft3, Soft3, Soft3, Soft3, Soft3, Soft4});  // its page "Language"
    const auto english = TitleBand();
    press({Soft4});
    press({Soft3, Soft3, Soft4});                                            // Enter confirms the user
    press({Soft1, Soft1, Soft1, Soft1, Soft3, Soft3, Soft3, Soft3, Soft4});  // from the space bar to 0
    press({Soft1, Soft3, Soft4});                                            // Enter
    EXPECT_EQ(ToMeter("get 1914"), "ok Language: English ");
    press({Soft3, Soft4});
    EXPECT_EQ(ToMeter("get 1914"), "ok Language: English ") << "nothing is written before the confirmation";
    press({Soft4});
    EXPECT_TRUE(Eventually([this] { return ToMeter("get 1914") == "ok Language: German "; }));
    EXPECT_TRUE(Eventually([&] { return TitleBand() != english; })) << "the title follows";
    const auto german = TitleBand();
    ToMeter("language 0");
    EXPECT_TRUE(Eventually([&] { return TitleBand() == english; })) << "the page is the one before";
    ToMeter("language 1");
    EXPECT_TRUE(Eventually([&] { return TitleBand() == german; }));
}

/// A password that was typed is in the display's memory until the meter has answered, and nowhere afterwards.
TEST_F(Display, ForgetsAPassword) {
    ASSERT_TRUE(StartMeter());
    StartDisplay();
    ASSERT_TRUE(IsHandedOver());
    const std::string word = FreshWord(14);
    std::string wide;
    for (const char sign : word) wide.append(1, sign).append(1, '\0');
    const auto press = [this](std::span<const int> keys) {
        for (const int key : keys) EXPECT_TRUE(FrameChanges([&] { Press(static_cast<panel::Key>(key)); }));
    };
    EXPECT_TRUE(FrameChanges([this] { ToMeter("navigate 1"); }));
    press(std::vector{3, 3, 4});  // test mode
    press(std::vector{3, 3, 4});  // Enter confirms the user
    const std::vector<int> keys = KeysThatType(word);
    press(std::span(keys).first(keys.size() - 1));
    EXPECT_TRUE(display->Remembers(wide)) << "the search does not find what is there";
    press(std::span(keys).last(1));
    for (const std::string& secret : {word, wide}) {
        EXPECT_TRUE(Eventually([&] { return !display->Remembers(secret); }, seconds(2)))
            << "the dialog is closed by then";
        EXPECT_EQ(display->Console().find(secret), std::string::npos);
        EXPECT_EQ(meter->Console().find(secret), std::string::npos);
    }
    EXPECT_TRUE(display->IsRunning());
}

TEST_F(Display, FindsAMeterThatComesLateAndOneThatComesBack) {
    StartDisplay();
    ASSERT_TRUE(Eventually([this] { return display->Printed("\nmessage:connectToServer\n)"); }));
    ASSERT_TRUE(StartMeter());
    ASSERT_TRUE(IsHandedOver());
    meter.reset();
    ASSERT_TRUE(StartMeter());
    EXPECT_TRUE(
        Eventually([this] { return ToMeter("state").find("\"connections\":0") == std::string::npos; }, seconds(40)));
    EXPECT_TRUE(FrameChanges([] {}));
    EXPECT_TRUE(display->IsRunning());
}

}  // namespace
