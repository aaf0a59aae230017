#include <cstdio>

#include "app/display_resources.h"
#include "app/display_timers.h"
#include "app/panel_hardware.h"
#include "peg/port/vxpeg.h"
#include "platform/process.h"

int main() {
    os::startProcess();
    if (VEKHWIF_init() != 0) std::printf("[integratedDisplayRtp:main] VEKHWIF_init failed!\n");
    DISPTIMERS_init();
    setResourceLoaderHook(loadDisplayResources);
    PegInitialize();
    return 0;
}
