#include "tools/formats/byte_reader.h"

#include <algorithm>

#include "tools/formats/source_error.h"

std::uint16_t ByteReader::U16() {
    const auto bytes = Raw(2);
    const bool little = m_order == ByteOrder::Little;
    return static_cast<std::uint16_t>(bytes[little ? 0 : 1] | bytes[little ? 1 : 0] << 8);
}

std::uint32_t ByteReader::U32() {
    const std::uint32_t first = U16();
    const std::uint32_t second = U16();
    return m_order == ByteOrder::Little ? first | second << 16 : second | first << 16;
}

std::span<const std::uint8_t> ByteReader::Raw(std::size_t count) {
    if (count > m_bytes.size() - m_at) Fail("the file ends here, " + std::to_string(count) + " bytes were expected");
    const auto bytes = m_bytes.subspan(m_at, count);
    m_at += count;
    return bytes;
}

std::string ByteReader::Name(std::size_t size) {
    const auto bytes = Raw(size);
    return {bytes.begin(), std::find(bytes.begin(), bytes.end(), 0)};
}

std::u16string ByteReader::Text() {
    std::u16string text;
    while (const char16_t unit = U16()) text.push_back(unit);
    return text;
}

void ByteReader::Fail(const std::string& what) const {
    throw SourceError(m_file, "at byte " + std::to_string(m_at) + ": " + what);
}
