#include <sstream>
#include <stdexcept>

#include "simulator/session/recording.h"
#include "tests/fuzz/target.h"

/// A frame that did not change is some hundred bytes of the file.
const MemoryBound kMemoryBound = {.bytes = 1024 * 1024, .perByte = 2048};

void Prepare() {}

void Take(std::span<const std::uint8_t> input) {
    std::istringstream file(std::string(input.begin(), input.end()));
    try {
        static_cast<void>(session::Recording::Read(file, "a.rec"));
    } catch (const std::runtime_error&) {
    }
}
