#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/formats/byte_order.h"

using Bytes = std::vector<std::uint8_t>;

/// Appends numbers, fixed-size names and text to a growing buffer, in one byte order.
class ByteWriter {
public:
    explicit ByteWriter(ByteOrder order) : m_order(order) {}

    void U8(std::uint8_t value) { m_bytes.push_back(value); }
    void U16(std::uint16_t value);
    void U32(std::uint32_t value);
    void Raw(std::span<const std::uint8_t> bytes);
    /// A name in a field of a fixed size: cut at size - 1 bytes, filled up with zeros.
    void Name(std::string_view name, std::size_t size);
    /// UTF-16 text and its terminating zero unit.
    void Text(std::u16string_view text);

    [[nodiscard]] const Bytes& Result() const { return m_bytes; }
    [[nodiscard]] ByteOrder Order() const { return m_order; }

private:
    ByteOrder m_order;
    Bytes m_bytes;
};
