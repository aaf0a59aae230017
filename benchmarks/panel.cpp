#include "benchmarks/panel.h"

#include <unistd.h>

#include <cstdlib>

#include "localization/localization.h"
#include "navigation/navigation_handler.h"
#include "peg/port/win_screen.h"
#include "peg/resources/resource_file.h"
#include "peg/resources/resources.h"

namespace {

std::filesystem::path MakeBoard() {
    std::string path = (std::filesystem::temp_directory_path() / "bench-board-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) std::abort();
    std::filesystem::create_directory_symlink(ROMFS_DIR, std::filesystem::path(path) / "romfs");
    setenv("BOARD_ROOT", path.c_str(), 1);
    return path;
}

/// A frame that stays in memory.
class MemoryScreen : public L16Screen {
public:
    using L16Screen::L16Screen;
    void FlushToDevice() override {}
};

}  // namespace

Panel& Panel::Instance() {
    static auto* const panel = new Panel;
    return *panel;
}

Panel::Panel()
    : m_board(MakeBoard()),
      m_queue(os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo)),
      m_objects{std::make_unique<MemoryScreen>(kPanelWidth, kPanelHeight), m_queue} {
    PegFile file;
    if (!file.Open("/romfs/resources.pbr") || PegResources::LoadResourceFile(file, 0) != 1) std::abort();
    PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), false);
    localizationClass::load();
}

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
