#include "simulator/bench/panel_bench.h"

#include "localization/localization.h"
#include "peg/resources/resources.h"
#include "platform/panel.h"

namespace {

void LoadResources() {
    PegFile file;
    if (!file.Open("/romfs/resources.pbr") || PegResources::LoadResourceFile(file, 0) != 1) return;
    PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), false);
}

}  // namespace

PanelBench::PanelBench() {
    std::filesystem::create_directory_symlink(ROMFS_DIR, m_board / "romfs");
    LoadResources();
    localizationClass::load();
    Pump();
}

void PanelBench::SpeakTestLanguages() {
    const std::filesystem::path romfs = m_board / "romfs";
    std::filesystem::remove(romfs);
    std::filesystem::create_directory_symlink(TEST_ROMFS_DIR, romfs);
    localizationClass::unload();
    localizationClass::load();
    Pump();
}

void PanelBench::Show(std::int32_t screenId) {
    PegThing* shown = Manager().FirstChild();
    if (shown == nullptr) {
        // Nothing is there to navigate from yet: stand where the navigation handler believes to be.
        if (PegThing* start = Navigation().getCurrentScreen()) Manager().AddChild(*start);
    }
    Navigation().navigateFromCurrent(screenId);
    Pump();
}

void PanelBench::Send(std::uint16_t type, KeyCode key) {
    PegMessage message = MessageOf(type, key);
    message.target = &Navigation();
    toolkit.queue->Push(message);
    Pump();
}

void PanelBench::KeyDown(KeyCode key) { Send(MSG_KEY_DOWN, key); }

void PanelBench::KeyUp(KeyCode key) { Send(MSG_KEY_UP, key); }

void PanelBench::Press(KeyCode key, int times) {
    for (int i = 0; i < times; ++i) {
        KeyDown(key);
        KeyUp(key);
    }
}

std::vector<std::uint16_t> PanelBench::Frame() {
    constexpr std::ptrdiff_t kPixels = std::ptrdiff_t{kPanelWidth} * kPanelHeight;
    return {Screen().Row(0), Screen().Row(0) + kPixels};
}
