#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

#include "tests/fuzz/target.h"

// Runs every file of the named folders through the target: what once was found stays mended.

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
            static_cast<void>(
                LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
            ++files;
        }
    }
    std::printf("%d files\n", files);
    return files == 0;
}
