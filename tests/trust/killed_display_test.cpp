#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>
#include <thread>

#include "tools/soak/real_bench.h"

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

class KilledDisplay : public testing::TestWithParam<int>, protected RealBench {
protected:
    void SetUp() override {
        if (!IsAlone()) GTEST_SKIP() << "no network namespace can be made here";
        ASSERT_TRUE(StartMeter());
    }

    /// One life of the display; one that lasts long enough is looked at.
    void Live(milliseconds length) {
        const auto end = std::chrono::steady_clock::now() + length;
        const std::uint64_t frames = board->State().frames;
        StartDisplay();
        const auto shows = [&] { return board->State().frames > frames; };
        EXPECT_TRUE(length < kStartUp || Eventually(shows)) << "no splash";
        if (length > kHandOver) LookAtIt();
        std::this_thread::sleep_until(end - milliseconds(random() % 2));
        // Half of it may be all that the display reads.
        if (board->State().displayUp) Press(random() % 2 == 0 ? panel::Key::Soft3 : panel::Key::Home);
        std::this_thread::sleep_until(end);
        display->Kill();
    }
    void LookAtIt() {
        EXPECT_TRUE(Eventually([this] { return display->Printed("Starting Display Server"); }));
        EXPECT_TRUE(Eventually([this] {
            const panel::BoardState state = board->State();
            return state.backlight.on && state.backlight.level == panel::kBrightest && !state.lineHigh[0] &&
                   state.lineHigh[1];
        }));
        for (int press = 0; press < 2; ++press) {    // to the menu, or from there
            std::this_thread::sleep_for(kSettling);  // keys of the life before may still be on their way
            const auto before = board->NewestFrame();
            Press(panel::Key::Home);
            EXPECT_TRUE(Eventually([&] { return *board->NewestFrame() != *before; })) << "no answer to a key";
        }
        ++looks;
    }
    void Press(panel::Key key) {
        EXPECT_TRUE(board->Send({static_cast<std::int32_t>(key), kPressed}));
        EXPECT_TRUE(board->Send({static_cast<std::int32_t>(key), kReleased}));
    }
    /// What stands in the board's folder.
    std::set<fs::path> Belongings() const { return {fs::recursive_directory_iterator(Folder()), {}}; }

    int looks = 0;
    std::mt19937 random{static_cast<unsigned>(GetParam())};
};

TEST_P(KilledDisplay, ComesBackEachTimeToAWholeBoard) {
    const int lives = std::getenv("EVERY_CASE") != nullptr ? kLivesOfAll : kLives;
    const auto belongings = Belongings();
    for (int life = 0; life < lives && !HasFailure(); ++life) {
        const milliseconds longest = std::array{kStartUp, kStartUp, kHandOver, kWhole}[random() % 4];
        const milliseconds length(random() % static_cast<unsigned long>(longest.count()));
        Live(length);
        EXPECT_EQ(Belongings(), belongings);
        EXPECT_EQ(fs::file_size(Folder() / "db9000_fb"), panel::kFrameBytes);
        EXPECT_FALSE(HasFailure()) << "life " << life << " of " << length.count() << " ms";
    }
    Live(kWhole);
    EXPECT_GE(looks, 1);
    std::printf("%d lives, %d of them looked at\n", lives, looks);
}

INSTANTIATE_TEST_SUITE_P(Board, KilledDisplay, testing::Range(0, kBoards));

}  // namespace
