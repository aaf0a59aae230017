#include "simulator/meter/model/operations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <string>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using bench::Bytes;

constexpr std::size_t kTextQuery = 40;

/// A payload of the right shape: registers that exist, four entries, a user that exists.
Bytes PayloadOf(const Operation& operation) {
    static const std::set<std::string_view> kRegisterCalls = {
        "PDMINTERFACE_getEnumerationValue", "PDMINTERFACE_getEnumerationData", "PDMINTERFACE_getRegisterValue",
        "PDMINTERFACE_setRegisterValue"};
    Bytes payload;
    if (operation.name == "PQINTERFACE_getMinMaxBarData")
        payload = bench::Words({3685, 3686, 3681});
    else if (operation.replySize == 1)
        payload = bench::Words({kTextQuery});
    else if (kRegisterCalls.contains(operation.name))
        payload = bench::Words({reg::kLanguage});
    else if (operation.words == 1)
        payload = bench::Words({1});
    else if (operation.words > 1)
        payload = bench::Words({0, 1});
    if (operation.words == 3 && payload.size() == 8) {
        const Bytes selector = bench::Words({1});
        payload.insert(payload.end(), selector.begin(), selector.end());
    }
    for (std::size_t i = 0; i < operation.texts; ++i) bench::Append(payload, i == 0 ? "USER" : "1");
    return payload;
}

std::size_t ReplySizeOf(const Operation& operation) {
    return operation.replySize == 1 ? kTextQuery : operation.replySize;
}

