#include "peg/resources/resources.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <array>
#include <cstdlib>

#include "peg/resources/builtin_fonts.h"
#include "simulator/own_folder.h"
#include "tests/bench/file_builder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes Deflate(const Bytes& data) {
    Bytes out(compressBound(static_cast<uLong>(data.size())));
    uLongf size = static_cast<uLongf>(out.size());
    compress(out.data(), &size, data.data(), static_cast<uLong>(data.size()));
    out.resize(size);
    return out;
}

/// A file with strings in two languages and one set: a font of two pages, a bitmap, two colours and a palette.
FileBuilder WholeFile(bool bigEndian, bool compressed, unsigned depth = PegFont::kFourBits) {
    FileBuilder file(bigEndian);
    file.U16(0xBEEF).U16(0x0201).U16(1).U32(1).U16(0x1234);
    const std::array<std::u16string_view, 3> english{u"Volt", u"", u"Ampere"};
    const std::array<std::u16string_view, 3> german{u"Volt", u"", u"Ampère"};
    file.StringTable(2, 3).Language(english).Language(german);

    file.U16(0xBEEF).U16(6).U16(0);
    file.U16(0xBEEF).U16(4).U16(2).Zeros(6 + 40);
    for (const unsigned first : {unsigned{'A'}, 0x0410U}) {
        const Bytes glyphs{0xF0, 0x0F, 0x12, 0x34};
        const Bytes stored = compressed ? Deflate(glyphs) : glyphs;
        file.U8(depth | (compressed ? 0x08 : 0)).U8(2).U8(0).U8(2).U8(0).U8(0).U8(0).U16(2).U16(first).U16(first + 1);
        file.Zeros(12).U16(3).U16(0).U16(3).U16(4);
        file.U32(static_cast<std::uint32_t>(stored.size())).Bytes(stored);
    }
    FileBuilder pixels(bigEndian);
    pixels.U16(0xF800).U16(0x07E0);
    const Bytes stored = compressed ? Deflate(pixels.Content()) : pixels.Content();
    file.U16(0xBEEF).U16(3).U16(0).U16(1).U32(243).U32(compressed ? 1 : 0);
    file.U16(0xBEEF).U32(compressed ? static_cast<std::uint32_t>(stored.size()) : 0).U32(4);
    file.U8(0).U8(16).U16(2).U16(1).U32(0).U32(0).Bytes(stored);
    file.U16(0xBEEF).U16(5).U16(2).U32(150).U32(0x1234).U32(3).U32(0x4321);
    file.U16(0xBEEF).U16(7);
    for (int i = 0; i < 256; ++i) file.U8(static_cast<unsigned>(i)).U8(0).U8(255);
    return file;
}

class Resources : public ::testing::Test {
protected:
    ~Resources() override { PegResources::Reset(); }

    int Load(const FileBuilder& content) {
        content.WriteTo(m_folder / "file.pbr");
        PegFile file;
        EXPECT_FALSE(file.Open("/no.pbr") || file.IsOpen());
        EXPECT_TRUE(file.Open("/file.pbr") && file.IsOpen());
        return PegResources::LoadResourceFile(file, 0);
    }
    void Install(const FileBuilder& content, bool replace = false) {
        ASSERT_EQ(Load(content), 1);
        PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), replace);
    }

private:
    const OwnBoard m_folder{"resources"};
};

TEST_F(Resources, BeginWithBuiltInFontsAndColoursAndGrowInStepsAndNotWithoutBound) {
    EXPECT_EQ(PegResources::GetFont(9), &BuiltInFontA());
    EXPECT_EQ(PegResources::GetFont(31), &BuiltInFontB());
    EXPECT_EQ(PegResources::GetFont(48), nullptr);
    EXPECT_EQ(PegResources::GetColor(24), 0x0017);
    EXPECT_EQ(PegResources::GetColor(9999), 0);
    EXPECT_EQ(PegResources::GetString(0), nullptr);
    EXPECT_EQ(std::u16string_view(PegResources::GetString(41)), u"...");
    EXPECT_EQ(PegResources::GetString(25), nullptr);
    EXPECT_GT(WidthOf(u"0123", &BuiltInFontA()), 0);

    PegResources::SetFont(48, &BuiltInFontA());
    EXPECT_EQ(PegResources::FontTableSize(), 64U);
    const PegBitmap bitmap{};
    PegResources::SetBitmap(0xFFFFFFF0U, &bitmap, false);
    EXPECT_EQ(PegResources::BitmapTableSize(), 80U);
    PegResources::SetBitmap(95, &bitmap, false);
    EXPECT_EQ(PegResources::BitmapTableSize(), 96U);
}

