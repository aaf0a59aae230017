#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string_view>
#include <vector>

/// Builds the bytes of a made-up resource or localisation file, field by field, in either byte order.
class FileBuilder {
public:
    explicit FileBuilder(bool bigEndian = false) : m_bigEndian(bigEndian) {}

    FileBuilder& U8(unsigned value) {
        m_bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }
    FileBuilder& U16(unsigned value) { return m_bigEndian ? U8(value >> 8).U8(value) : U8(value).U8(value >> 8); }
    FileBuilder& U32(std::uint32_t value) {
        return m_bigEndian ? U16(value >> 16).U16(value) : U16(value).U16(value >> 16);
    }
    FileBuilder& Zeros(std::size_t count) {
        m_bytes.resize(m_bytes.size() + count);
        return *this;
    }
    FileBuilder& Bytes(std::span<const std::uint8_t> bytes) {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
        return *this;
    }
    /// Texts one after the other, each with its terminator.
    FileBuilder& Texts(std::span<const std::u16string_view> texts) {
        for (const auto text : texts) {
            for (const char16_t unit : text) U16(unit);
            U16(0);
        }
        return *this;
    }
    /// A language record.
    FileBuilder& Language(std::span<const std::u16string_view> texts) {
        std::size_t units = 0;
        for (const auto text : texts) units += text.size() + 1;
        U16(0xBEEF).U16(2).Zeros(42).U32(static_cast<std::uint32_t>(2 * units));
        return Texts(texts);
    }
    FileBuilder& StringTable(unsigned languages, unsigned strings) {
        return U16(0xBEEF).U16(1).U16(languages).U16(strings).Zeros(120);
    }

    std::vector<std::uint8_t>& Content() { return m_bytes; }

    void WriteTo(const std::filesystem::path& path) const {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file.write(reinterpret_cast<const char*>(m_bytes.data()), static_cast<std::streamsize>(m_bytes.size()));
    }

private:
    std::vector<std::uint8_t> m_bytes;
    bool m_bigEndian;
};
