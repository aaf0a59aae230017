#include "tools/formats/file_bytes.h"

#include <fstream>
#include <iterator>

#include "tools/formats/source_error.h"

namespace fs = std::filesystem;

Bytes ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file || fs::is_directory(path)) throw SourceError(path.string(), "cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string ReadTextFile(const fs::path& path) {
    const Bytes bytes = ReadFile(path);
    return {bytes.begin(), bytes.end()};
}

void WriteFile(const fs::path& path, std::span<const std::uint8_t> bytes) {
    if (path.has_parent_path()) fs::create_directories(path.parent_path());
    const fs::path fresh = path.string() + ".new";
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw SourceError(path.string(), "cannot be written");
    fs::rename(fresh, path);
}
