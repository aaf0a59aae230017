#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "simulator/own_folder.h"
#include "tests/bench/shell.h"
#include "tests/bench/typist.h"

namespace {

namespace fs = std::filesystem;

class Session : public testing::Test {
protected:
    static Outcome Run(const std::string& arguments) {
        return Shell(SESSION_PROGRAM " --romfs " ROMFS_DIR " " + arguments);
    }
    std::string Path(const char* name) const { return (m_folder / name).string(); }

private:
    const OwnFolder m_folder{"session"};
};

TEST_F(Session, TheSameArgumentsGiveTheSamePicture) {
    const std::string arguments = "--screen 68 --lang de --scenario sag --seed 7 --picture -";
    const std::string picture = Run(arguments).output;
    EXPECT_TRUE(picture.starts_with("\x89PNG"));
    EXPECT_EQ(Run(arguments).output, picture);
    for (const char* other : {"--screen 25 --lang de --scenario sag --seed 7 --picture -",
                              "--screen 68 --lang fr --scenario sag --seed 7 --picture -",
                              "--screen 68 --lang de --scenario swell --seed 7 --picture -",
                              "--screen 68 --lang de --scenario sag --seed 8 --picture -",
                              "--screen 68 --lang de --scenario " MOTOR_START " --at 5 --picture -"}) {
        const Outcome outcome = Run(other);
        EXPECT_EQ(outcome.status, 0) << outcome.talk;
        EXPECT_TRUE(outcome.output.starts_with("\x89PNG")) << other;
        EXPECT_NE(outcome.output, picture) << other;
    }
}

TEST_F(Session, RefusesWordsThatItDoesNotKnow) {
    for (const char* line : {"--lang xx --picture -", "--mode sideways --picture -", "--scenario rain --picture -",
                             "--screen 999 --picture -", "--picture - --all x"}) {
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.status, 2) << line;
        EXPECT_EQ(outcome.output, "") << line;
        EXPECT_NE(outcome.talk, "") << line;
    }
    EXPECT_EQ(Run("--scenario absent --screen 25 --picture -").status, 1);
}

TEST_F(Session, PhotographsEveryScreen) {
    EXPECT_EQ(Run("--lang ru --all " + Path("all")).status, 0);
    const auto count = std::distance(fs::directory_iterator(Path("all")), fs::directory_iterator());
    EXPECT_GT(count, 180);
}

TEST_F(Session, FiveMinutesOfWorkReplayFrameByFrame) {
    constexpr std::array kKeys = {"soft3", "soft4", "soft3", "soft1", "soft2",
                                  "soft4", "home",  "soft3", "soft1", "soft4"};
    constexpr std::array kScenarios = {"sag", "unbalance", "normal"};
    constexpr std::array kFaults = {"slow", "none", "half", "none", "garbage", "none", "reset", "none"};
    std::ofstream script(Path("script"));
    for (std::size_t i = 1; i < 295; ++i) {
        script << i << " press " << kKeys[(i + i / 29) % kKeys.size()] << '\n';
        if (i % 20 == 0) script << i << ".3 navigate " << 1 + i % 196 << '\n';
        if (i % 45 == 0) script << i << ".4 scenario " << kScenarios[i / 45 % kScenarios.size()] << '\n';
        if (i % 25 == 0) script << i << ".6 fault " << kFaults[i / 25 % kFaults.size()] << '\n';
    }
    script.close();
    const std::string work = "--seed 7 --seconds 300 --script " + Path("script") + " --record ";
    const Outcome recorded = Run(work + Path("long"));
    EXPECT_EQ(recorded.status, 0);
    EXPECT_EQ(Run(work + Path("again")).status, 0);
    EXPECT_EQ(ContentOf(Path("again")), ContentOf(Path("long"))) << "two runs differ";
    EXPECT_EQ(recorded.talk.find("error"), std::string::npos) << recorded.talk;
    const Outcome outcome = Run("--replay " + Path("long"));
    EXPECT_EQ(outcome.status, 0) << outcome.talk;
    EXPECT_NE(outcome.talk.find("frames, all as recorded"), std::string::npos) << outcome.talk;
    EXPECT_GT(std::stoi(outcome.talk.substr(outcome.talk.find(": ") + 2)), 300) << outcome.talk;
}

