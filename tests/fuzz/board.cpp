#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "tests/fuzz/target.h"

namespace {

/// A folder of this process, gone with it.
struct Board {
    Board() { setenv("BOARD_ROOT", folder.c_str(), 1); }
    ~Board() { std::filesystem::remove_all(folder); }

    std::filesystem::path folder = std::filesystem::temp_directory_path() / ("fuzz-board-" + std::to_string(getpid()));
};

}  // namespace

void PutOnBoard(const char* path, const std::uint8_t* data, std::size_t size) {
    static const Board board;
    const std::filesystem::path file = board.folder.string() + path;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}
