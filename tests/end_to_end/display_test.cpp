#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <memory>
#include <span>

#include "simulator/panel/board.h"
#include "tests/bench/typist.h"
#include "tests/end_to_end/programs.h"

namespace {

using std::chrono::seconds;

constexpr const char* kConnected = "\n\tstartupscreen: mConnected == TRUE\n\t";

/// Sends one control line to the meter simulator. @return its answer
std::string Tell(const std::filesystem::path& control, const std::string& line) {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    control.string().copy(address.sun_path, sizeof address.sun_path - 1);
    std::string answer;
    if (::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) {
        const std::string sent = line + "\n";
        char letter = 0;
        if (::send(socket, sent.data(), sent.size(), 0) == static_cast<ssize_t>(sent.size())) {
            while (::recv(socket, &letter, 1, 0) == 1 && letter != '\n') answer += letter;
        }
    }
    ::close(socket);
    return answer;
}

/// The display's own process on a played board, beside the simulated meter.
class Display : public ::testing::Test {
protected:
    void SetUp() override {
        if (!EnterOwnNetwork()) GTEST_SKIP() << "no network namespace can be made here";
        std::string folder = (std::filesystem::temp_directory_path() / "end-to-end-XXXXXX").string();
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
        board = std::make_unique<panel::Board>(m_folder);
        std::filesystem::create_directory_symlink(ROMFS_DIR, m_folder / "romfs");
    }
    void TearDown() override {
        if (display) {
            EXPECT_TRUE(display->IsRunning()) << display->Console();
        }
        display.reset();
        meter.reset();
        board.reset();
        if (!m_folder.empty()) std::filesystem::remove_all(m_folder);
    }

    void StartMeter(const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"--control", Control()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        meter = std::make_unique<Program>(METER_PROGRAM, arguments);
        ASSERT_TRUE(Eventually([this] { return std::filesystem::exists(Control()); }));
    }
    void StartDisplay() {
        display = std::make_unique<Program>(DISPLAY_PROGRAM, std::vector<std::string>{},
                                            std::vector<std::string>{"BOARD_ROOT=" + m_folder.string()});
    }
    std::string Control() const { return (m_folder / "control").string(); }
    std::string ToMeter(const std::string& line) const { return Tell(Control(), line); }

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

    std::unique_ptr<panel::Board> board;
    std::unique_ptr<Program> meter;
    std::unique_ptr<Program> display;

private:
    std::filesystem::path m_folder;
};

TEST_F(Display, ShowsTheSplashForTwoSecondsAndThenLiveValues) {
    StartMeter();
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

TEST_F(Display, FollowsKeysAndTheMetersCommands) {
    StartMeter();
    StartDisplay();
    ASSERT_TRUE(IsHandedOver());
    EXPECT_TRUE(FrameChanges([this] { EXPECT_EQ(ToMeter("alt-mode 1").substr(0, 2), "ok"); }));
    EXPECT_TRUE(FrameChanges([this] { EXPECT_EQ(ToMeter("navigate 25").substr(0, 2), "ok"); }));
    EXPECT_TRUE(FrameChanges([this] { Press(panel::Key::Soft1); })) << "the options of the currents";
    EXPECT_TRUE(FrameChanges([this] { EXPECT_EQ(ToMeter("key soft3").substr(0, 2), "ok"); }));
    EXPECT_TRUE(FrameChanges([this] { EXPECT_EQ(ToMeter("language 1").substr(0, 2), "ok"); }));
    EXPECT_NE(ToMeter("hardware-id").find('3'), std::string::npos);
    EXPECT_NE(ToMeter("app-version").find("N/A"), std::string::npos);
    EXPECT_NE(ToMeter("app-variant").find('2'), std::string::npos);
    EXPECT_NE(ToMeter("kernel-version").find("000.000.000"), std::string::npos);
}

/// From the start screen through menu and password to another language, by nothing but the panel's keys.
TEST_F(Display, ChangesTheLanguageByKeys) {
    StartMeter();
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
    ASSERT_TRUE(Eventually([this] { return !TitleBand().empty(); }));
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
    StartMeter();
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
    StartMeter();
    ASSERT_TRUE(IsHandedOver());
    meter.reset();
    std::filesystem::remove(Control());
    StartMeter();
    EXPECT_TRUE(
        Eventually([this] { return ToMeter("state").find("\"connections\":0") == std::string::npos; }, seconds(40)));
    EXPECT_TRUE(FrameChanges([] {}));
    EXPECT_TRUE(display->IsRunning());
}

TEST_F(Display, SurvivesEveryFaultOfTheLink) {
    StartMeter();
    StartDisplay();
    ASSERT_TRUE(IsHandedOver());
    for (const char* fault : {"slow", "half", "garbage", "reset", "silent"}) {
        EXPECT_EQ(ToMeter(std::string("fault ") + fault).substr(0, 2), "ok");
        std::this_thread::sleep_for(seconds(2));
        EXPECT_TRUE(display->IsRunning()) << fault;
        EXPECT_EQ(ToMeter("fault none").substr(0, 2), "ok");
    }
    EXPECT_TRUE(Eventually([this] { return board->State().frames > 0; }));
    const auto before = board->State().frames;
    EXPECT_TRUE(Eventually([&] { return board->State().frames > before + 1; }, seconds(40)));
}

TEST_F(Display, ComesUpWithoutAnyOfItsFilesAndDevices) {
    StartMeter();
    display = std::make_unique<Program>(DISPLAY_PROGRAM, std::vector<std::string>{},
                                        std::vector<std::string>{"BOARD_ROOT=/nonexistent"});
    EXPECT_TRUE(Eventually([this] { return display->Printed("Starting Display Server"); }));
    EXPECT_TRUE(display->Printed("[integratedDisplayRtp:main] VEKHWIF_init failed!\n"));
    EXPECT_TRUE(display->Printed("Failed to open file /romfs/resources.pbr\n"));
    EXPECT_EQ(ToMeter("hardware-id").substr(0, 2), "ok");
    EXPECT_TRUE(display->IsRunning());
}

TEST_F(Display, IsFoundAgainByItsBoardAfterARestart) {
    StartMeter();
    for (int life = 0; life < 2; ++life) {
        const auto before = board->State().frames;
        StartDisplay();
        ASSERT_TRUE(Eventually([&] { return board->State().frames > before; }));
        ASSERT_TRUE(Eventually([this] { return display->Printed("Starting Display Server"); }));
        display.reset();
    }
}

}  // namespace
