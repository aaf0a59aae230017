#include "app/application.h"

#include <array>

#include "app/backlight.h"
#include "app/button_task.h"
#include "app/one_second_task.h"
#include "app/panel_hardware.h"
#include "localization/display_config.h"
#include "navigation/menu/menu_screen.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "platform/shown_screen.h"
#include "rda/command_server.h"
#include "screens/alarms/alarm_screens.h"
#include "screens/events/event_screens.h"
#include "screens/extremes/minmax_bar_screen.h"
#include "screens/extremes/minmax_screen.h"
#include "screens/factory_test/display_test_screen.h"
#include "screens/harmonics/harmonic_screen.h"
#include "screens/io/io_screen.h"
#include "screens/metrological/metrological_screen.h"
#include "screens/nameplate/nameplate_screen.h"
#include "screens/parameters/custom_screen.h"
#include "screens/parameters/parameter_screen.h"
#include "screens/phasor/phasor_screen.h"
#include "setup/edit/choice_screen.h"
#include "setup/edit/list_screen.h"
#include "setup/edit/value_screen.h"
#include "setup/view/setup_view1_screen.h"
#include "setup/view/setup_view2_screen.h"
#include "setup/view/setup_view3_screen.h"
#include "setup/view/setup_view5_screen.h"

namespace {

constexpr DisplayCommands kCommands = {
    .hardwareId = VEKHWIF_getHwId,
    .changeAltModeState = navigationHandlerClass::postAltModeState,
    .navigateTo = navigationHandlerClass::postNavigateTo,
    .navigateToDispTest = navigationHandlerClass::postDispTest,
    .setLanguage = DISPCFG_setLanguage,
    .setPhaseLabels = DISPCFG_setPhaseLabels,
    .setMeasSymbols = DISPCFG_setMeasSymbols,
    .changeTestModeState = navigationHandlerClass::postTestModeState,
    .kernelVersion = VEKHWIF_getKernelVersion,
    .osPackageVersion = VEKHWIF_getOsPkgVersion,
    .serialNumber = VEKHWIF_getSerialNumber,
    .setBacklightTimeout = backlightSetTimeout,
    .handleButtonEvent = [](const ButtonEvent& event) { handleButtonEvent(event); },
};

/// Each creates the screens of one family and registers them. Of two screens under one id the later counts.
using ScreenCreator = void (*)();
constexpr auto kScreenCreators = std::to_array<ScreenCreator>({
    CreateParameterScreens,   CreateMinMaxScreens,          CreatePhasorScreen,      CreateHarmonicScreens,
    CreateActiveAlarmScreens, CreateHistoricalAlarmScreens, CreateMinMaxBarScreens,  CreateEventScreens,
    CreateNameplateScreens,   CreateMetrologicalScreens,    CreateCustomScreens,     CreateIoScreens,
    CreateSetupView1Screens,  CreateSetupView2Screen,       CreateSetupView5Screens, CreateSetupEdit1Screens,
    CreateSetupView3Screens,  CreateSetupEdit4Screens,      CreateSetupEdit2Screens,
});

int ReadSelection(std::uint32_t registerId, std::uint32_t& selected) {
    return meterAccessClass::getInstance().readSelection(registerId, selected);
}

}  // namespace

const DisplayCommands& TheDisplayCommands() { return kCommands; }

void BuildApplication(PegThing& parent) {
    backlightTimeoutInit();
    DISPCFG_init({.readSelection = ReadSelection, .setOutputLine = VEKHWIF_setGpio});
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    CreateFactoryTestScreen();
    static_cast<void>(startButtonTask());
    startOneSecondTask();
    CreateMenuScreens();
    for (const ScreenCreator create : kScreenCreators) create();
    if (PegThing* start = navigation.getStartScreen()) {
        os::tellShownScreen(navigation.getCurrentScreenId());
        parent.AddChild(*start, true);
    }
}
