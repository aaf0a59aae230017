#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>

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
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "panel-XXXXXX").string();
        m_root = mkdtemp(pattern.data());
        setenv("BOARD_ROOT", m_root.c_str(), 1);
        m_board.emplace(m_root);
    }
    void TearDown() override {
        m_board.reset();
        unsetenv("BOARD_ROOT");
        std::filesystem::remove_all(m_root);
    }

    panel::Board& board() { return *m_board; }

    std::filesystem::path m_root;
    std::optional<panel::Board> m_board;
};
