#include "app/display_resources.h"

#include <cstdio>

#include "app/startup_screen.h"
#include "localization/localization.h"
#include "peg/core/presentation_manager.h"
#include "peg/resources/resources.h"

namespace {

constexpr const char* kResourceFile = "/romfs/resources.pbr";
constexpr int kNoOption = 0;

void LoadResources() {
    PegFile file;
    if (!file.Open(kResourceFile)) {
        std::printf("Failed to open file %s\n", kResourceFile);
        return;
    }
    const bool loaded = PegResources::LoadResourceFile(file, kNoOption) == 1;
    const PegResourceSet* set = PegResources::GetResourceSet(0);
    if (!loaded || set == nullptr) {
        std::printf("Failed to load resource file %s\n", kResourceFile);
        return;
    }
    PegResources::InstallResourceSet(*set, false);
}

}  // namespace

std::intptr_t loadDisplayResources(std::intptr_t presentationManager) {
    LoadResources();
    // The argument of the hook is a word. NOLINTNEXTLINE(performance-no-int-to-ptr)
    auto& manager = *reinterpret_cast<PegPresentationManager*>(presentationManager);
    startupScreen& screen = startupScreen::getInstance();
    manager.CenterChild(screen);
    manager.AddChild(screen);
    localizationClass::getInstance().load();
    return 0;
}
