#pragma once

#include <cstddef>
#include <span>

/// Overwrites with zeros what must not stay in memory: passwords, and whatever may hold one. Compilers leave out writes
/// that nobody reads, but not these.
inline void WipeBytes(std::span<std::byte> bytes) {
    for (std::byte& one : bytes) static_cast<volatile std::byte&>(one) = std::byte{0};
}

/// The same for anything that is laid out one after the other: an array, a span, a text.
template <typename Range>
void Wipe(Range&& range) {
    WipeBytes(std::as_writable_bytes(std::span(range)));
}
