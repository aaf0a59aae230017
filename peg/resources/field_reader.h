#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "peg/resources/file.h"

/// Reads the fields of a record from a file in either byte order. Reading past the end gives zeros and is remembered:
/// a reader of records asks `Ok` once, before it believes what it read.
class FieldReader {
public:
    explicit FieldReader(PegFile& file) : m_file(file) {}

    void SetForeignOrder(bool foreign) { m_foreign = foreign; }
    bool IsForeignOrder() const { return m_foreign; }
    bool Ok() const { return m_ok; }
    std::size_t Remaining() const { return m_file.Remaining(); }

    std::uint8_t U8() { return Bytes<1>()[0]; }
    std::uint16_t U16() {
        const auto b = Bytes<2>();
        return static_cast<std::uint16_t>(m_foreign ? b[0] << 8 | b[1] : b[1] << 8 | b[0]);
    }
    std::uint32_t U32() {
        const std::uint32_t first = U16();
        const std::uint32_t second = U16();
        return m_foreign ? first << 16 | second : second << 16 | first;
    }
    void Skip(std::size_t bytes) { static_cast<void>(Take(bytes)); }

    /// The next bytes as they stand; empty when fewer are left.
    std::span<const std::uint8_t> Take(std::size_t bytes) {
        const auto taken = m_file.Take(bytes);
        m_ok &= taken.size() == bytes;
        return taken;
    }

    /// The next 16-bit units, as many as `to` holds; zeros when fewer are left.
    void Units(std::span<char16_t> to) {
        std::ranges::fill(to, u'\0');
        std::ranges::copy(Take(to.size_bytes()), reinterpret_cast<std::uint8_t*>(to.data()));
        if (m_foreign)
            for (char16_t& unit : to) unit = static_cast<char16_t>(unit << 8 | unit >> 8);
    }

    /// Steps back over bytes that were read.
    void StepBack(std::size_t bytes) { m_ok &= m_file.Seek(-static_cast<std::ptrdiff_t>(bytes)); }

private:
    template <std::size_t size>
    std::array<std::uint8_t, size> Bytes() {
        std::array<std::uint8_t, size> bytes{};
        m_ok &= m_file.Read(bytes.data(), size) == size;
        return bytes;
    }

    PegFile& m_file;
    bool m_foreign = false;
    bool m_ok = true;
};
