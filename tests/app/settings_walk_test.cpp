#include <random>

#include "app/application.h"
#include "navigation/entry/keyboard_window.h"
#include "setup/edit/edit_table.h"
#include "setup/view/setup_view_table.h"
#include "tests/bench/panel_bench.h"
#include "tests/navigation/keyboard_keys.h"

namespace {

constexpr int kSteps = 40'000;
constexpr int kDialogTicks = 200;
constexpr std::string_view kWrite = "PDMINTERFACE_setRegisterValue";
constexpr std::string_view kVerify = "SECURITYINTERFACE_verifyFrontPanelPassword";
constexpr std::string_view kLogout = "SECURITYINTERFACE_clearFrontPanelPassword";

/// Somebody who presses keys at random for a long time, and knows the password.
///
/// What the meter is asked is watched from outside: a write needs a password that was accepted and not given back
/// since, and soft key 4 twice in a row on one edit screen, at most ten seconds apart; other keys in between must leave
/// the question alone.
class SettingsWalk : public PanelBench {
protected:
    SettingsWalk() {
        BuildApplication(Manager());
        for (const std::string_view operation : {kWrite, kVerify, kLogout}) {
            meter().AnswerBy(operation, [this, operation](auto payload, auto response) {
                return Watch(operation, payload, response);
            });
        }
    }

    void Walk(unsigned seed) {
        m_random.seed(seed);
        for (m_step = 0; m_step < kSteps && !HasFailure(); ++m_step) Step();
    }

    int writes = 0;
    int refusals = 0;
    int logins = 0;

private:
    bool Watch(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response) {
        if (!meter().Model().Answer(operation, payload, response)) return false;
        const bool accepted = std::to_integer<int>(response.empty() ? std::byte{0} : response[0]) == 0;
        if (operation == kWrite) {
            ++(accepted ? writes : refusals);
            EXPECT_TRUE(m_isConfirming && m_asked == Shown()) << "an unconfirmed write in step " << m_step;
            EXPECT_TRUE(m_loggedIn) << "a write without a login in step " << m_step;
        } else {
            m_loggedIn = operation == kVerify && accepted;
            logins += m_loggedIn ? 1 : 0;
        }
        return true;
    }
    int Any(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }
    static std::int32_t Shown() { return Navigation().getCurrentScreenId(); }

    void Step() {
        const int choice = Any(0, 99);
        if (keyboardWin::getInstance().IsVisible() && choice < 40) {
            FocusKey(choice < 20 ? std::uint16_t{'0'} : static_cast<std::uint16_t>(kKeyEnter));
            PressAny(KEY_SOFT_4);
        } else if (choice < 2) {
            const auto& row =
                kSetupViewRows[static_cast<std::size_t>(Any(0, static_cast<int>(kSetupViewRows.size()) - 1))];
            Show(row.screen);
        } else if (choice < 3) {
            Pass(Any(0, 9) == 0 ? 3700 : Any(200, 700));
        } else if (choice < 13) {
            Pass(Any(1, 40));
        } else {
            constexpr KeyCode kKeys[] = {KEY_SOFT_4, KEY_SOFT_4,   KEY_SOFT_4, KEY_SOFT_2, KEY_SOFT_3,
                                         KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_1, KEY_SOFT_4, KEY_HOME};
            PressAny(kKeys[Any(0, choice < 16 ? 9 : 8)]);
        }
    }
    void Pass(int ticks) {
        Ticks(ticks);
        m_ticksSinceAsked += ticks;
    }
    void PressAny(KeyCode key) {
        const std::int32_t before = Shown();
        const int writesBefore = writes + refusals;
        KeyDown(key);
        m_isConfirming = key == KEY_SOFT_4 && m_asked == before && m_ticksSinceAsked < kDialogTicks + kTicksPerSecond;
        KeyUp(key);
        m_isConfirming = false;
        m_ticksSinceAsked = 0;
        const bool stays = Shown() == before && writes + refusals == writesBefore;
        if (key == KEY_SOFT_4) {
            m_asked = stays && Navigation().getScreenKind(before) == SCREEN_KIND_SETUP_EDIT ? before : 0;
        } else if (!stays || key == KEY_SOFT_1) {
            m_asked = 0;
        }
    }

    std::mt19937 m_random;
    int m_step = 0;
    bool m_loggedIn = false;
    bool m_isConfirming = false;
    std::int32_t m_asked = 0;  // the edit screen on which soft key 4 was pressed last, without leaving it; 0: none
    int m_ticksSinceAsked = 0;
};

TEST_F(SettingsWalk, WritesNothingWithoutALoginAndAConfirmation) {
    Walk(1);
    EXPECT_GT(logins, 10) << "the walk has been somewhere";
    EXPECT_GT(writes, 20);
}

TEST_F(SettingsWalk, WritesNothingUnconfirmedWhenTheMeterRefuses) {
    meter().Model().Play(*meter::FindScenario("refused-writes"));
    Walk(2);
    EXPECT_GT(refusals, 20);
    EXPECT_EQ(writes, 0);
}

}  // namespace
