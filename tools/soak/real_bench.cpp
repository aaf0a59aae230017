#include "tools/soak/real_bench.h"

#include "tools/soak/call_log.h"

RealBench::RealBench() : m_isAlone(EnterOwnNetwork()) {  // while there is no other thread
    std::filesystem::create_directory_symlink(ROMFS_DIR, m_folder / "romfs");
    board = std::make_unique<panel::Board>(Folder());
}

RealBench::~RealBench() {
    display.reset();
    meter.reset();
    board.reset();
}

bool RealBench::StartMeter() {
    std::filesystem::remove(Control());
    meter = std::make_unique<Program>(METER_PROGRAM, std::vector<std::string>{"--control", Control().string()});
    return Eventually([this] { return std::filesystem::exists(Control()); });
}

void RealBench::StartDisplay() {
    display = std::make_unique<Program>(DISPLAY_PROGRAM, std::vector<std::string>{},
                                        std::vector<std::string>{"BOARD_ROOT=" + Folder().string()});
}

std::string RealBench::ToMeter(const std::string& line) const { return TellMeter(Control(), line); }
