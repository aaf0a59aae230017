#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdlib>
#include <random>
#include <set>
#include <thread>

#include "simulator/panel/board.h"
#include "tests/end_to_end/programs.h"

// The display's process is killed at random moments, on a board that lives on, and started again: 1,000 times with
// EVERY_CASE in the environment, over four boards that may be tried side by side, 16 times without.

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr int kBoards = 4;
constexpr int kLives = 4;         // on one board
constexpr int kLivesOfAll = 250;  // with EVERY_CASE
constexpr milliseconds kStartUp{300};
constexpr milliseconds kHandOver{2500};
constexpr milliseconds kWhole{4000};
constexpr milliseconds kSettling{200};
constexpr std::int32_t kPressed = 0;
constexpr std::int32_t kReleased = 1;

class KilledDisplay : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (!EnterOwnNetwork()) GTEST_SKIP() << "no network namespace can be made here";
        std::string folder = (fs::temp_directory_path() / "killed-display-XXXXXX").string();
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
        board = std::make_unique<panel::Board>(m_folder);
        fs::create_directory_symlink(ROMFS_DIR, m_folder / "romfs");
        m_meter = std::make_unique<Program>(METER_PROGRAM, std::vector<std::string>{});
    }
    void TearDown() override {
        m_display.reset();
        m_meter.reset();
        board.reset();
        if (!m_folder.empty()) fs::remove_all(m_folder);
    }

    /// One life of the display; one that lasts long enough is looked at.
    void Live(milliseconds length) {
        const auto end = std::chrono::steady_clock::now() + length;
        const std::uint64_t frames = board->State().frames;
        m_display = std::make_unique<Program>(DISPLAY_PROGRAM, std::vector<std::string>{},
                                              std::vector<std::string>{"BOARD_ROOT=" + m_folder.string()});
        const auto shows = [&] { return board->State().frames > frames; };
        EXPECT_TRUE(length < kStartUp || Eventually(shows)) << "no splash";
        if (length > kHandOver) LookAtIt();
        std::this_thread::sleep_until(end - milliseconds(m_random() % 2));
        PressAnyKey();
        std::this_thread::sleep_until(end);
        m_display->Kill();
    }
    void LookAtIt() {
        EXPECT_TRUE(Eventually([this] { return m_display->Printed("Starting Display Server"); }));
        EXPECT_TRUE(Eventually([this] { return IsLitAndDriven(); }));
        for (int press = 0; press < 2; ++press) {    // to the menu, or from there
            std::this_thread::sleep_for(kSettling);  // keys of the life before may still be on their way
            const auto before = board->NewestFrame();
            Press(panel::Key::Home);
            EXPECT_TRUE(Eventually([&] { return *board->NewestFrame() != *before; })) << "no answer to a key";
        }
        ++looks;
    }
    bool IsLitAndDriven() const {
        const panel::BoardState state = board->State();
        return state.backlight.on && state.backlight.level == panel::kBrightest && !state.lineHigh[0] &&
               state.lineHigh[1];
    }
    void Press(panel::Key key) {
        EXPECT_TRUE(board->Send({static_cast<std::int32_t>(key), kPressed}));
        EXPECT_TRUE(board->Send({static_cast<std::int32_t>(key), kReleased}));
    }
    /// Half of it may be all that the display reads.
    void PressAnyKey() {
        if (board->State().displayUp) Press(m_random() % 2 == 0 ? panel::Key::Soft3 : panel::Key::Home);
    }
    /// What stands in the board's folder.
    std::set<fs::path> Belongings() const { return {fs::recursive_directory_iterator(m_folder), {}}; }
    bool IsFrameBufferWhole() const { return fs::file_size(m_folder / "db9000_fb") == panel::kFrameBytes; }
    milliseconds AnyMoment() {
        const milliseconds longest = std::array{kStartUp, kStartUp, kHandOver, kWhole}[m_random() % 4];
        return milliseconds(m_random() % static_cast<unsigned long>(longest.count()));
    }

    std::unique_ptr<panel::Board> board;
    int looks = 0;

private:
    std::mt19937 m_random{static_cast<unsigned>(GetParam())};
    fs::path m_folder;
    std::unique_ptr<Program> m_meter;
    std::unique_ptr<Program> m_display;
};

TEST_P(KilledDisplay, ComesBackEachTimeToAWholeBoard) {
    const int lives = std::getenv("EVERY_CASE") != nullptr ? kLivesOfAll : kLives;
    const auto belongings = Belongings();
    for (int life = 0; life < lives && !HasFailure(); ++life) {
        const milliseconds length = AnyMoment();
        Live(length);
        EXPECT_EQ(Belongings(), belongings);
        EXPECT_TRUE(IsFrameBufferWhole());
        EXPECT_FALSE(HasFailure()) << "life " << life << " of " << length.count() << " ms";
    }
    Live(kWhole);
    EXPECT_GE(looks, 1);
    std::printf("%d lives, %d of them looked at\n", lives, looks);
}

INSTANTIATE_TEST_SUITE_P(Board, KilledDisplay, testing::Range(0, kBoards));

}  // namespace
