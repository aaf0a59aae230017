#include <cstring>
#include <map>
#include <vector>

#include "localization/display_config.h"
#include "tests/setup/setup_edit_bench.h"

namespace {

constexpr std::int32_t kAlarms = 191;
constexpr std::int32_t kResets = 195;
constexpr std::int32_t kServices = 199;
constexpr std::string_view kAlarmCount = "ALARMSINTERFACE_getSettableAlarmsCount";
constexpr std::string_view kAlarmEntries = "ALARMSINTERFACE_getSettableAlarms";

class ListScreen : public SetupEditBench {
protected:
    /// Keeps what is written, and refuses the registers that a test names; without a reason there is no answer.
    ListScreen() {
        meter().AnswerBy(kWrite, [this](std::span<const std::byte> payload, std::span<std::byte> response) {
            WireU32 id{};
            std::memcpy(&id, payload.data(), sizeof id);
            written.emplace_back(id.Get(), reinterpret_cast<const char*>(payload.data()) + sizeof id);
            if (!refused.contains(id.Get())) return meter().Model().Answer(kWrite, payload, response);
            RegisterWriteResult reply{};
            reply.result.Set(1);
            Write(reply.text, refused[id.Get()]);
            std::memcpy(response.data(), &reply, sizeof reply);
            return !refused[id.Get()].empty();
        });
    }

    /// Alarms 1, 2, 3...; every tenth is not to be listed, every second is on, every third has the other check mark.
    static void List(std::uint32_t count) {
        std::vector<SettableAlarmEntry> alarms(count);
        for (std::uint32_t i = 1; i <= count; ++i) {
            SettableAlarmEntry& entry = alarms[i - 1];
            entry.registerId.Set(static_cast<std::int32_t>(i));
            entry.kind.Set(i % 10 == 0 ? 0 : 1);
            entry.enabled.Set(i % 2);
            entry.icon.Set(i % 3 == 0 ? 1 : 0);
            entry.name.fill('n');
        }
        meter().Answer(kAlarmCount, count);
        meter().AnswerFrom(kAlarmEntries, [alarms](auto&) { return alarms; });
    }

    /// Toggles the items of these rows.
    void Toggle(std::initializer_list<int> rows) {
        int row = 0;
        Press(KEY_SOFT_2, 150);
        for (const int wanted : rows) {
            for (; row < wanted; ++row) Press(KEY_SOFT_3);
            Press(KEY_SOFT_2_3);
        }
    }

    using Writes = std::vector<std::pair<std::uint32_t, std::string>>;
    Writes written;
    std::map<std::uint32_t, std::string> refused;
};

TEST_F(ListScreen, WritesEveryServiceAndResetOnce) {
    std::map<std::int32_t, Writes> expected;
    for (const ResetRow& row : kResetRows) expected[kResets].emplace_back(row.registerId, "1");
    for (const std::uint32_t id : kYesNoRegisters) {
        expected[kServices].emplace_back(id, HeldText(id) == "Yes" ? "No" : "Yes");
    }
    for (const auto& [screen, writes] : expected) {
        written.clear();
        Open(screen);
        for (std::size_t i = 0; i < writes.size(); ++i) {
            Press(KEY_SOFT_2_3);
            Press(KEY_SOFT_3);
        }
        Press(KEY_SOFT_4);
        EXPECT_TRUE(written.empty()) << "nothing is written unconfirmed";
        Press(KEY_SOFT_4);
        EXPECT_EQ(written, writes);
        EXPECT_EQ(Shown(), kView) << screen;
    }
    for (const auto& [id, text] : expected[kServices]) EXPECT_EQ(HeldText(id), text) << id;
}

TEST_F(ListScreen, GoesOnBehindARefusalButNotBehindSilenceAndKeepsTheRest) {
    refused = {{181, "The hardware lock is closed"}, {184, "Value out of range"}};
    Open(kServices);
    Toggle({0, 1, 2, 2, 3, 12});  // there and back is no change
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_services_confirmation"));
    Press(KEY_SOFT_4);
    EXPECT_EQ(written, (Writes{{180, "No"}, {181, "No"}, {184, "Yes"}, {193, "Yes"}}));
    EXPECT_TRUE(PanelShows("setup/edit_services_refused")) << "the first refusal, and what it is about";
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kServices);
    refused = {{181, ""}};
    written.clear();
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(written, (Writes{{181, "No"}}));
    Press(KEY_SOFT_4);
    refused.clear();
    written.clear();
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(written, (Writes{{181, "No"}, {184, "Yes"}})) << "only what was not written is tried again";
    EXPECT_EQ(Shown(), kView);
}

TEST_F(ListScreen, TellsWhichResetWasRefused) {
    refused = {{1922, "The meter refuses the change"}};
    Open(kResets);
    Toggle({1, 2, 7});
    EXPECT_TRUE(PanelShows("setup/edit_resets_marked"));
    testing::internal::CaptureStdout();
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error! reseting 2\n");
    EXPECT_EQ(written, (Writes{{2031, "1"}, {1922, "1"}, {1969, "1"}}));
    EXPECT_TRUE(PanelShows("setup/edit_resets_refused"));
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_resets_one_left"));
    Show(kView);
    Open(kResets);
    EXPECT_TRUE(PanelShows("setup/edit_resets")) << "all begin unmarked";
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kView) << "nothing to ask about";
}

TEST_F(ListScreen, ListsWhatThereIsRoomForAndWhatTheMeterAnswersFor) {
    List(150);
    Open(kAlarms);
    EXPECT_TRUE(PanelShows("setup/edit_alarms_many"));
    Press(KEY_SOFT_3, 200);
    for (const KeyCode key : {KEY_SOFT_2_3, KEY_SOFT_2, KEY_SOFT_2_3}) Press(key);
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(written, (Writes{{148, "Enabled"}, {149, "Disabled"}})) << "150 is not to be listed";
    List(151);
    testing::internal::CaptureStdout();
    Open(kAlarms);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ERROR: Alarms buffer is too small!\n");
    EXPECT_TRUE(PanelShows("setup/edit_alarms_many"));
    for (const bool fails : {false, true}) {
        if (fails) meter().Fail(kAlarmEntries);
        List(fails ? 150 : 0);
        Open(kAlarms);
        for (const KeyCode key : {KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_2_3}) Press(key);
        EXPECT_TRUE(PanelShows("setup/edit_alarms_none"));
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), kView);
    }
    meter().AnswerBy(kRead, [](std::span<const std::byte> payload, std::span<std::byte> response) {
        return payload[0] != std::byte{181} && meter().Model().Answer(kRead, payload, response);
    });
    written.clear();
    Open(kServices);
    Toggle({1});
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(written, (Writes{{182, "Yes"}})) << "181 is left out";
}

TEST_F(ListScreen, ShowsEachKindAndBeginsAnewInAnotherLanguage) {
    Open(kAlarms);
    EXPECT_TRUE(PanelShows("setup/edit_alarms"));
    Press(KEY_SOFT_3, 7);
    Press(KEY_SOFT_2_3);
    EXPECT_TRUE(PanelShows("setup/edit_alarms_scrolled"));
    Press(KEY_SOFT_2, 7);
    EXPECT_TRUE(PanelShows("setup/edit_alarms")) << "back at the first";
    Open(kServices);
    EXPECT_TRUE(PanelShows("setup/edit_services"));
    Toggle({1});
    DISPCFG_setLanguage(1);
    Manager().FirstChild()->Message(MessageOf(MSG_LANGUAGE));
    Pump();
    EXPECT_TRUE(PanelShows("setup/edit_services_german"));
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(written, Writes{});
}

}  // namespace
