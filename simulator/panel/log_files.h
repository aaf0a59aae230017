#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace panel {

/// Follows the consoles of the bench's programs: the files of a folder whose names end in ".log". They may come, grow
/// and start again. Single-threaded.
class LogFiles {
public:
    using Take = std::function<void(std::string_view program, std::string_view line)>;

    /// @param take  gets each whole line; empty ones are left out
    LogFiles(std::filesystem::path folder, Take take) : m_folder(std::move(folder)), m_take(std::move(take)) {}

    /// Reads what is new, at most a bounded piece of each file; returns at once.
    void Read();

private:
    struct File {
        std::uintmax_t position = 0;
        std::string pending;  // a line without its end yet
    };

    void Read(const std::filesystem::path& path, File& file);

    static constexpr std::size_t kMaxFiles = 8;

    std::filesystem::path m_folder;
    Take m_take;
    std::map<std::string, File> m_files;  // by the name of the program
};

}  // namespace panel
