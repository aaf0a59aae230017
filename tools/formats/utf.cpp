#include "tools/formats/utf.h"

#include <array>
#include <cstdint>

namespace {

constexpr std::uint32_t kLastPoint = 0x10FFFF;

bool IsSurrogate(std::uint32_t point) { return point >= 0xD800 && point <= 0xDFFF; }

struct Point {
    std::uint32_t value;
    std::size_t length;
};

std::optional<Point> FirstPoint(std::string_view utf8) {
    // The smallest code point of each length: shorter spellings of it are not UTF-8.
    constexpr std::array<std::uint32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    const auto first = static_cast<std::uint8_t>(utf8[0]);
    if (first < 0x80) return Point{first, 1};
    if (first < 0xC0) return {};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (utf8.size() < length) return {};
    std::uint32_t value = first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<std::uint8_t>(utf8[i]);
        if ((next & 0xC0) != 0x80) return {};
        value = value << 6 | (next & 0x3FU);
    }
    if (value < kSmallest[length] || value > kLastPoint || IsSurrogate(value)) return {};
    return Point{value, length};
}

void Append(std::string& utf8, std::uint32_t point) {
    const auto tail = [&](int shift) { utf8.push_back(static_cast<char>(0x80 | (point >> shift & 0x3F))); };
    if (point < 0x80) {
        utf8.push_back(static_cast<char>(point));
        return;
    }
    if (point < 0x800) {
        utf8.push_back(static_cast<char>(0xC0 | point >> 6));
    } else if (point < 0x10000) {
        utf8.push_back(static_cast<char>(0xE0 | point >> 12));
        tail(6);
    } else {
        utf8.push_back(static_cast<char>(0xF0 | point >> 18));
        tail(12);
        tail(6);
    }
    tail(0);
}

}  // namespace

std::optional<std::u16string> ToUtf16(std::string_view utf8) {
    std::u16string utf16;
    while (!utf8.empty()) {
        const auto point = FirstPoint(utf8);
        if (!point) return {};
        if (point->value < 0x10000) {
            utf16.push_back(static_cast<char16_t>(point->value));
        } else {
            utf16.push_back(static_cast<char16_t>(0xD800 + ((point->value - 0x10000) >> 10)));
            utf16.push_back(static_cast<char16_t>(0xDC00 + ((point->value - 0x10000) & 0x3FF)));
        }
        utf8.remove_prefix(point->length);
    }
    return utf16;
}

std::string ToUtf8(std::u16string_view utf16) {
    std::string utf8;
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const std::uint32_t unit = utf16[i];
        const bool pair =
            unit >= 0xD800 && unit < 0xDC00 && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 && utf16[i + 1] <= 0xDFFF;
        if (pair) {
            Append(utf8, 0x10000 + ((unit - 0xD800) << 10) + (utf16[++i] - 0xDC00U));
        } else {
            Append(utf8, IsSurrogate(unit) ? '?' : unit);
        }
    }
    return utf8;
}
