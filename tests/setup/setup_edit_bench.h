#pragma once

#include <string>

#include "navigation/password_handler.h"
#include "peg/core/window.h"
#include "rda/meter_operations.h"
#include "setup/edit/choice_screen.h"
#include "setup/edit/list_screen.h"
#include "setup/edit/value_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

/// The screens that edit settings, each opened from the same plain window, with a login that the meter has accepted.
class SetupEditBench : public PanelTest {
protected:
    static constexpr std::int32_t kHome = 200;
    static constexpr std::int32_t kView = 100;
    static constexpr std::string_view kWrite = "PDMINTERFACE_setRegisterValue";
    static constexpr std::string_view kRead = "PDMINTERFACE_getRegisterValue";

    SetupEditBench() {
        for (const std::int32_t id : {kHome, kView}) {
            Navigation().addScreen(id, *new PegWindow(RectOf(0, 0, 319, 239)), SCREEN_KIND_SETUP_VIEW);
        }
        CreateSetupEdit1Screens();
        CreateSetupEdit4Screens();
        CreateSetupEdit2Screens();
        LogIn();
        Show(kView);
    }

    static void LogIn() { ASSERT_EQ(PHC_passwordHandlerClass::getInstance().verify("USER", "0"), kPasswordAccepted); }

    void Open(std::int32_t screen) {
        if (Shown() != kView) Show(kView);
        Show(screen);
        meter().ForgetCalls();
    }

    /// What the meter says is in a register.
    static std::string HeldText(std::uint32_t registerId) {
        RegisterValue value{};
        static_cast<void>(PDMINTERFACE_getRegisterValue(registerId, value));
        return std::string(TextIn(value.value));
    }

    /// A register's value becomes that text, whatever it holds.
    static void Holds(std::string_view text) {
        RegisterValue value{};
        Write(value.value, text);
        meter().Answer(kRead, value);
    }
    static void Refuse(std::string_view reason) {
        RegisterWriteResult reply{};
        reply.result.Set(7);
        Write(reply.text, reason);
        meter().Answer(kWrite, reply);
    }

    /// What was written last, after the register's four bytes.
    static std::string Written() {
        const auto payload = meter().LastPayload(kWrite);
        return payload.empty() ? "" : reinterpret_cast<const char*>(payload.data()) + sizeof(WireU32);
    }
};