class AllOperations : public testing::Test {
protected:
    void SetUp() override {
        m_meter.Play(*FindScenario("sag"));  // so that there is an active alarm
        m_meter.Advance(20'000);
    }
    Meter m_meter{bench::kSeed, bench::kStart};
};

TEST_F(AllOperations, AnswerInExactlyTheirSizeAndSaySomething) {
    // Words whose zero is a meaning: no mode, no lock, accepted.
    const std::set<std::string_view> zeroIsAnAnswer = {"DISPLAYMODE_setAltMode",
                                                       "DISPLAYMODE_getAltMode",
                                                       "DISPLAYMODE_setTestMode",
                                                       "DISPLAYMODE_getTestMode",
                                                       "ALARMSINTERFACE_getGlobalAlarmStatus",
                                                       "SECURITYINTERFACE_getHwLockStatus"};
    for (const Operation& operation : Operations()) {
        Bytes reply(ReplySizeOf(operation), std::byte{0xA5});
        ASSERT_TRUE(m_meter.Answer(operation.name, PayloadOf(operation), reply)) << operation.name;
        if (reply.empty() || zeroIsAnAnswer.contains(operation.name)) continue;
        EXPECT_TRUE(std::ranges::any_of(reply, [](std::byte one) { return one != std::byte{0}; })) << operation.name;
        EXPECT_TRUE(std::ranges::any_of(reply, [](std::byte one) { return one != std::byte{0xA5}; })) << operation.name;
    }
}

TEST_F(AllOperations, RefuseEveryOtherShapeOfPayloadAndReply) {
    for (const Operation& operation : Operations()) {
        const Bytes whole = PayloadOf(operation);
        const Bytes untouched(ReplySizeOf(operation), std::byte{0xA5});
        Bytes reply = untouched;
        for (std::size_t cut = 0; cut < whole.size(); ++cut) {
            const Bytes payload(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(cut));
            EXPECT_FALSE(m_meter.Answer(operation.name, payload, reply)) << operation.name << " cut at " << cut;
        }
        Bytes longer = whole;
        longer.push_back(std::byte{1});
        EXPECT_FALSE(m_meter.Answer(operation.name, longer, reply)) << operation.name;
        EXPECT_EQ(reply, untouched) << operation.name;
        Bytes tooLong(reply.size() + 1);
        EXPECT_FALSE(m_meter.Answer(operation.name, whole, tooLong)) << operation.name;
        if (reply.empty()) continue;
        Bytes tooShort(reply.size() - 1);
        EXPECT_FALSE(m_meter.Answer(operation.name, whole, tooShort)) << operation.name;
    }
    Bytes none;
    EXPECT_FALSE(m_meter.Answer("DISPTASK_nops", {}, none));
    EXPECT_FALSE(m_meter.Answer("", {}, none));
}

TEST_F(AllOperations, TakeTheLargestNumbers) {
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    for (const Operation& operation : Operations()) {
        if (operation.texts > 0) continue;
        for (std::uint32_t last : {0U, 1U, 3U, kMost}) {
            Bytes payload;
            for (std::size_t i = 0; i < operation.words; ++i) {
                const bool counts = operation.countWord == static_cast<int>(i);
                const Bytes word = bench::Words({counts ? last : kMost});
                payload.insert(payload.end(), word.begin(), word.end());
            }
            const bool many = operation.countWord != kFixedSize;
            Bytes reply(many ? operation.replySize * (last == kMost ? 1 : last) : operation.replySize);
            EXPECT_EQ(m_meter.Answer(operation.name, payload, reply), !many || last != kMost) << operation.name;
        }
    }
}

TEST_F(AllOperations, CloseEveryTextWithinItsField) {
    for (const Register& row : Catalogue()) {
        const RegisterValue value = bench::Get(m_meter, row.id);
        EXPECT_EQ(TextIn(value.label), row.label);
        EXPECT_LT(TextIn(value.value).size(), value.value.size()) << row.id;
        EXPECT_LT(TextIn(value.unit).size(), value.unit.size()) << row.id;
        EXPECT_LT(TextIn(value.date).size(), value.date.size()) << row.id;
        EXPECT_LT(TextIn(value.time).size(), value.time.size()) << row.id;
        const auto items =
            bench::Ask<EnumerationData>(m_meter, "PDMINTERFACE_getEnumerationData", bench::Words({row.id}));
        for (const auto& item : items.items) EXPECT_LT(TextIn(item).size(), item.size()) << row.id;
    }
    for (const std::size_t size : {1U, 2U, 5U, 40U}) {
        Bytes reply(size, std::byte{0xA5});
        ASSERT_TRUE(
            m_meter.Answer("EVLIF_getFrontPanelModuleName", bench::Words({static_cast<std::uint32_t>(size)}), reply));
        EXPECT_EQ(reply.back(), std::byte{0});
    }
}

TEST_F(AllOperations, TurnPagesAndStopAtBothEnds) {
    const auto turn = [this](std::uint32_t command) {
        return bench::Ask<CustomScreenData>(m_meter, "CUSTOMSCREENINTERFACE_getNormalModeScreenData",
                                            bench::Words({command}));
    };
    EXPECT_EQ(turn(kPagePrevious).isFirstPage.Get(), 1U);
    std::set<std::string> titles;
    CustomScreenData page = turn(kPageCurrent);
    for (int i = 0; i < 20 && page.isLastPage.Get() == 0; ++i) {
        titles.emplace(TextIn(page.title));
        ASSERT_GE(page.count.Get(), 1U);
        ASSERT_LE(page.count.Get(), kMaxPageParameters);
        EXPECT_FALSE(TextIn(page.parameters[page.count.Get() - 1].value).empty());
        page = turn(kPageNext);
    }
    EXPECT_EQ(page.isLastPage.Get(), 1U);
    EXPECT_EQ(titles.size(), PagesOf(PageSet::Normal).size() - 1);
    EXPECT_EQ(TextIn(turn(kPageNext).title), TextIn(page.title));
    EXPECT_EQ(turn(kPageFirst).isFirstPage.Get(), 1U);
}

TEST_F(AllOperations, PhasorsTurnByAThirdAndAgreeWithTheRegisters) {
    const auto entries =
        bench::Ask<std::array<PhasorEntry, 10>>(m_meter, "PQINTERFACE_getPhasorData", bench::Words({10}));
    EXPECT_EQ(entries[0].angle.Get(), 0);
    EXPECT_EQ(entries[1].angle.Get(), -120);
    EXPECT_EQ(entries[2].angle.Get(), 120);
    EXPECT_EQ(TextIn(entries[0].magnitudeText), TextIn(bench::Get(m_meter, 3705).value));
    EXPECT_EQ(TextIn(entries[4].magnitudeText), TextIn(bench::Get(m_meter, 284).value));
    EXPECT_EQ(TextIn(entries[8].magnitudeText), "");
}

}  // namespace
