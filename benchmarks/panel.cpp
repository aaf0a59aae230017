#include "benchmarks/panel.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "localization/localization.h"
#include "navigation/navigation_handler.h"
#include "peg/port/win_screen.h"
#include "peg/resources/resource_file.h"
#include "peg/resources/resources.h"

namespace {

std::filesystem::path MakeBoard() {
    std::string path = (std::filesystem::temp_directory_path() / "bench-board-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) std::abort();
    const std::filesystem::path board(path);
    std::filesystem::create_directory_symlink(ROMFS_DIR, board / "romfs");
    std::ofstream(board / "db9000_fb") << std::string(kFrameBytes, '\0');
    setenv("BOARD_ROOT", path.c_str(), 1);
    return board;
}

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
    : m_board(MakeBoard()),
      m_queue(os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo)),
      m_objects{std::make_unique<BenchScreen>(kPanelWidth, kPanelHeight), m_queue} {
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

void Panel::RemoveBoard() { std::filesystem::remove_all(Instance().m_board); }
