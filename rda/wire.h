#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>

/// Values as they travel between meter and display: bytes, least significant first, at any address.
namespace wire {

template <std::size_t Size>
struct UnsignedOfSize;
template <>
struct UnsignedOfSize<1> {
    using Type = std::uint8_t;
};
template <>
struct UnsignedOfSize<2> {
    using Type = std::uint16_t;
};
template <>
struct UnsignedOfSize<4> {
    using Type = std::uint32_t;
};
template <>
struct UnsignedOfSize<8> {
    using Type = std::uint64_t;
};

/// The bytes of one number; its value on request.
template <typename Value>
struct Number {
    using Bits = typename UnsignedOfSize<sizeof(Value)>::Type;

    std::array<std::uint8_t, sizeof(Value)> bytes;

    [[nodiscard]] constexpr Value Get() const {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i) bits |= std::uint64_t{bytes[i]} << (8 * i);
        return std::bit_cast<Value>(static_cast<Bits>(bits));
    }

    constexpr void Set(Value value) {
        const std::uint64_t bits = std::bit_cast<Bits>(value);
        for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(bits >> (8 * i));
    }
};

}  // namespace wire

using WireU8 = wire::Number<std::uint8_t>;
using WireU16 = wire::Number<std::uint16_t>;
using WireU32 = wire::Number<std::uint32_t>;
using WireI32 = wire::Number<std::int32_t>;
using WireU64 = wire::Number<std::uint64_t>;
using WireF32 = wire::Number<float>;
using WireF64 = wire::Number<double>;

static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559);
static_assert(WireU16{{0x34, 0x12}}.Get() == 0x1234 && WireI32{{0xFE, 0xFF, 0xFF, 0xFF}}.Get() == -2);
static_assert(WireU64{{1, 0, 0, 0, 0, 0, 0, 0x80}}.Get() == 0x8000000000000001U);
static_assert(WireF32{{0, 0, 0xFA, 0xC3}}.Get() == -500.0F && WireF64{{0, 0, 0, 0, 0, 0, 0x04, 0x40}}.Get() == 2.5);

/// What every record that travels must be: a plain sequence of bytes of the agreed length.
template <typename Record>
inline constexpr bool kIsWireRecord = alignof(Record) == 1 && std::is_trivially_copyable_v<Record>;

/// The text in a field: up to its terminator, or the whole field when it has none.
template <std::size_t Size>
[[nodiscard]] constexpr std::string_view TextIn(const std::array<char, Size>& field) {
    const std::string_view whole(field.data(), field.size());
    return whole.substr(0, whole.find('\0'));
}
