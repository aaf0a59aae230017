#include <gtest/gtest.h>

#include "navigation/font_for_size.h"
#include "navigation/menu_trees.h"
#include "navigation/widgets/draw_screen.h"
#include "peg/resources/resources.h"
#include "tests/tools/workshop.h"

namespace {

/// The two files of the build, as the display loads them.
class Romfs : public Workshop {
protected:
    Romfs() { EXPECT_EQ(Load(ROMFS_DIR "/resources.pbr"), 1); }
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

TEST_F(Romfs, HasAFontForEverySizeWithFiguresOfOneWidth) {
    for (int size = 1; size <= 80; ++size) {
        const auto number = static_cast<std::uint32_t>(FontForSize(size, 240));
        const PegFont* font = PegResources::GetFont(number);
        ASSERT_NE(font, nullptr) << "font " << number;
        const int figure = WidthOf(u"0", font);
        EXPECT_GT(figure, 0);
        for (char16_t c = u'1'; c <= u'9'; ++c) EXPECT_EQ(WidthOf({&c, 1}, font), figure) << "font " << number;
    }
    EXPECT_GT(HeightOf(PegResources::GetFont(46)), HeightOf(PegResources::GetFont(47)));
}

}  // namespace
