#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "navigation/font_for_size.h"
#include "navigation/menu_trees.h"
#include "navigation/widgets/draw_screen.h"
#include "peg/resources/resources.h"
#include "screens/parameters/row_layout.h"
#include "tests/tools/workshop.h"

namespace {

/// The two files of the build, as the display loads them.
class Romfs : public Workshop {
protected:
    Romfs() { EXPECT_EQ(Load(ROMFS_DIR "/resources.pbr"), 1); }

    static void ExpectSize(std::uint32_t number, int width, int height) {
        EXPECT_EQ(PegResources::BitmapWidth(number), width) << "bitmap " << number;
        EXPECT_EQ(PegResources::BitmapHeight(number), height) << "bitmap " << number;
    }
};

struct Picture {
    std::uint32_t number;
    int width;
    int height;
};

TEST_F(Romfs, HasAPictureForEveryLookOfEverySoftKeyThatFitsTheKey) {
    constexpr int kNarrowestKey = 76;
    constexpr int kLowestKey = 22;
    for (const Scheme scheme : {Scheme::Data, Scheme::Plain, Scheme::Menu, Scheme::TestMode}) {
        for (auto image = static_cast<std::size_t>(KeyImage::Up);
             image <= static_cast<std::size_t>(KeyImage::Acknowledge); ++image) {
            for (const KeyLook look : {KeyLook::Normal, KeyLook::Disabled, KeyLook::Pressed}) {
                const std::uint32_t number = drawScreenClass::imageOfScheme(scheme, static_cast<KeyImage>(image), look);
                if (number == 0) continue;
                EXPECT_GT(PegResources::BitmapWidth(number), 0) << "bitmap " << number;
                EXPECT_LE(PegResources::BitmapWidth(number), kNarrowestKey) << "bitmap " << number;
                EXPECT_LE(PegResources::BitmapHeight(number), kLowestKey) << "bitmap " << number;
            }
        }
    }
}

TEST_F(Romfs, HasAnIconForEveryMenuItem) {
    const int itemHeight = PegResources::BitmapHeight(82);
    for (const MenuTree& tree : kMenuTrees) {
        for (const MenuItem& item : tree.items) {
            const auto icon = static_cast<std::uint32_t>(item.icon);
            EXPECT_GT(PegResources::BitmapHeight(icon), 0) << "bitmap " << icon;
            EXPECT_LE(PegResources::BitmapHeight(icon), itemHeight) << "bitmap " << icon;
        }
    }
}

TEST_F(Romfs, HasRowsAndBackdropsThatCloseWithTheGeometryOfTheScreens) {
    for (const std::uint32_t backdrop : {70U, 139U, 189U, 211U, 215U, 243U}) ExpectSize(backdrop, 320, 240);

    // Menu: the list is 297 wide and 210 high and shows seven items whole; level-2 items are 27 high.
    for (const std::uint32_t row : {81U, 82U}) ExpectSize(row, 297, 210 / 7);
    for (const std::uint32_t row : {161U, 182U}) ExpectSize(row, 297, 27);
    for (const std::uint32_t row : {83U, 84U}) ExpectSize(row, 297, 21);

    // Setup lists: six lines between the header line and the soft-key line with 10 to spare at both ends; what the
    // titles add at both ends still stays between the lines.
    constexpr int kHeaderLine = 55;
    constexpr int kKeyLine = 214;
    const int line = PegResources::BitmapHeight(146);
    EXPECT_LE(6 * line, kKeyLine - kHeaderLine - 20);
    EXPECT_GT(7 * line, kKeyLine - kHeaderLine - 20);
    EXPECT_LE(6 * line + PegResources::BitmapHeight(144), kKeyLine - kHeaderLine - 1);
    for (const std::uint32_t row : {145U, 146U, 150U}) ExpectSize(row, 304, line);
    EXPECT_EQ(PegResources::BitmapHeight(143), line);
    EXPECT_EQ(PegResources::BitmapWidth(159), PegResources::BitmapWidth(146));

    // Nameplate: six rows from line 36 plus one row's height; the first starts a line higher.
    const int plate = PegResources::BitmapHeight(105);
    EXPECT_LT(plate + 36 + 6 * plate, kKeyLine);
    EXPECT_GT(plate + 36 - 1, kHeaderLine);
    for (const std::uint32_t row : {105U, 106U}) ExpectSize(row, 300, plate);
    ExpectSize(151, 300, plate + 1);

    // Event log: four rows in a list of 301 x 145.
    for (const std::uint32_t row : {154U, 155U, 156U, 157U}) ExpectSize(row, 301, 145 / 4);
}

TEST_F(Romfs, HasHeaderIconsThatStandInTheWhiteBand) {
    for (const std::uint32_t icon : {86U, 87U, 88U, 89U, 112U, 113U, 212U, 213U, 214U}) ExpectSize(icon, 22, 20);
    for (const std::uint32_t icon : {158U, 160U}) ExpectSize(icon, 16, 16);
}

TEST_F(Romfs, HasTheMarksOfListsAndBars) {
    for (const std::uint32_t mark : {85U, 90U, 91U, 224U, 225U, 241U}) ExpectSize(mark, 20, 16);
    ExpectSize(99, 280, 8);
    for (const std::uint32_t marker : {100U, 101U, 102U}) EXPECT_EQ(PegResources::BitmapHeight(marker), 16);
    for (const std::uint32_t key : {216U, 217U}) EXPECT_LE(PegResources::BitmapHeight(key), 19);
}

double Luminance(std::uint16_t colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear((colour >> 11) / 31.0) + 0.7152 * linear((colour >> 5 & 63) / 63.0) +
           0.0722 * linear((colour & 31) / 31.0);
}

TEST_F(Romfs, KeepsWhiteTextOnAccentsAndDarkTextOnMarkedRowsLegible) {
    const auto contrast = [](std::uint32_t dark, std::uint32_t light) {
        return (Luminance(PegResources::GetColor(light)) + 0.05) / (Luminance(PegResources::GetColor(dark)) + 0.05);
    };
    for (const std::uint32_t accent : {1U, 85U, 86U, 87U, 89U}) EXPECT_GE(contrast(accent, 15), 4.5) << accent;
    EXPECT_GE(contrast(21, 25), 7.0);
    EXPECT_GE(contrast(22, 24), 7.0);
}

TEST_F(Romfs, HasAFontForEverySizeWithFiguresOfOneWidth) {
    for (int size = 1; size <= 80; ++size) {
        const auto number = static_cast<std::uint32_t>(FontForSize(size, 240));
        const PegFont* font = PegResources::GetFont(number);
        ASSERT_NE(font, nullptr) << "font " << number;
        const int figure = WidthOf(u"0", font);
        EXPECT_GT(figure, 0);
        for (const char16_t c : std::u16string(u"123456789"))
            EXPECT_EQ(WidthOf({&c, 1}, font), figure) << "font " << number;
    }
    EXPECT_GT(HeightOf(PegResources::GetFont(46)), HeightOf(PegResources::GetFont(47)));
}

TEST_F(Romfs, KeepsTheRowsOfAParameterPageApart) {
    for (const RowLayouts* layouts : {&kParameterLayouts, &kCustomLayouts}) {
        for (const RowLayout& layout : *layouts) {
            const int label = HeightOf(PegResources::GetFont(layout.labelFont));
            const int value = HeightOf(PegResources::GetFont(layout.valueFont));
            ASSERT_GT(label, 0);
            for (int row = 1; row < layout.rows; ++row) {
                const auto at = static_cast<std::size_t>(row);
                EXPECT_GE(layout.valueLines[at] - layout.valueLines[at - 1], value) << layout.rows << " rows";
                EXPECT_GE(layout.labelLines[at] - layout.labelLines[at - 1], label) << layout.rows << " rows";
            }
        }
    }
}

TEST_F(Romfs, HasAGlyphForEveryCharacterOfEveryTextInEveryFontForTexts) {
    const auto languages =
        Inspect("localization-inspector", ROMFS_DIR "/localization.dat").at("strings").at("languages");
    ASSERT_EQ(languages.size(), 6U);
    std::set<char16_t> characters;
    for (const auto& language : languages) {
        for (const auto& text : language.at("texts")) {
            const auto utf8 = text.get<std::string>();
            for (const char16_t c : std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).u16string()) {
                if (c >= ' ') characters.insert(c);
            }
        }
    }
    EXPECT_GT(characters.size(), 100U);
    constexpr std::uint32_t kLastTextFont = 42;  // those above show values alone
    constexpr std::u16string_view kOfValues = u"0123456789+-.,:/ %°µ\u2126ABCXYZabcxyz";
    for (std::uint32_t number = 32; number <= 48; ++number) {
        const PegFont* font = PegResources::GetFont(number);
        if (number > kLastTextFont) characters = {kOfValues.begin(), kOfValues.end()};
        for (const char16_t c : characters) {
            EXPECT_GT(WidthOf({&c, 1}, font), 0) << "font " << number << ", character " << std::hex << int{c};
        }
    }
}

TEST_F(Romfs, HoldsTheSameEnglishTextsInBothFiles) {
    const auto texts = Inspect("localization-inspector", ROMFS_DIR "/localization.dat")
                           .at("strings")
                           .at("languages")
                           .at(0)
                           .at("texts");
    for (const auto& [number, text] : texts.items()) {
        const auto value = static_cast<std::uint32_t>(std::stoul(number));
        if (value < 100) continue;
        const auto utf8 = text.get<std::string>();
        const char16_t* shown = PegResources::GetString(value);
        ASSERT_NE(shown, nullptr) << "string " << value;
        EXPECT_EQ(std::u16string(shown), std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).u16string());
    }
}

}  // namespace
