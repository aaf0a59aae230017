#include "peg/resources/resource_file.h"

#include <zlib.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "peg/resources/field_reader.h"
#include "peg/resources/record_types.h"

namespace {

constexpr std::uint16_t kVersion = 0x0201;
constexpr std::uint16_t kOwnOrderMark = 0x1234;
constexpr std::uint32_t kFirstFontNumber = 32;
constexpr std::size_t kMostExpansion = 1040;  // no deflate stream grows more than this many times

static_assert(std::endian::native == std::endian::little, "pixels are words of the machine");

/// Expands a zlib stream into exactly `to`.
bool Inflate(std::span<const std::uint8_t> from, std::span<std::uint8_t> to) {
    uLongf size = static_cast<uLongf>(to.size());
    return uncompress(to.data(), &size, from.data(), static_cast<uLong>(from.size())) == Z_OK && size == to.size();
}

/// Fills `to` with `stored` bytes of the file, which are there; compressed ones are expanded, others as many as `to`
/// holds.
bool ReadData(FieldReader& fields, std::uint32_t stored, bool compressed, std::span<std::uint8_t> to) {
    const auto from = fields.Take(stored);
    if (compressed) return Inflate(from, to);
    std::copy(from.begin(), from.end(), to.begin());
    return true;
}

/// A size that the file may claim for data of which `stored` bytes are there.
bool IsBelievable(std::size_t claimed, std::size_t stored, bool compressed) {
    return compressed ? claimed / kMostExpansion <= stored : claimed == stored;
}

/// @param rows  room for the page's rows, used again for the next page
bool ReadPage(FieldReader& fields, std::vector<std::uint8_t>& rows, LoadedPage& loaded) {
    PegFont& page = loaded.page;
    page.flags = fields.U8();
    page.ascent = fields.U8();
    page.descent = fields.U8();
    page.height = fields.U8();
    page.kept[0] = fields.U8();
    page.kept[1] = fields.U8();
    page.underline = fields.U8();
    page.bytesPerRow = fields.U16();
    page.firstChar = fields.U16();
    page.lastChar = fields.U16();
    fields.Skip(3 * sizeof(std::uint32_t));
    const std::uint16_t offsetCount = fields.U16();
    if (!fields.Ok() || page.firstChar > page.lastChar) return false;
    if (offsetCount != page.lastChar - page.firstChar + 2) return false;
    if (offsetCount * sizeof(std::uint16_t) > fields.Remaining()) return false;

    loaded.offsets.resize(offsetCount);
    for (auto& offset : loaded.offsets) offset = fields.U16();
    const std::uint32_t stored = fields.U32();
    const bool compressed = (page.flags & PegFont::kCompressed) != 0;
    const std::size_t glyphBytes = std::size_t{page.bytesPerRow} * page.height;
    if (!fields.Ok() || stored > fields.Remaining() || !IsBelievable(glyphBytes, stored, compressed)) return false;
    if (!std::is_sorted(loaded.offsets.begin(), loaded.offsets.end())) return false;
    if (loaded.offsets.back() > page.bytesPerRow * page.PixelsPerByte()) return false;

    rows.resize(std::max(rows.size(), glyphBytes + kPackingReadsBeyond));
    if (!ReadData(fields, stored, compressed, std::span(rows).first(glyphBytes))) return false;
    page.flags &= static_cast<std::uint8_t>(~PegFont::kCompressed);
    page.offsets = loaded.offsets.data();
    if ((page.flags & PegFont::kFourBits) != 0) {
        loaded.packed = PackGlyphs(rows.data(), page.height, page.bytesPerRow, loaded.offsets);
        page.packed = &loaded.packed;
    } else {
        loaded.glyphs.assign(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(glyphBytes));
        page.glyphs = loaded.glyphs.data();
    }
    return true;
}

bool ReadFont(FieldReader& fields, PegResourceSet& set) {
    const std::uint16_t pageCount = fields.U16();
    fields.Skip(sizeof(std::uint32_t) + sizeof(std::uint16_t) + kNameBytes);
    if (!fields.Ok() || pageCount == 0) return false;

    LoadedFont font;
    std::vector<std::uint8_t> rows;
    font.number = kFirstFontNumber + static_cast<std::uint32_t>(set.fonts.size());
    for (int i = 0; i < pageCount; ++i) {
        auto page = std::make_unique<LoadedPage>();
        if (!ReadPage(fields, rows, *page)) return false;
        if (i > 0) font.pages.back()->page.next = &page->page;
        font.pages.push_back(std::move(page));
    }
    set.fonts.push_back(std::move(font));
    return true;
}

void SwapWords(std::span<std::uint8_t> bytes) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
}

