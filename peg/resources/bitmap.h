#pragma once

#include <cstddef>
#include <cstdint>

/// A picture: rows of pixels, top to bottom.
///
/// 8 bits a pixel are indices into the driver's table of 256 colours; 16 bits are RGB565; 32 bits are two 16-bit words,
/// the colour and its alpha of 0 to 255 (with kAlphaFirst the alpha comes first). Run-length rows are series of runs: a
/// count word, then one pixel that is repeated count + 1 times, or, when the top bit of the count is set, that many
/// plus one pixels given one by one. Rows of 8-bit pixels have counts of one byte. The loader has checked that the runs
/// of every row cover its width exactly and that `data` holds them.
struct PegBitmap {
    static constexpr std::uint16_t kRunLength = 0x01;
    static constexpr std::uint16_t kAlphaFirst = 0x04;
    static constexpr std::uint16_t kTransparent = 0x10;
    static constexpr std::uint16_t kAlpha = 0x80;

    std::uint16_t flags;
    std::uint8_t bitsPerPixel;  // 8, 16 or 32
    std::uint16_t width;
    std::uint16_t height;
    std::uint32_t transparent;  // pixel value that is not drawn when kTransparent is set
    std::uint16_t* data;

    bool Has(std::uint16_t flag) const { return (flags & flag) != 0; }
    const std::uint8_t* Bytes() const { return reinterpret_cast<const std::uint8_t*>(data); }
};

/// The pixel that is left alone in 16-bit bitmaps which the driver creates with transparency.
inline constexpr std::uint16_t kTransparentPixel = 0x0001;

/// True when the `size` bytes at the bitmap's data hold exactly its rows, run-length or plain.
bool HoldsItsRows(const PegBitmap& bitmap, std::size_t size);
