#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// A file of the board, taken into memory as a whole when it is opened: the files of the display are small, and what a
/// record claims can be held against what is really there.
class PegFile {
public:
    /// Reads the file. One that cannot be read to its end, or is larger than any file of this system, is taken for
    /// empty: half a file might look like a whole one. @return false when it cannot be opened
    [[nodiscard]] bool Open(const char* path);
    void Close();
    bool IsOpen() const { return m_open; }

    /// Copies at most `bytes` bytes. @return how many there were
    std::size_t Read(void* to, std::size_t bytes);

    /// Takes the next `bytes` bytes without copying; valid until Close. Empty, and nothing taken, when fewer are left.
    std::span<const std::uint8_t> Take(std::size_t bytes);

    /// Moves by `offset` bytes from the current position. @return false, unmoved, when that leaves the file
    bool Seek(std::ptrdiff_t offset);

    std::size_t Remaining() const { return m_content.size() - m_position; }

private:
    std::vector<std::uint8_t> m_content;
    std::size_t m_position = 0;
    bool m_open = false;
};
