#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <thread>

#include "simulator/own_folder.h"
#include "simulator/panel/board.h"

/// Waits until `holds` does, as long as the emulator's threads may take for anything.
template <typename Condition>
bool Eventually(Condition holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (std::chrono::steady_clock::now() < end) {
        if (holds()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

/// A board in a folder of its own, which the operating-system seam finds under BOARD_ROOT.
class EmulatedBoard : public testing::Test {
protected:
    const OwnBoard m_folder{"panel"};
    const std::filesystem::path& m_root = m_folder.Path();
    std::optional<panel::Board> m_board{m_root};
};