TEST_F(Resources, AreTheSameFromAFileOfEitherByteOrderPlainOrCompressed) {
    for (const bool bigEndian : {false, true}) {
        for (const bool compressed : {false, true}) {
            PegResources::Reset();
            ASSERT_EQ(Load(WholeFile(bigEndian, compressed)), 1);
            EXPECT_EQ(PegResources::ColorTableSize(), 101U) << "nothing is installed yet";
            PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), false);

            const PegFont* font = PegResources::GetFont(32);
            ASSERT_NE(font, nullptr);
            EXPECT_EQ(PageOf(font, u'B')->Width(u'B'), 1);
            ASSERT_NE(PageOf(font, u'А'), nullptr) << "the second page is found through the first";
            EXPECT_EQ(PageOf(font, u'А')->packed->steps, (std::vector<std::uint16_t>{0x00F0, 0x3012, 0x00F0, 0x0040}));
            EXPECT_EQ(font->flags, PegFont::kFourBits);
            EXPECT_EQ(PegResources::BitmapWidth(243), 2);
            EXPECT_EQ(PegResources::GetBitmap(243)->data[1], 0x07E0);
            EXPECT_EQ(PegResources::ColorTableSize(), 165U);
            EXPECT_EQ(PegResources::GetColor(150), 0x1234);
            EXPECT_EQ(PegResources::GetColor(3), 0x4321);
            EXPECT_EQ(PegResources::IndexedColors()[16], 2 << 11 | 31);
            EXPECT_EQ(std::u16string_view(PegResources::GetString(102)), u"Ampere");
            EXPECT_EQ(PegResources::GetString(101), nullptr) << "an empty text is none";
            EXPECT_EQ(PegResources::GetString(103), nullptr);
            PegResources::SetLanguage(1);
            EXPECT_EQ(std::u16string_view(PegResources::GetString(102)), u"Ampère");
            PegResources::SetLanguage(7);
            EXPECT_EQ(std::u16string_view(PegResources::GetString(102)), u"Ampere") << "fewer languages";
        }
    }
}

TEST_F(Resources, KeepTheRowsOfAFontOfOneBitAPixel) {
    Install(WholeFile(false, false, 0));
    const PegFont* font = PegResources::GetFont(32);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->packed, nullptr);
    EXPECT_EQ(Bytes(font->glyphs, font->glyphs + 4), (Bytes{0xF0, 0x0F, 0x12, 0x34}));
}

TEST_F(Resources, ThatAreReplacedAreFreedWhenThatIsAskedFor) {
    static constexpr PegBitmap kOther{};
    for (const bool replace : {false, true}) {
        Install(WholeFile(false, false));
        PegResources::SetBitmap(243, &kOther, replace);
        EXPECT_EQ(PegResources::GetResourceSet(0)->bitmaps.empty(), replace);
    }
}

TEST_F(Resources, StayWhenAFileIsAForeignOneAndDisappearWithAnotherLoad) {
    Install(WholeFile(false, true));
    for (const std::size_t damaged : {0U, 2U}) {
        FileBuilder file = WholeFile(false, true);
        file.Content()[damaged] ^= 0xFF;
        EXPECT_EQ(Load(file), 0);
        EXPECT_NE(PegResources::GetFont(32), nullptr);
    }
    FileBuilder empty;
    EXPECT_EQ(Load(empty), 0);
    ASSERT_EQ(Load(empty.U16(0xBEEF).U16(0x0201).U16(0).U32(0).U16(0x1234)), 1);
    EXPECT_EQ(PegResources::GetFont(32), nullptr);
    EXPECT_EQ(PegResources::GetBitmap(243), nullptr);
}

TEST_F(Resources, RefuseEveryCutOfAFile) {
    FileBuilder file = WholeFile(false, true);
    // Behind the header a set may end at any record, and the strings are there before it.
    int goodCuts = 0;
    while (!file.Content().empty()) {
        file.Content().pop_back();
        goodCuts += Load(file);
    }
    EXPECT_EQ(goodCuts, 4) << "after the set's head, its font, its bitmap and its colours";
}

