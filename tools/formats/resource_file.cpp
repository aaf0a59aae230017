#include "tools/formats/resource_file.h"

#include <algorithm>

#include "tools/formats/byte_reader.h"
#include "tools/formats/zlib_stream.h"

namespace {

constexpr std::uint16_t kVersion = 0x0201;
constexpr std::uint16_t kOrderMark = 0x1234;
constexpr std::size_t kFontNameSize = 40;
constexpr std::size_t kMarkOffset = 10;
constexpr std::size_t kMostExpansion = 1040;  // no zlib stream grows more than this many times

enum RecordType : std::uint16_t { kBitmapList = 3, kFont = 4, kColourList = 5, kSet = 6, kPalette = 7 };

void StartRecord(ByteWriter& out, RecordType type) {
    out.U16(kRecordMagic);
    out.U16(type);
}

void WritePage(ByteWriter& out, const FontPage& page, Packing packing) {
    const bool compressed = packing == Packing::Compressed;
    const Bytes data = compressed ? Deflate(page.glyphs) : page.glyphs;
    out.U8(static_cast<std::uint8_t>(page.flags | (compressed ? kFontCompressed : 0)));
    out.U8(page.ascent);
    out.U8(page.descent);
    out.U8(page.height);
    out.Raw(page.kept);
    out.U16(page.bytesPerRow);
    out.U16(page.firstChar);
    out.U16(page.lastChar);
    for (int ignored = 0; ignored < 3; ++ignored) out.U32(0);
    out.U16(static_cast<std::uint16_t>(page.offsets.size()));
    for (const std::uint16_t offset : page.offsets) out.U16(offset);
    out.U32(static_cast<std::uint32_t>(data.size()));
    out.Raw(data);
}

void WriteFont(ByteWriter& out, const Font& font, Packing packing) {
    StartRecord(out, kFont);
    out.U16(static_cast<std::uint16_t>(font.pages.size()));
    out.U32(0);
    out.U16(0);
    out.Name(font.name, kFontNameSize);
    for (const FontPage& page : font.pages) WritePage(out, page, packing);
}

// Pixel data are words: they turn with the byte order of the file.
Bytes PixelsInOrder(const Bitmap& bitmap, ByteOrder order) {
    Bytes data = bitmap.data;
    if (bitmap.bitsPerPixel == 8 || order == ByteOrder::Little) return data;
    for (std::size_t i = 0; i + 1 < data.size(); i += 2) std::swap(data[i], data[i + 1]);
    return data;
}

// A bitmap list gives all its bitmaps one number, so that every bitmap stands in a list of its own.
void WriteBitmap(ByteWriter& out, const Bitmap& bitmap, Packing packing) {
    const Bytes pixels = PixelsInOrder(bitmap, out.Order());
    const bool compressed = packing == Packing::Compressed;
    const Bytes data = compressed ? Deflate(pixels) : pixels;
    StartRecord(out, kBitmapList);
    out.U16(0);
    out.U16(1);
    out.U32(bitmap.number);
    out.U32(compressed ? 1 : 0);
    out.U16(kRecordMagic);
    out.U32(static_cast<std::uint32_t>(data.size()));
    out.U32(static_cast<std::uint32_t>(pixels.size()));
    out.U8(bitmap.flags);
    out.U8(bitmap.bitsPerPixel);
    out.U16(bitmap.width);
    out.U16(bitmap.height);
    out.U32(bitmap.transparent);
    out.U32(0);
    out.Raw(data);
}

void WriteColours(ByteWriter& out, const std::vector<Colour>& colours) {
    StartRecord(out, kColourList);
    out.U16(static_cast<std::uint16_t>(colours.size()));
    for (const Colour& colour : colours) {
        out.U32(colour.number);
        out.U32(colour.value);
    }
}

Bytes Unpacked(ByteReader& in, std::span<const std::uint8_t> data, bool compressed, std::size_t size) {
    if (!compressed) {
        if (data.size() != size) in.Fail("data of the wrong size");
        return {data.begin(), data.end()};
    }
    const bool believable = size / kMostExpansion <= data.size();
    const auto bytes = believable ? Inflate(data, size) : std::nullopt;
    if (!bytes) in.Fail("compressed data are damaged");
    return *bytes;
}

FontPage ReadPage(ByteReader& in) {
    FontPage page;
    const std::uint8_t flags = in.U8();
    page.flags = static_cast<std::uint8_t>(flags & ~kFontCompressed);
    page.ascent = in.U8();
    page.descent = in.U8();
    page.height = in.U8();
    for (std::uint8_t& kept : page.kept) kept = in.U8();
    page.bytesPerRow = in.U16();
    page.firstChar = in.U16();
    page.lastChar = in.U16();
    for (int ignored = 0; ignored < 3; ++ignored) in.U32();
    const int offsetCount = in.U16();
    if (page.firstChar > page.lastChar) in.Fail("a page of no characters");
    if (offsetCount != page.lastChar - page.firstChar + 2) in.Fail("a page's offsets do not match its characters");
    for (int i = 0; i < offsetCount; ++i) page.offsets.push_back(in.U16());
    const auto data = in.Raw(in.U32());
    const std::size_t size = std::size_t{page.bytesPerRow} * page.height;
    page.glyphs = Unpacked(in, data, (flags & kFontCompressed) != 0, size);
    const unsigned columns = page.bytesPerRow * (page.flags & kFontFourBits ? 2U : 8U);
    if (!std::ranges::is_sorted(page.offsets) || page.offsets.back() > columns) in.Fail("a glyph leaves its page");
    return page;
}

Font ReadFont(ByteReader& in) {
    const int pageCount = in.U16();
    if (pageCount == 0) in.Fail("a font of no pages");
    in.U32();
    in.U16();
    Font font{.name = in.Name(kFontNameSize), .pages = {}};
    for (int i = 0; i < pageCount; ++i) font.pages.push_back(ReadPage(in));
    return font;
}

void ReadBitmaps(ByteReader& in, ResourceSet& set) {
    in.U16();
    const int count = in.U16();
    const std::uint32_t number = in.U32();
    const bool compressed = in.U32() != 0;
    for (int i = 0; i < count; ++i) {
        if (in.U16() != kRecordMagic) in.Fail("no bitmap");
        Bitmap bitmap;
        bitmap.number = number;
        const std::size_t stored = in.U32();
        const std::size_t size = in.U32();
        bitmap.flags = in.U8();
        bitmap.bitsPerPixel = in.U8();
        bitmap.width = in.U16();
        bitmap.height = in.U16();
        bitmap.transparent = in.U32();
        in.U32();
        bitmap.data = Unpacked(in, in.Raw(compressed ? stored : size), compressed, size);
        bitmap.data = PixelsInOrder(bitmap, in.Order());
        set.bitmaps.push_back(std::move(bitmap));
    }
}

void ReadColours(ByteReader& in, ResourceSet& set) {
    const int count = in.U16();
    for (int i = 0; i < count; ++i) {
        const std::uint32_t number = in.U32();
        set.colours.push_back({number, static_cast<std::uint16_t>(in.U32())});
    }
}

void ReadPalette(ByteReader& in, ResourceSet& set) {
    const auto bytes = in.Raw(set.palette.emplace().size());
    std::ranges::copy(bytes, set.palette->begin());
}

}  // namespace

