#pragma once

#include <string_view>

#include "navigation/menu/menu_screen.h"
#include "rda/meter_operations.h"
#include "setup/view/setup_view1_screen.h"
#include "setup/view/setup_view2_screen.h"
#include "setup/view/setup_view3_screen.h"
#include "setup/view/setup_view5_screen.h"
#include "simulator/bench/keyboard_bench.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

inline constexpr std::string_view kReadRegister = "PDMINTERFACE_getRegisterValue";
inline constexpr std::string_view kClear = "SECURITYINTERFACE_clearFrontPanelPassword";

/// The setup view screens between the menu, the home screen, and plain windows in the place of the edit screens.
class SetupViewBench : public TestOn<KeyboardBench> {
protected:
    SetupViewBench() {
        CreateMenuScreens();
        for (std::int32_t id = 101; id <= home; ++id) {
            const ScreenKind kind = id == home ? SCREEN_KIND_DATA : SCREEN_KIND_SETUP_EDIT;
            Navigation().addScreen(id, *new PegWindow(kWholePanel), kind);
        }
        CreateSetupView1Screens();
        CreateSetupView2Screen();
        CreateSetupView5Screens();
        CreateSetupView3Screens();
        Access(1);
        Verdict(0);
    }

    static void Access(std::uint32_t permission) {
        AccessRights rights{};
        rights.frontPanel.Set(permission);
        meter().Answer("SECURITYINTERFACE_getFrontPanelAccessRights", rights);
    }

    /// Shows a screen with the values of its first second.
    void Open(std::int32_t screen) {
        Show(screen);
        Ticks(1);
    }

    void LogIn() {
        Press(KEY_SOFT_4);
        Enter("");
        Enter("1");
    }

    const std::int32_t home = Navigation().getCurrentScreenId();
};
