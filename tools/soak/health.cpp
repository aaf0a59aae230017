#include "tools/soak/health.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

long CountOf(const std::filesystem::path& folder) {
    std::error_code ignored;
    return std::distance(std::filesystem::directory_iterator(folder, ignored), {});
}

}  // namespace

Health HealthOf(pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    Health health{.descriptors = CountOf(folder / "fd"), .threads = CountOf(folder / "task")};
    std::ifstream status(folder / "status");
    for (std::string word; status >> word;) {
        if (word == "RssAnon:") status >> health.kilobytes;
    }
    return health;
}
