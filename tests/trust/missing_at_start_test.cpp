#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bitset>

#include "tests/trust/stage.h"
#include "tests/trust/trial.h"

// The display starts without any of what it is made for, in every combination, and then gets it all back.

namespace {

enum Thing : unsigned { Meter, ResourceFile, LocalizationFile, FrameBuffer, Backlight, Keys, Port0, Port1, ThingCount };
using Missing = std::bitset<ThingCount>;

struct ThingRow {
    std::string_view name;
    std::string_view path;     // under which it is opened
    std::string_view console;  // line that tells of its absence, once
};
constexpr std::array<ThingRow, ThingCount> kThings = {{
    {"meter", "", ""},
    {"resource file", "/romfs/resources.pbr", "Failed to open file /romfs/resources.pbr\n"},
    {"localisation file", "/romfs/localization.dat", ""},
    {"frame buffer", "/db9000_fb", ""},
    {"backlight", "/db9000_bl", "[integratedDisplayRtp:main] VEKHWIF_init failed!\n"},
    {"keys", "/buttons", ""},
    {"output port 0", "/rasGpio1/0", ""},
    {"output port 1", "/rasGpio1/1", ""},
}};

constexpr int kFirstScreen = 200;
constexpr std::int32_t kPowerOnLevel = 200;

std::string NamesOf(Missing missing) {
    std::string names;
    for (unsigned thing = 0; thing < ThingCount; ++thing)
        if (missing[thing]) names += (names.empty() ? "" : ", ") + std::string(kThings[thing].name);
    return names.empty() ? "nothing" : names;
}

class BareStage : public Stage {
public:
    BareStage() : Stage(InGerman()) {}

    Missing missing;

    bool MeterListens() override { return !missing[Meter] && Stage::MeterListens(); }
    bool Fails(session::OsCall call, std::string_view path) override {
        if (call != session::OsCall::Open) return false;
        for (unsigned thing = 0; thing < ThingCount; ++thing)
            if (missing[thing] && path == kThings[thing].path) return true;
        return false;
    }
};

/// What is not as it should be.
struct Complaints {
    void Unless(bool holds, std::string_view what) {
        if (!holds) words += "; " + std::string(what);
    }
    std::string words;
};

/// What is there works, and what is not has left no trace.
void CheckDefinedState(BareStage& stage, Complaints& complain) {
    const Missing missing = stage.missing;
    CountingBoard& board = stage.Board();
    const bool handedOver = !missing[Meter];
    complain.Unless(Stage::HasHandedOver() == handedOver, "hand-over with a meter, splash without");
    complain.Unless(Stage::IsServing() == handedOver, "command server");
    if (handedOver) complain.Unless(Stage::ShownScreen() == kFirstScreen, "first screen");
    complain.Unless((board.frames > 0) == !missing[FrameBuffer], "frames");
    complain.Unless(Stage::IsGerman() == !missing[LocalizationFile], "translation");
    complain.Unless(board.backlight.on == !missing[Backlight], "backlight");
    const std::int32_t level = handedOver ? panel::kBrightest : kPowerOnLevel / 4;
    complain.Unless(board.backlight.level == (missing[Backlight] ? kPowerOnLevel : level), "brightness");
    complain.Unless(board.ports[0].high == (handedOver && !missing[Port0] ? kLine1 : kPowerOnLines), "output lines");
    complain.Unless(board.controls.contains("/rasGpio1/1") == (handedOver && !missing[Port1]), "alarm lamp");
    const std::string console = Console();
    for (unsigned thing = 0; thing < ThingCount; ++thing) {
        const std::string_view line = kThings[thing].console;
        if (line.empty()) continue;
        const bool isSaid = console.find(line) != std::string::npos;
        complain.Unless(isSaid == missing[thing] && console.find(line) == console.rfind(line), line);
    }
}

/// All is there again: what the display opens for each use works at once, what it reads once stays away.
void CheckRecovery(BareStage& stage, Complaints& complain) {
    const Missing missed = stage.missing;
    CountingBoard& board = stage.Board();
    stage.missing.reset();
    const int frames = board.frames;
    const int lamp = board.controls["/rasGpio1/1"];
    stage.Run(3 * kSecond);
    complain.Unless(Stage::HasHandedOver() && Stage::IsServing(), "hand-over when the meter came");
    complain.Unless(board.frames > frames, "frames again");
    complain.Unless(board.controls["/rasGpio1/1"] > lamp, "alarm lamp again");
    const bool isDriven = missed[Meter] || !missed[Port0];  // lines 0 and 1 are driven at the hand-over alone
    complain.Unless(board.ports[0].high == (isDriven ? kLine1 : kPowerOnLines), "output lines after the hand-over");
    stage.PressHome();
    stage.Run(kSecond);
    complain.Unless(Stage::ShownScreen() == kMenu, "a key leads to the menu");
    complain.Unless(board.backlight.level == panel::kBrightest, "a key lights the panel");
    complain.Unless(stage.Show(kComparedScreen), "the meter's command");
}

/// @return what is wrong; without complaints, the pictures of one screen at the end
std::string StartWithout(BareStage& stage, Missing missing) {
    Complaints complain;
    stage.missing = missing;
    stage.Board().ports[0].high = kPowerOnLines;
    stage.StartDisplay();
    stage.Run(3 * kSecond);
    CheckDefinedState(stage, complain);
    CheckRecovery(stage, complain);
    return complain.words.empty() ? stage.FlashingPicture() : complain.words;
}

/// Whether the resource file and the localisation file are missing: what is drawn depends on nothing else.
class MissingAtStart : public testing::TestWithParam<unsigned> {
protected:
    MissingAtStart() { m_stage.RaiseAnAlarm(); }
    Missing Files() const {
        Missing missing;
        missing[ResourceFile] = (GetParam() & 1) != 0;
        missing[LocalizationFile] = (GetParam() & 2) != 0;
        return missing;
    }
    Verdict Start(Missing missing) {
        return Try([this, missing] { return StartWithout(m_stage, missing); });
    }

private:
    BareStage m_stage;
};

TEST_P(MissingAtStart, EverySubsetReachesItsStateAndRecovers) {
    const Verdict files = Start(Files());
    ASSERT_EQ(files.report.find(';'), std::string::npos) << files.report;
    int subsets = 0;
    for (unsigned set = 0; set < 1U << ThingCount; ++set) {
        const Missing missing(set);
        if (missing[ResourceFile] != Files()[ResourceFile] || missing[LocalizationFile] != Files()[LocalizationFile])
            continue;
        const Verdict verdict = Start(missing);
        EXPECT_EQ(verdict.death, "") << "without " << NamesOf(missing);
        EXPECT_EQ(verdict.report, files.report) << "without " << NamesOf(missing);
        ++subsets;
    }
    EXPECT_EQ(subsets, 64);
}

INSTANTIATE_TEST_SUITE_P(Files, MissingAtStart, testing::Range(0U, 4U));

}  // namespace
