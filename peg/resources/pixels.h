#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

/// A block of pixels that begins with a cache line, so that copying its rows is not split between two.
inline constexpr std::align_val_t kPixelAlignment{64};

struct FreePixels {
    void operator()(std::uint16_t* pixels) const { ::operator delete[](pixels, kPixelAlignment); }
};
using PixelBlock = std::unique_ptr<std::uint16_t[], FreePixels>;

/// `words` words, all zero.
inline PixelBlock MakePixels(std::size_t words) { return PixelBlock(new (kPixelAlignment) std::uint16_t[words]()); }
