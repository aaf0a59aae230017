#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "tools/formats/byte_order.h"

/// Reads what ByteWriter wrote. Reading past the end throws SourceError with the file's name and the offset.
class ByteReader {
public:
    ByteReader(std::string file, std::span<const std::uint8_t> bytes) : m_file(std::move(file)), m_bytes(bytes) {}

    void SetOrder(ByteOrder order) { m_order = order; }
    [[nodiscard]] ByteOrder Order() const { return m_order; }

    std::uint8_t U8() { return Raw(1)[0]; }
    std::uint16_t U16();
    std::uint32_t U32();
    std::span<const std::uint8_t> Raw(std::size_t count);
    /// The text of a fixed-size name field up to its first zero.
    std::string Name(std::size_t size);
    /// UTF-16 text up to its terminating zero unit, which is consumed.
    std::u16string Text();

    [[nodiscard]] bool AtEnd() const { return m_at == m_bytes.size(); }
    [[nodiscard]] std::size_t Offset() const { return m_at; }
    /// Throws SourceError for what was found at the current offset.
    [[noreturn]] void Fail(const std::string& what) const;

private:
    std::string m_file;
    std::span<const std::uint8_t> m_bytes;
    std::size_t m_at = 0;
    ByteOrder m_order = ByteOrder::Little;
};
