#include "simulator/panel/log_files.h"

#include <fstream>
#include <system_error>

namespace panel {
namespace {

constexpr std::uintmax_t kPiece = std::uintmax_t{64} * 1024;
constexpr std::size_t kLongestLine = 4096;

}  // namespace

void LogFiles::Read() {
    std::error_code gone;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder, gone)) {
        if (entry.path().extension() != ".log" || !entry.is_regular_file(gone)) continue;
        const std::string program = entry.path().stem();
        if (m_files.size() < kMaxFiles || m_files.contains(program)) Read(entry.path(), m_files[program]);
    }
}

void LogFiles::Read(const std::filesystem::path& path, File& file) {
    std::error_code gone;
    const std::uintmax_t size = std::filesystem::file_size(path, gone);
    if (gone || size == file.position) return;
    if (size < file.position) file = {};
    if (size - file.position > kPiece) file = {.position = size - kPiece, .pending = {}};
    std::ifstream stream(path, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(file.position));
    std::string piece(static_cast<std::size_t>(size - file.position), '\0');
    stream.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    piece.resize(static_cast<std::size_t>(stream.gcount()));
    file.position += piece.size();
    file.pending += piece;
    std::size_t start = 0;
    for (std::size_t end = file.pending.find('\n'); end != std::string::npos; end = file.pending.find('\n', start)) {
        const std::string_view line = std::string_view(file.pending).substr(start, end - start);
        if (line.find_first_not_of(" \t\r") != std::string_view::npos) m_take(path.stem().string(), line);
        start = end + 1;
    }
    file.pending.erase(0, start);
    if (file.pending.size() > kLongestLine) file.pending.resize(kLongestLine);
}

}  // namespace panel
