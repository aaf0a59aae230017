#include <gtest/gtest.h>

#include <array>
#include <bitset>

#include "navigation/screen_ids.h"
#include "tests/bench/trial.h"
#include "tests/trust/stage.h"

// The display starts without any of what it is made for, in every combination, and then gets it all back.

namespace {

enum Thing : unsigned { ResourceFile, LocalizationFile, Meter, FrameBuffer, Backlight, Keys, Port0, Port1, ThingCount };
using Missing = std::bitset<ThingCount>;

struct ThingRow {
    std::string_view name;
    std::string_view path;     // under which it is opened
    std::string_view console;  // line that tells of its absence, once
};
constexpr std::array<ThingRow, ThingCount> kThings = {{
    {"resource file", "/romfs/resources.pbr", "Failed to open file /romfs/resources.pbr\n"},
    {"localisation file", "/romfs/localization.dat", ""},
    {"meter", "", ""},
    {"frame buffer", "/db9000_fb", ""},
    {"backlight", "/db9000_bl", "[integratedDisplayRtp:main] VEKHWIF_init failed!\n"},
    {"keys", "/buttons", ""},
    {"output port 0", "/rasGpio1/0", ""},
    {"output port 1", "/rasGpio1/1", ""},
}};

constexpr unsigned kFiles = 2;  // what is drawn depends on nothing but these, the first of the things
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
    BareStage() : Stage("de") { RaiseAnAlarm(); }

    bool MeterListens() override { return !m_missing[Meter] && Stage::MeterListens(); }
    bool Fails(session::OsCall call, std::string_view path) override {
        if (call != session::OsCall::Open) return false;
        for (unsigned thing = 0; thing < ThingCount; ++thing)
            if (m_missing[thing] && path == kThings[thing].path) return true;
        return false;
    }

    /// @return what is wrong; without complaints, the pictures of one screen at the end
    std::string StartWithout(Missing missing) {
        m_missing = missing;
        StartDisplay();
        Run(3 * kSecond);
        CheckDefinedState();
        CheckRecovery();
        return m_wrong.empty() ? FlashingPicture() : m_wrong;
    }

private:
    void Expect(bool holds, std::string_view what) {
        if (!holds) m_wrong.append("; ").append(what);
    }

    /// What is there works, and what is not has left no trace.
    void CheckDefinedState() {
        const bool handedOver = !m_missing[Meter];
        Expect(HasHandedOver() == handedOver, "hand-over with a meter, splash without");
        Expect(IsServing() == handedOver, "command server");
        if (handedOver) Expect(ShownScreen() == kFirstScreen, "first screen");
        Expect((frames > 0) == !m_missing[FrameBuffer], "frames");
        Expect(IsGerman() == !m_missing[LocalizationFile], "translation");
        Expect(backlight.on == !m_missing[Backlight], "backlight");
        const std::int32_t level = handedOver ? panel::kBrightest : kPowerOnLevel / 4;
        Expect(backlight.level == (m_missing[Backlight] ? kPowerOnLevel : level), "brightness");
        Expect(ports[0].high == (handedOver && !m_missing[Port0] ? kLine1 : kPowerOnLines), "output lines");
        Expect((lampRequests > 0) == (handedOver && !m_missing[Port1]), "alarm lamp");
        const std::string console = Console();
        for (unsigned thing = 0; thing < ThingCount; ++thing) {
            const std::string_view line = kThings[thing].console;
            if (line.empty()) continue;
            const bool isSaid = console.find(line) != std::string::npos;
            Expect(isSaid == m_missing[thing] && console.find(line) == console.rfind(line), line);
        }
    }

    /// All is there again: what the display opens for each use works at once, what it reads once stays away.
    void CheckRecovery() {
        const bool isDriven = m_missing[Meter] || !m_missing[Port0];  // lines 0 and 1 are at the hand-over alone
        const int framesBefore = frames;
        const int lampBefore = lampRequests;
        m_missing.reset();
        Run(3 * kSecond);
        Expect(HasHandedOver() && IsServing(), "hand-over when the meter came");
        Expect(frames > framesBefore, "frames again");
        Expect(lampRequests > lampBefore, "alarm lamp again");
        Expect(ports[0].high == (isDriven ? kLine1 : kPowerOnLines), "output lines after the hand-over");
        Execute("press home");
        Run(kSecond);
        Expect(ShownScreen() == kCurrentMenu, "a key leads to the menu");
        Expect(backlight.level == panel::kBrightest, "a key lights the panel");
        Expect(Show(kComparedScreen), "the meter's command");
    }

    Missing m_missing;
    std::string m_wrong;
};

/// Which of the files are missing.
class MissingAtStart : public testing::TestWithParam<unsigned> {};

TEST_P(MissingAtStart, EverySubsetReachesItsStateAndRecovers) {
    BareStage stage;
    std::string pictures;
    for (unsigned others = 0; others < 1U << (ThingCount - kFiles); ++others) {
        const Missing missing(others << kFiles | GetParam());
        const std::string report = Try([&] { return stage.StartWithout(missing); });
        if (others == 0) pictures = report;
        EXPECT_EQ(report.find(';'), std::string::npos) << "without " << NamesOf(missing) << report;
        EXPECT_EQ(report, pictures) << "without " << NamesOf(missing);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, MissingAtStart, testing::Range(0U, 1U << kFiles));

}  // namespace
