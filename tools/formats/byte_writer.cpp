#include "tools/formats/byte_writer.h"

#include <algorithm>

void ByteWriter::U16(std::uint16_t value) {
    const auto low = static_cast<std::uint8_t>(value & 0xFF);
    const auto high = static_cast<std::uint8_t>(value >> 8);
    U8(m_order == ByteOrder::Little ? low : high);
    U8(m_order == ByteOrder::Little ? high : low);
}

void ByteWriter::U32(std::uint32_t value) {
    const auto low = static_cast<std::uint16_t>(value & 0xFFFF);
    const auto high = static_cast<std::uint16_t>(value >> 16);
    U16(m_order == ByteOrder::Little ? low : high);
    U16(m_order == ByteOrder::Little ? high : low);
}

void ByteWriter::Raw(std::span<const std::uint8_t> bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }

void ByteWriter::Name(std::string_view name, std::size_t size) {
    const std::size_t used = std::min(name.size(), size - 1);
    m_bytes.insert(m_bytes.end(), name.begin(), name.begin() + static_cast<std::ptrdiff_t>(used));
    m_bytes.resize(m_bytes.size() + size - used);
}

void ByteWriter::Text(std::u16string_view text) {
    for (const char16_t unit : text) U16(unit);
    U16(0);
}
