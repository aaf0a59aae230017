#include "simulator/panel/key_input.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using panel::Key;
using panel::KeyRecord;
using std::chrono::milliseconds;

/// Fingers on the keys; what they do is written as the records that come out.
class KeyInput : public testing::Test {
protected:
    void Press(Key key) { m_input.Press(key, m_now); }
    void Release(Key key) { m_input.Release(key); }
    void Wait(milliseconds time) {
        m_now += time;
        m_input.Tick(m_now);
    }
    std::vector<KeyRecord> Reported() { return std::exchange(m_records, {}); }

    std::vector<KeyRecord> m_records;
    panel::KeyInput m_input{[this](KeyRecord record) { m_records.push_back(record); }};
    panel::KeyInput::Time m_now{};
};

using Records = std::vector<KeyRecord>;

TEST_F(KeyInput, ReportsTheOtherKeysAtOnce) {
    for (const Key key : {Key::Soft1, Key::Soft4, Key::Home, Key::Soft23}) {
        const auto code = static_cast<std::int32_t>(key);
        Press(key);
        EXPECT_EQ(Reported(), (Records{{code, 0}}));
        Press(key);
        EXPECT_EQ(Reported(), Records{}) << "it is down already";
        Release(key);
        Release(key);
        EXPECT_EQ(Reported(), (Records{{code, 1}}));
    }
}

TEST_F(KeyInput, MakesOneOfSoftKeys2And3InEitherOrder) {
    for (const auto& [first, second] : {std::pair{Key::Soft2, Key::Soft3}, std::pair{Key::Soft3, Key::Soft2}}) {
        Press(first);
        Wait(milliseconds(79));
        EXPECT_EQ(Reported(), Records{});
        Press(second);
        EXPECT_EQ(Reported(), (Records{{6, 0}}));
        Wait(milliseconds(500));
        Release(first);
        Release(second);
        EXPECT_EQ(Reported(), (Records{{6, 1}}));
    }
}

TEST_F(KeyInput, ReportsThemOnTheirOwnWhenTheyAreApart) {
    Press(Key::Soft2);
    EXPECT_EQ(m_input.NextTick(), m_now + milliseconds(80));
    Wait(milliseconds(80));
    EXPECT_EQ(Reported(), (Records{{2, 0}}));
    EXPECT_EQ(m_input.NextTick(), std::nullopt);
    Press(Key::Soft3);
    Release(Key::Soft2);
    Release(Key::Soft3);
    EXPECT_EQ(Reported(), (Records{{3, 0}, {2, 1}, {3, 1}}));
}

TEST_F(KeyInput, ATapIsNotHeldBack) {
    Press(Key::Soft3);
    Release(Key::Soft3);
    EXPECT_EQ(Reported(), (Records{{3, 0}, {3, 1}}));
    Press(Key::Soft2);
    EXPECT_EQ(Reported(), Records{}) << "nothing is left of the tap";
}

TEST_F(KeyInput, KeepsTheOrderWhenAnotherKeyMoves) {
    Press(Key::Soft2);
    Press(Key::Home);
    EXPECT_EQ(Reported(), (Records{{2, 0}, {5, 0}}));
    Press(Key::Soft3);
    Release(Key::Home);
    EXPECT_EQ(Reported(), (Records{{3, 0}, {5, 1}}));
}

TEST_F(KeyInput, AKeyOfThePairThatGoesDownAgainIsItself) {
    Press(Key::Soft2);
    Press(Key::Soft3);
    Release(Key::Soft2);
    EXPECT_EQ(Reported(), (Records{{6, 0}, {6, 1}}));
    Press(Key::Soft2);
    Wait(milliseconds(80));
    Release(Key::Soft2);
    Release(Key::Soft3);
    EXPECT_EQ(Reported(), (Records{{2, 0}, {2, 1}}));
}

}  // namespace
