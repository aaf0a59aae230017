#include "benchmarks/panel.h"

#include <cstdlib>
#include <fstream>

#include "localization/localization.h"
#include "navigation/navigation_handler.h"
#include "peg/port/win_screen.h"
#include "peg/resources/resource_file.h"
#include "peg/resources/resources.h"

namespace {

bool framesGoToTheDevice = false;

/// A frame that stays in memory unless it is asked for.
class BenchScreen : public PegWinScreen {
public:
    using PegWinScreen::PegWinScreen;
    void FlushToDevice() override {
        if (framesGoToTheDevice) PegWinScreen::FlushToDevice();
    }
};

}  // namespace

Panel& Panel::Instance() {
    static auto* const panel = new Panel;
    return *panel;
}

Panel::Panel()
    : m_queue(os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo)),
      m_objects{std::make_unique<BenchScreen>(kPanelWidth, kPanelHeight), m_queue} {
    std::filesystem::create_directory_symlink(ROMFS_DIR, m_board / "romfs");
    std::ofstream(m_board / "db9000_fb") << std::string(kFrameBytes, '\0');
    PegFile file;
    if (!file.Open("/romfs/resources.pbr") || PegResources::LoadResourceFile(file, 0) != 1) std::abort();
    PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), false);
    localizationClass::load();
}

void Panel::WriteFrames(bool toTheDevice) { framesGoToTheDevice = toTheDevice; }

void Panel::Pump() {
    PegMessage message;
    while (toolkit.queue->Poll(message)) toolkit.manager->DispatchMessage(message);
}

PegThing& Panel::Show(std::int32_t screen) {
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    if (toolkit.manager->FirstChild() == nullptr) {
        navigation.addScreen(kEmptyScreen, *new PegWindow(kPanel), SCREEN_KIND_DATA);
        toolkit.manager->AddChild(*navigation.getCurrentScreen());
    }
    navigation.navigateFromCurrent(kEmptyScreen);
    navigation.navigateFromCurrent(screen);
    Pump();
    return *navigation.getCurrentScreen();
}

void Panel::RemoveBoard() { Instance().m_board.Remove(); }
