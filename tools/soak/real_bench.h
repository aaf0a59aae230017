#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "simulator/own_folder.h"
#include "simulator/panel/board.h"
#include "tools/soak/programs.h"

/// A played board in a folder of its own, and the real meter and display that are started on it, in a network of their
/// own. All of it but the network ends with this object.
class RealBench {
public:
    RealBench();
    RealBench(const RealBench&) = delete;
    RealBench& operator=(const RealBench&) = delete;
    ~RealBench();

    /// False when no network of its own could be made; then the programs would meet others.
    bool IsAlone() const { return m_isAlone; }

    /// Starts the meter. @return whether it can be told something now
    bool StartMeter();
    void StartDisplay();

    const std::filesystem::path& Folder() const { return m_folder.Path(); }
    std::filesystem::path Control() const { return m_folder / "control"; }

    /// Puts a control line to the meter. @return its answer
    std::string ToMeter(const std::string& line) const;

    std::unique_ptr<panel::Board> board;
    std::unique_ptr<Program> meter;
    std::unique_ptr<Program> display;

private:
    const bool m_isAlone;
    const OwnFolder m_folder{"real-bench"};
};