std::uint8_t FontPage::Coverage(std::size_t column, std::size_t row) const {
    const bool fourBits = (flags & kFontFourBits) != 0;
    const std::uint8_t byte = glyphs.at(row * bytesPerRow + column / (fourBits ? 2 : 8));
    if (fourBits) return column % 2 == 0 ? byte >> 4 : byte & 0x0F;
    return byte >> (7 - column % 8) & 1 ? 15 : 0;
}

const FontPage* Font::PageOf(char16_t character) const {
    const auto page = std::ranges::find_if(
        pages, [&](const FontPage& each) { return character >= each.firstChar && character <= each.lastChar; });
    return page == pages.end() ? nullptr : &*page;
}

int Font::TextWidth(std::u16string_view text) const {
    int width = 0;
    for (const char16_t character : text) {
        const FontPage* page = PageOf(character);
        if (page == nullptr) continue;
        const std::size_t index = character - page->firstChar;
        width += page->offsets[index + 1] - page->offsets[index];
    }
    return width;
}

int Font::Height() const {
    int height = 0;
    for (const FontPage& page : pages) height = std::max<int>(height, page.height);
    return height;
}

Bytes WriteResourceFile(const ResourceFile& file, ByteOrder order, Packing packing) {
    ByteWriter out(order);
    out.U16(kRecordMagic);
    out.U16(kVersion);
    out.U16(static_cast<std::uint16_t>(file.sets.size()));
    out.U32(file.strings ? 1 : 0);
    out.U16(kOrderMark);
    if (file.strings) WriteStringTable(out, *file.strings);
    for (const ResourceSet& set : file.sets) {
        StartRecord(out, kSet);
        out.U16(0);
        if (!set.colours.empty()) WriteColours(out, set.colours);
        if (set.palette) {
            StartRecord(out, kPalette);
            out.Raw(*set.palette);
        }
        for (const Font& font : set.fonts) WriteFont(out, font, packing);
        for (const Bitmap& bitmap : set.bitmaps) WriteBitmap(out, bitmap, packing);
    }
    return out.Result();
}

ResourceFile ReadResourceFile(const std::string& name, std::span<const std::uint8_t> bytes) {
    ByteReader in(name, bytes);
    if (bytes.size() > kMarkOffset + 1 && bytes[kMarkOffset] == kOrderMark >> 8) in.SetOrder(ByteOrder::Big);
    if (in.U16() != kRecordMagic || in.U16() != kVersion) in.Fail("no resource file");
    const int setCount = in.U16();
    const bool hasStrings = in.U32() != 0;
    if (in.U16() != kOrderMark) in.Fail("no byte-order mark");
    ResourceFile file;
    if (hasStrings) file.strings = ReadStringTable(in);
    while (!in.AtEnd()) {
        if (in.U16() != kRecordMagic) in.Fail("no record");
        const std::uint16_t type = in.U16();
        if (type != kSet && file.sets.empty()) in.Fail("a record outside a resource set");
        switch (type) {
            case kSet:
                in.U16();
                file.sets.emplace_back();
                break;
            case kBitmapList: ReadBitmaps(in, file.sets.back()); break;
            case kFont: file.sets.back().fonts.push_back(ReadFont(in)); break;
            case kColourList: ReadColours(in, file.sets.back()); break;
            case kPalette: ReadPalette(in, file.sets.back()); break;
            default: in.Fail("a record of the unknown type " + std::to_string(type));
        }
    }
    if (file.sets.size() != static_cast<std::size_t>(setCount)) in.Fail("the count of resource sets is wrong");
    return file;
}