bool ReadBitmap(FieldReader& fields, bool compressed, LoadedBitmap& loaded) {
    const bool known = fields.U16() == kRecordMagic;
    const std::uint32_t stored = fields.U32();
    const std::uint32_t pixelBytes = fields.U32();
    PegBitmap& bitmap = loaded.bitmap;
    bitmap.flags = fields.U8();
    bitmap.bitsPerPixel = fields.U8();
    bitmap.width = fields.U16();
    bitmap.height = fields.U16();
    bitmap.transparent = fields.U32();
    fields.Skip(sizeof(std::uint32_t));
    const std::uint32_t there = compressed ? stored : pixelBytes;
    if (!known || !fields.Ok() || there > fields.Remaining()) return false;
    if (!IsBelievable(pixelBytes, there, compressed)) return false;

    loaded.pixels = MakePixels((pixelBytes + 1) / sizeof(std::uint16_t));
    bitmap.data = loaded.pixels.get();
    loaded.bytes = pixelBytes;
    const std::span<std::uint8_t> bytes{reinterpret_cast<std::uint8_t*>(bitmap.data), pixelBytes};
    if (!ReadData(fields, there, compressed, bytes)) return false;
    if (fields.IsForeignOrder() && bitmap.bitsPerPixel != 8) SwapWords(bytes);
    return HoldsItsRows(bitmap, pixelBytes);
}

bool ReadBitmapList(FieldReader& fields, PegResourceSet& set) {
    fields.Skip(sizeof(std::uint16_t));
    const std::uint16_t count = fields.U16();
    const std::uint32_t number = fields.U32();
    const bool compressed = fields.U32() != 0;
    for (int i = 0; i < count; ++i) {
        auto bitmap = std::make_unique<LoadedBitmap>();
        bitmap->number = number;
        if (!ReadBitmap(fields, compressed, *bitmap)) return false;
        set.bitmaps.push_back(std::move(bitmap));
    }
    return fields.Ok();
}

bool ReadColors(FieldReader& fields, PegResourceSet& set) {
    const std::uint16_t count = fields.U16();
    for (int i = 0; i < count && fields.Ok(); ++i) {
        const std::uint32_t number = fields.U32();
        const std::uint32_t value = fields.U32();
        set.colors.push_back({number, static_cast<std::uint16_t>(value)});
    }
    return fields.Ok();
}

bool ReadPalette(FieldReader& fields, PegResourceSet& set) {
    const auto bytes = fields.Take(sizeof(Palette));
    if (!fields.Ok()) return false;
    set.palette = std::make_unique<Palette>();
    std::memcpy(set.palette->data(), bytes.data(), bytes.size());
    return true;
}

/// Reads the records of one set up to the next set or the end of the file.
bool ReadSet(FieldReader& fields, PegResourceSet& set) {
    if (fields.U16() != kRecordMagic || fields.U16() != kResourceSetRecord) return false;
    fields.Skip(sizeof(std::uint16_t));
    while (fields.Remaining() > 0) {
        const std::uint16_t magic = fields.U16();
        const std::uint16_t type = fields.U16();
        if (!fields.Ok() || magic != kRecordMagic) return false;
        bool read = false;
        switch (type) {
            case kBitmapListRecord: read = ReadBitmapList(fields, set); break;
            case kFontRecord: read = ReadFont(fields, set); break;
            case kColorListRecord: read = ReadColors(fields, set); break;
            case kPaletteRecord: read = ReadPalette(fields, set); break;
            case kResourceSetRecord: fields.StepBack(2 * sizeof(std::uint16_t)); return true;
        }
        if (!read) return false;
    }
    return fields.Ok();
}

bool ReadStrings(FieldReader& fields, ResourceFileContent& content) {
    const bool known = fields.U16() == kRecordMagic && fields.U16() == kStringTableRecord;
    const std::uint16_t languageCount = fields.U16();
    content.stringCount = fields.U16();
    fields.Skip(kTableNameBytes);
    if (!known || !fields.Ok()) return false;
    auto strings = std::make_unique<StringTable>();
    if (!strings->Read(fields, languageCount, content.stringCount)) return false;
    content.strings = std::move(strings);
    return true;
}

}  // namespace

FileVerdict ReadResourceFile(PegFile& file, ResourceFileContent& content) {
    FieldReader fields(file);
    std::uint16_t magic = fields.U16();
    std::uint16_t version = fields.U16();
    std::uint16_t setCount = fields.U16();
    const std::uint32_t hasStrings = fields.U32();
    if (fields.U16() != kOwnOrderMark) {
        fields.SetForeignOrder(true);
        for (auto* field : {&magic, &version, &setCount})
            *field = static_cast<std::uint16_t>(*field << 8 | *field >> 8);
    }
    if (!fields.Ok() || magic != kRecordMagic || version != kVersion) return FileVerdict::ForeignFormat;
    if (hasStrings != 0 && !ReadStrings(fields, content)) return FileVerdict::Broken;
    for (int i = 0; i < setCount; ++i) {
        auto set = std::make_unique<PegResourceSet>();
        if (!ReadSet(fields, *set)) return FileVerdict::Broken;
        content.sets.push_back(std::move(set));
    }
    return FileVerdict::Whole;
}
