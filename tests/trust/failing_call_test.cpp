#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <sstream>

#include "navigation/navigation_handler.h"
#include "peg/resources/resources.h"
#include "tests/trust/failing_stage.h"
#include "tests/trust/trial.h"

// Of the display's calls to its operating system, the k-th one fails.

namespace {

constexpr std::uint16_t kFirstResourceFont = 32;

/// What the display cannot do for good after a call failed while it came up.
enum Loss : unsigned {
    Nothing = 0,
    Everything = 1,  // there is no toolkit
    HandOver = 2,    // the splash stays
    Server = 4,
    Keys = 8,
    Lamp = 16,
    Lines = 32,  // that the hand-over drives
    Resources = 64,
    Texts = 128,
};

struct LossRow {
    std::string_view call;
    unsigned loss;
    std::string_view console;  // the line that tells of it
};
// What is lost is lost with its line on the console; a call without a row loses nothing.
// clang-format off
constexpr auto kLosses = std::to_array<LossRow>({
    {"msgQCreate",                   HandOver,   "PegInitialize: PegQueue msgQCreate failed\n"},
    {"sigaction USR1",               HandOver,   "Display timers: error creating timer! id=0\n"},
    {"sigaction PIPE",               Nothing,    "\nvuneip: failed to set broken pipe signal\n"},
    {"timer_create",                 HandOver,   "Display timers: error creating timer! id=0\n"},
    {"timer_settime",                HandOver,   "PegMessageQueue:Pop:  pegTimer start failed\n"},
    {"taskCreate tDispTimers",       HandOver,   "DISPTIMERS_init: Spawn of display timers task failed!\n"},
    {"taskActivate tDispTimers",     HandOver,   "PegMessageQueue:Pop:  pegTimer start failed\n"},
    {"taskCreate tPegThread",        Everything, "PegInitialize: Spawn of PegTaskMain failed\n"},
    {"taskActivate tPegThread",      Everything, "PegInitialize: Spawn of PegTaskMain failed\n"},
    {"taskCreate tDispRdaServer",    Server,     "PEG Command Server: Failed to create task: tDispRdaServerd\n"},
    {"taskActivate tDispRdaServer",  Server,     ""},
    {"taskCreate tDispButtons",      Keys,       ""},
    {"taskActivate tDispButtons",    Keys,       ""},
    {"taskCreate tDispOneSecond",    Lamp,       ""},
    {"taskActivate tDispOneSecond",  Lamp,       ""},
    {"open /rasGpio1/0",             Lines,      ""},
    {"ioctl /rasGpio1/0",            Lines,      ""},
    {"open /romfs/resources.pbr",    Resources,  "Failed to open file /romfs/resources.pbr\n"},
    {"read /romfs/resources.pbr",    Resources,  "Failed to load resource file /romfs/resources.pbr\n"},
    {"open /romfs/localization.dat", Texts,      ""},
    {"read /romfs/localization.dat", Texts,      ""},
    {"new",                          Texts,      ""},
    {"msgQSend",                     Nothing,    "EnqueueTaskMessage: msgQSend failed\n"},
});
// clang-format on

LossRow LossRowOf(std::string_view call) {
    const auto found = std::ranges::find(kLosses, call, &LossRow::call);
    return found != kLosses.end() ? *found : LossRow{call, Nothing, ""};
}

/// What a start-up came to, a line each.
struct Arrival {
    std::string call;      // that failed; empty: there was none of that number
    std::string pictures;  // of one screen
    std::string wrong;     // empty: what was lost is what that call is for
};

unsigned LossOf(FailingStage& stage) {
    CountingBoard& board = stage.Board();
    if (board.frames == 0) return Everything;
    if (!Stage::HasHandedOver()) return HandOver;
    unsigned loss = Nothing;
    if (!Stage::IsServing()) loss |= Server;
    const int lamp = board.controls["/rasGpio1/1"];
    stage.PressHome();
    stage.Run(2 * kSecond);
    const bool isLit = board.backlight.on && board.backlight.level == panel::kBrightest;
    if (Stage::ShownScreen() != kMenu || !isLit) loss |= Keys;
    if (board.controls["/rasGpio1/1"] == lamp) loss |= Lamp;
    if (board.ports[0].high != kLine1) loss |= Lines;
    if (PegResources::GetFont(kFirstResourceFont) == nullptr) loss |= Resources;
    if (!Stage::IsGerman()) loss |= Texts;
    return loss;
}

/// Starts the display with a call failing, and looks at what it can do.
std::string StartUp(FailingStage& stage, std::optional<std::size_t> failing) {
    stage.FailCall(failing);
    stage.StartDisplay();
    const std::string call = failing && *failing < stage.Calls().size() ? stage.Calls()[*failing] : "";
    stage.FailCall(std::nullopt);
    stage.Run(3 * kSecond);
    const unsigned loss = LossOf(stage);
    const LossRow row = LossRowOf(call);
    std::string wrong = loss == row.loss ? "" : "it lost " + std::to_string(loss) + "; ";
    if (Console().find(row.console) == std::string::npos) wrong += "it does not say: " + std::string(row.console);
    if ((loss & (Everything | HandOver)) != 0) return call + "\n\n" + wrong;
    if (Stage::IsServing()) stage.Execute("send-language 1");  // the question for it may have failed
    navigationHandlerClass::postNavigateTo(kComparedScreen);
    stage.Run(2 * kSecond);
    return call + '\n' + ((loss & Lamp) == 0 ? stage.FlashingPicture() : "") + '\n' + wrong;
}

class FailingCall : public testing::Test {
protected:
    FailingCall() {
        m_stage.RaiseAnAlarm();
        m_stage.Board().ports[0].high = kPowerOnLines;
    }
    Arrival Start(std::optional<std::size_t> failing) {
        const Verdict verdict = Try([this, failing] { return StartUp(m_stage, failing); });
        EXPECT_EQ(verdict.death, "") << "call " << failing.value_or(0);
        std::istringstream lines(verdict.report);
        Arrival arrival;
        std::getline(lines, arrival.call) && std::getline(lines, arrival.pictures);
        std::getline(lines, arrival.wrong, '\0');
        EXPECT_EQ(arrival.wrong, "") << "call " << failing.value_or(0) << ", " << arrival.call;
        return arrival;
    }

    std::map<unsigned, std::string> m_pictures;  // by what of Resources and Texts is lost

private:
    FailingStage m_stage{Stage::InGerman()};
};

TEST_F(FailingCall, OfTheStartUpLosesWhatItIsForAndNothingElse) {
    m_pictures[Nothing] = Start(std::nullopt).pictures;
    std::map<std::string, int> kinds;
    for (std::size_t number = 0; !HasFailure(); ++number) {
        const Arrival arrival = Start(number);
        if (arrival.call.empty()) break;
        ++kinds[arrival.call];
        std::string& pictures = m_pictures[LossRowOf(arrival.call).loss & (Resources | Texts)];
        if (pictures.empty()) pictures = arrival.pictures;
        EXPECT_TRUE(arrival.pictures.empty() || arrival.pictures == pictures) << number << ", " << arrival.call;
    }
    for (const LossRow& row : kLosses) EXPECT_EQ(kinds.count(std::string(row.call)), 1U) << "nobody calls " << row.call;
    int calls = 0;
    for (const auto& [call, count] : kinds) calls += count;
    std::printf("%d calls of %zu kinds\n", calls, kinds.size());
}

}  // namespace