TEST_F(Session, RefusesWhatIsNoWholeRecordingAndNamesTheFirstFrameThatDiffers) {
    std::ofstream(Path("script")) << "0.5 press soft1\n1.25 press soft3\n2 scenario sag\n2.5 language 1\n"
                                     "3 navigate 68\n4 fault slow\n6 fault none\n6.2 key home\n7 press soft23\n"
                                     "8 fault absent\n9 fault none\n";
    const Outcome recorded = Run("--seed 7 --seconds 10 --record " + Path("rec") + " --script " + Path("script"));
    ASSERT_EQ(recorded.status, 0) << recorded.talk;
    const std::string whole = ContentOf(Path("rec"));
    std::ofstream(Path("cut")) << whole.substr(0, whole.rfind("{\"t\""));
    EXPECT_NE(Run("--replay " + Path("cut")).talk.find("it was not recorded whole"), std::string::npos);
    std::ofstream(Path("torn")) << whole.substr(0, 500);
    const Outcome torn = Run("--replay " + Path("torn"));
    EXPECT_EQ(torn.status, 1);
    EXPECT_NE(torn.talk.find("torn:2: no line of a recording"), std::string::npos) << torn.talk;

    // Of the second phasors that the meter sent, some texts and numbers become others.
    std::string changed = whole;
    const std::size_t first = whole.find("PQINTERFACE_getPhasorData");
    const std::size_t reply = whole.find(R"("reply":")", whole.find("PQINTERFACE_getPhasorData", first + 1)) + 9;
    for (std::size_t byte = 172; byte < 400; ++byte) changed.replace(reply + 2 * byte, 2, "38");
    std::ofstream(Path("changed")) << changed;
    const Outcome outcome = Run("--replay " + Path("changed"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.talk.find("differs from the recording"), std::string::npos) << outcome.talk;
    EXPECT_TRUE(ContentOf(Path("changed.recorded.png")).starts_with("\x89PNG"));
    EXPECT_NE(ContentOf(Path("changed.recorded.png")), ContentOf(Path("changed.replayed.png")));
}

TEST_F(Session, WritesNoTypedPasswordIntoARecordingAndReplaysItStill) {
    const std::string word = FreshWord(12);
    std::vector<int> keys = {3, 3, 4, 3, 3, 4};  // to test mode, and Enter for the user
    std::ranges::copy(KeysThatType(word), std::back_inserter(keys));
    std::ofstream script(Path("script"));
    script << "0.1 navigate 1\n";
    for (std::size_t i = 0; i < keys.size(); ++i)
        script << 0.2 + 0.1 * static_cast<double>(i) << " press soft" << keys[i] << '\n';
    script.close();
    const Outcome outcome = Run("--seconds 20 --record " + Path("rec") + " --script " + Path("script"));
    ASSERT_EQ(outcome.status, 0) << outcome.talk;
    const std::string recording = ContentOf(Path("rec"));
    std::string hex;
    for (const char sign : word) hex += "3" + std::string(1, "0123456789abcdef"[sign & 15]);
    const std::string asked =
        "5553455200"
        "2a2a2a2a2a2a2a2a00";  // the user, and the password in stars
    EXPECT_NE(recording.find(asked), std::string::npos) << "the meter was not asked";
    for (const std::string& secret : {word, hex}) EXPECT_EQ(recording.find(secret), std::string::npos);
    EXPECT_EQ(Run("--replay " + Path("rec")).status, 0);
}

/// The link waits some seconds before it tries an absent meter again, while the count of seconds leaves 31 or 32 bits.
TEST_F(Session, FindsItsMeterAgainInTheYears2038And2106) {
    std::ofstream(Path("script")) << "5 fault absent\n12 fault none\n";
    for (const char* start : {"2147483637", "4294967285"}) {
        const Outcome outcome = Run("--start " + std::string(start) + " --seconds 40 --record " + Path("rec") +
                                    " --script " + Path("script"));
        ASSERT_EQ(outcome.status, 0) << outcome.talk;
        int calls = 0;
        std::istringstream lines(ContentOf(Path("rec")));
        for (std::string text; std::getline(lines, text);) {
            const auto line = nlohmann::json::parse(text);
            calls += line.contains("call") && line["t"] > 30'000 && !line["reply"].empty() ? 1 : 0;
        }
        EXPECT_GT(calls, 20) << "from " << start;
    }
}

}  // namespace