TEST_F(Resources, RefuseRecordsThatLie) {
    FileBuilder whole = WholeFile(false, false);
    for (std::size_t at = 12; at < whole.Content().size(); ++at) {
        const bool isMark = whole.Content()[at - 1] == 0xEF && whole.Content()[at] == 0xBE;
        for (const unsigned lie : {0x00U, 0x7FU, 0x80U, 0xFFU}) {
            FileBuilder file = whole;
            file.Content()[at] = static_cast<std::uint8_t>(lie);
            if (Load(file) != 1) continue;  // no crash, no read outside: the sanitizers watch
            EXPECT_FALSE(isMark) << "a record without its mark at " << at;
            PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), true);
            const PegBitmap* bitmap = PegResources::GetBitmap(243);
            if (bitmap == nullptr) continue;
            EXPECT_TRUE(HoldsItsRows(*bitmap, std::size_t{bitmap->width} * bitmap->height * bitmap->bitsPerPixel / 8));
        }
    }
}

TEST_F(Resources, AreWhatCompressedDataExpandToWhenTheyClaimAsMuch) {
    const Bytes stored = Deflate({1, 2, 3, 4});
    for (const bool bigEndian : {false, true}) {
        for (const unsigned claimed : {4U, 3U, 8U}) {
            FileBuilder file(bigEndian);
            file.U16(0xBEEF).U16(0x0201).U16(2).U32(0).U16(0x1234);
            file.U16(0xBEEF).U16(6).U16(0);
            file.U16(0xBEEF).U16(3).U16(0).U16(2).U32(243).U32(1);
            for (int i = 0; i < 2; ++i) {
                file.U16(0xBEEF).U32(static_cast<std::uint32_t>(stored.size())).U32(claimed);
                file.U8(0).U8(8).U16(claimed).U16(1).U32(0).U32(0).Bytes(stored);
            }
            file.U16(0xBEEF).U16(6).U16(0).U16(0xBEEF).U16(5).U16(1).U32(150).U32(0x1234);
            PegResources::Reset();
            ASSERT_EQ(Load(file), claimed == 4 ? 1 : 0) << claimed;
            if (claimed != 4) continue;
            PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), true);
            EXPECT_EQ(PegResources::GetResourceSet(0)->bitmaps.size(), 1U) << "the second took the first one's place";
            EXPECT_EQ(PegResources::GetBitmap(243)->Bytes()[0], 1) << "bytes have no order";
            EXPECT_EQ(PegResources::GetResourceSet(1)->colors.size(), 1U);
        }
    }
}

TEST_F(Resources, BelieveRunsOfEachDepthOnlyAsFarAsTheirDataGo) {
    // Two rows of three pixels: one repeated, then three by themselves.
    alignas(2) std::array<std::uint8_t, 6> narrow{2, 7, 0x82, 1, 2, 3};
    std::array<std::uint16_t, 6> colors{2, 7, 0x8002, 1, 2, 3};
    std::array<std::uint16_t, 10> blended{2, 7, 255, 0x8002, 1, 255, 2, 255, 3, 255};
    struct Case {
        std::uint8_t depth;
        std::uint16_t flags;
        std::uint16_t* data;
        std::size_t bytes;
    };
    for (const Case& one :
         {Case{8, PegBitmap::kRunLength, reinterpret_cast<std::uint16_t*>(narrow.data()), sizeof narrow},
          Case{16, PegBitmap::kRunLength, colors.data(), sizeof colors},
          Case{32, PegBitmap::kRunLength | PegBitmap::kAlpha, blended.data(), sizeof blended}}) {
        PegBitmap bitmap{one.flags, one.depth, 3, 2, 0, one.data};
        EXPECT_TRUE(HoldsItsRows(bitmap, one.bytes)) << int{one.depth};
        for (std::size_t size = 0; size < one.bytes; ++size) EXPECT_FALSE(HoldsItsRows(bitmap, size)) << size;
        bitmap.width = 2;
        EXPECT_FALSE(HoldsItsRows(bitmap, one.bytes)) << "runs wider than their row";
        bitmap.flags ^= PegBitmap::kAlpha;
        EXPECT_FALSE(HoldsItsRows(bitmap, one.bytes)) << "alpha belongs to 32 bits, and to nothing else";
    }
    const PegBitmap odd{PegBitmap::kRunLength, 24, 3, 2, 0, colors.data()};
    EXPECT_FALSE(HoldsItsRows(odd, sizeof colors));
}

}  // namespace
