#include "peg/core/screen.h"
#include "peg/core/text_thing.h"
#include "peg/core/timer_list.h"
#include "peg/resources/resources.h"
#include "peg/widgets/bitmap_button.h"
#include "peg/widgets/bitmap_prompt.h"
#include "peg/widgets/horz_list.h"
#include "peg/widgets/icon_button.h"
#include "peg/widgets/text_box.h"
#include "peg/widgets/text_button.h"
#include "peg/widgets/vert_list.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

using Rows = std::vector<std::string>;

class Widgets : public ToolkitTest {
protected:
    Recorder& window = AddNew<Recorder>(Manager(), RectOf(0, 0, 319, 239));

    /// The pixels of a text on the panel, and whether there are any.
    Rows Ink(const PegRect& rect, std::uint16_t color = 0x0000) const { return Picture(rect, {{color, '#'}}); }
    static bool IsThere(const Rows& ink) {
        return std::ranges::any_of(ink, [](const std::string& row) { return row.find('#') != std::string::npos; });
    }
};

TEST_F(Widgets, HaveFramesPixelByPixel) {
    window.SetColor(kBackground, 9);
    PegRect place = RectOf(0, 0, 9, 7);
    for (const std::uint32_t style : {kStyleBorderThin, kStyleBorderRaised, kStyleBorderRecessed}) {
        AddNew<PegPrompt>(window, place, nullptr, std::uint16_t{0}, style).SetColor(kBackground, 10);
        place.Shift(12, 0);
    }
    Pump();
    EXPECT_EQ(Picture(RectOf(0, 0, 33, 7),
                      {{0xFFFF, ' '}, {0x8410, '+'}, {0xC618, '-'}, {0x07E0, '.'}, {0x0000, '#'}, {0xF800, 'o'}}),
              (Rows{
                  "o########oooo-------+oooo+++++++-o",
                  "##......##oo--     -+#oo++#####+--",
                  "#........#oo-  .....+#oo+##..... -",
                  "#........#oo- ......+#oo+#...... -",
                  "#........#oo- ......+#oo+#...... -",
                  "#........#oo- .....++#oo+#.....  -",
                  "##......##oo---+++++##oo++-     --",
                  "o########oooo+#######oooo--------o",
              }));
    EXPECT_EQ(PegWindow(RectOf(0, 0, 99, 99), 0, kStyleBorderThick).ClientRect(), RectOf(5, 5, 94, 94));
}

TEST_F(Widgets, TakeOtherColoursWhenHighlighted) {
    auto& prompt = AddNew<PegPrompt>(window, RectOf(10, 10, 59, 29), u"H", std::uint16_t{0}, kStyleBorderNone);
    prompt.SetStyleBits(kStyleHighlighted);
    Pump();
    EXPECT_EQ(Pixel(10, 10), 0x0017);
    EXPECT_TRUE(IsThere(Ink(prompt.Real(), 0xFFFF)));
    EXPECT_EQ(prompt.Type(), TYPE_PROMPT);
    EXPECT_EQ(PegTextButton({}, u"H").Type(), TYPE_TEXT_BUTTON);
    prompt.SetColor(4, 43);
    EXPECT_EQ(prompt.GetColor(4), 0xFFU) << "there are four";
}

TEST_F(Widgets, FollowTheLanguageWhereTheirTextHasANumber) {
    auto& numbered = AddNew<PegPrompt>(window, RectOf(0, 0, 99, 19));
    auto& own = AddNew<PegPrompt>(window, RectOf(0, 20, 99, 39), u"own");
    numbered.SetTextById(5);
    PegResources::SetLanguage(1);
    Pump();
    EXPECT_EQ(std::u16string_view(numbered.Text()), u"Cancel");
    EXPECT_EQ(numbered.StringNumber(), 5U);
    EXPECT_EQ(std::u16string_view(own.Text()), u"own");
}

TEST_F(Widgets, KeepACopyOfTheirTextWhenAskedTo) {
    char16_t text[] = u"42";
    PegPrompt copy({}, text, 0, kStyleCopyText);
    PegPrompt pointer({}, text, 0, 0);
    text[0] = u'7';
    EXPECT_EQ(std::u16string_view(copy.Text()), u"42");
    EXPECT_EQ(std::u16string_view(pointer.Text()), u"72");
    copy.SetText(u"");
    EXPECT_EQ(copy.Text(), nullptr);
}

TEST_F(Widgets, OfManyWordsBreakBetweenThem) {
    auto& box =
        AddNew<PegTextBox>(window, RectOf(10, 10, 109, 59), std::uint16_t{0}, kStyleBorderNone, std::size_t{128});
    EXPECT_FALSE(box.HasStatus(STAT_SELECTABLE) || box.HasStatus(STAT_ACCEPTS_FOCUS));
    box.SetText(u"No custom page has been defined");
    Pump();
    EXPECT_TRUE(IsThere(Ink(RectOf(10, 10, 109, 30))));
    EXPECT_TRUE(IsThere(Ink(RectOf(10, 40, 109, 59))));
    EXPECT_FALSE(IsThere(Ink(RectOf(110, 0, 319, 239)))) << "nothing beside it";
    const int line = PegScreen::FontHeight(box.Font());
    for (const char16_t* twice : {u"Nnnnnnnnn Nnnnnnnnn", u"N\nN"}) {
        box.SetText(twice);
        Pump();
        const Rows above = Ink(RectOf(10, 35 - line, 109, 34));
        EXPECT_TRUE(IsThere(above));
        EXPECT_EQ(above, Ink(RectOf(10, 35, 109, 34 + line))) << "what it breaks at is on neither line";
    }
}

TEST_F(Widgets, ShowABitmapBehindTheirChildrenOnceOrAllOver) {
    constexpr std::uint16_t kInk = 0x1234;
    constexpr std::uint16_t kGround = 0xFFFF;
    const auto tile = PegScreen::CreateBitmap(4, 4, PegBitmap::kTransparent);
    tile->pixels[0] = kInk;
    struct Case {
        std::uint16_t flags;
        PegBitmapMode mode;
        std::uint16_t corner;
        std::uint16_t besideIt;
    };
    for (const Case& one : {Case{PegBitmap::kTransparent, PegBitmapMode::Tiled, kInk, kGround},
                            {0, PegBitmapMode::Tiled, kInk, kTransparentPixel},
                            {0, PegBitmapMode::Centred, kGround, kGround}}) {
        tile->bitmap.flags = one.flags;
        window.SetBackground(&tile->bitmap, one.mode);
        Pump();
        EXPECT_EQ(Pixel(316, 236), one.corner);
        EXPECT_EQ(Pixel(317, 236), one.besideIt);
        EXPECT_EQ(Pixel(160 - 2, 120 - 2) == kInk, one.mode == PegBitmapMode::Centred);
    }
    window.SetBackground(nullptr);
}

TEST_F(Widgets, AsWindowsRunATimerOfTheirOwnAndCloseByAKey) {
    constexpr std::uint16_t kOwnTimer = 1001;
    static int runs = 0;
    SetTimer(window, kOwnTimer, 1, 1);
    window.SetTimerHandler([](PegWindow&) { ++runs; });
    Ticks(3);
    window.SetTimerHandler(nullptr);
    Ticks(3);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(window.Count(MSG_TIMER), 4) << "the one after the last is its last";
    PegMessage key = MessageOf(MSG_KEY_DOWN, kKeyCloseWindow);
    window.Message(key);
    Pump();
    EXPECT_EQ(Manager().FirstChild(), &window) << "not without its modifier";
    key.data[0] = 4;
    window.Message(key);
    Pump();
    EXPECT_EQ(Manager().FirstChild(), nullptr);
}

TEST_F(Widgets, ReadTheirTextAsANumberWithinARange) {
    const auto read = [](const char16_t* text) { return PegPrompt({}, text).NumberInRange(-5, 50); };
    EXPECT_EQ(read(nullptr), -5);
    EXPECT_EQ(read(u"12"), 12);
    EXPECT_EQ(read(u"-3"), -3);
    EXPECT_EQ(read(u"-12"), -5);
    EXPECT_EQ(read(u"99999999999"), 50);
    EXPECT_EQ(read(u"x"), 0);
    EXPECT_EQ(read(u"7:"), 7);
    EXPECT_EQ(read(u"4 kW"), 4);
}

class Lists : public Widgets {
protected:
    PegVertList& list = AddNew<PegVertList>(window, RectOf(10, 10, 109, 49), std::uint16_t{7}, kStyleBorderNone);

    static void Fill(PegList& list, std::uint16_t count) {
        for (std::uint16_t id = 1; id <= count; ++id)
            list.AddChildAtEnd(*new PegBitmapPrompt(RectOf(0, 0, 14, 14), u"item", id, kStyleActive));
    }
    int SelectedAfter(std::int16_t key) {
        list.Message(MessageOf(MSG_KEY_DOWN, key));
        return list.SelectedIndex();
    }
};

TEST_F(Lists, PlaceTheirItemsAndScrollTheSelectedOneIntoView) {
    list.SetSpacing(1);
    Fill(list, 4);
    EXPECT_EQ(list.ItemAt(1)->Real(), RectOf(10, 26, 109, 40));
    list.SelectIndex(3);
    EXPECT_EQ(list.ItemAt(3)->Real().bottom, 49);
    list.SelectIndex(0);
    EXPECT_EQ(list.ItemAt(0)->Real().top, 10);
    EXPECT_EQ(list.Count(), 4);
    list.Resize(RectOf(10, 10, 89, 49));
    EXPECT_EQ(list.ItemAt(0)->Real(), RectOf(10, 10, 89, 24));
}

TEST_F(Lists, MoveTheSelectionByKeysAndStopAtTheEndsUnlessTheyWrap) {
    Fill(list, 3);
    list.ItemAt(1)->ClearStatusBits(STAT_SELECTABLE);
    EXPECT_EQ(SelectedAfter(kKeyDown), -1) << "keys need a selection";
    list.SelectIndex(0);
    EXPECT_EQ(SelectedAfter(kKeyDown), 2) << "the one between cannot be selected";
    EXPECT_EQ(SelectedAfter(kKeyDown), 2);
    EXPECT_TRUE(list.Selected()->HasStyle(kStyleHighlighted));
    list.SetStyleBits(0x2000);
    EXPECT_EQ(SelectedAfter(kKeyDown), 0);
    EXPECT_FALSE(list.ItemAt(2)->HasStyle(kStyleHighlighted));
    EXPECT_EQ(SelectedAfter(kKeyEnd), 2);
    EXPECT_EQ(SelectedAfter(kKeyHome), 0);
    EXPECT_EQ(SelectedAfter(kKeyLeft), 0);
    EXPECT_EQ(window.Count(MSG_KEY_DOWN), 2) << "the one without a selection, and the one across";
}

TEST_F(Lists, SelectTheItemThatTellsItWasChosenAndForgetARemovedOne) {
    Fill(list, 3);
    PegThing* item = list.ItemAt(2);
    EXPECT_TRUE(item->Signal(kSignalSelected));
    Pump();
    EXPECT_EQ(list.Selected(), item);
    list.RemoveChild(*item);
    EXPECT_EQ(list.Selected(), nullptr);
    EXPECT_FALSE(item->HasStyle(kStyleHighlighted));
    list.InsertBehind(*item, list.ItemAt(0));
    EXPECT_EQ(list.IndexOf(*item), 1);
}

TEST_F(Lists, StandSideBySideAsWell) {
    auto& row = AddNew<PegHorzList>(window, RectOf(10, 100, 49, 119), std::uint16_t{8}, kStyleBorderNone);
    Fill(row, 3);
    EXPECT_EQ(row.ItemAt(1)->Real(), RectOf(25, 100, 39, 119));
    row.SelectIndex(0);
    struct Step {
        std::int16_t key;
        int selected;
        int left;  // of the selected item: it is scrolled into view
    };
    for (const Step& step : {Step{kKeyRight, 1, 25},
                             {kKeyRight, 2, 35},
                             {kKeyRight, 2, 35},
                             {kKeyDown, 2, 35},
                             {kKeyLeft, 1, 20},
                             {kKeyLeft, 0, 10}}) {
        row.Message(MessageOf(MSG_KEY_DOWN, step.key));
        EXPECT_EQ(row.SelectedIndex(), step.selected);
        EXPECT_EQ(row.Selected()->Real().left, step.left);
    }
    EXPECT_FALSE(row.Selected()->MoveFocusByArrow(kKeyRight)) << "the list moves it, nobody else";
}

class Buttons : public Widgets {
protected:
    PegBitmapButton& Add(std::uint32_t style) {
        return AddNew<PegBitmapButton>(window, RectOf(0, 0, 19, 19), 1U, 2U, 0U, std::uint16_t{5},
                                       style | kStyleActive);
    }
    /// The signals that came so far, when as many ticks more have passed.
    int SignalsAfter(int ticks) {
        Pump();
        Ticks(ticks);
        return window.Count(SIGNAL_TYPE(5, kSignalSelected));
    }
};

TEST_F(Buttons, TellOnReleaseAndOnlyWhenPressed) {
    PegBitmapButton& button = Add(0);
    button.Release(MessageOf(MSG_SHOW));
    button.Message(MessageOf(MSG_BUTTON_DOWN));
    button.Message(MessageOf(MSG_BUTTON_DOWN));
    EXPECT_TRUE(button.IsPressed());
    EXPECT_EQ(SignalsAfter(0), 0);
    button.Message(MessageOf(MSG_BUTTON_UP));
    EXPECT_EQ(SignalsAfter(0), 1);
}

TEST_F(Buttons, TellOnPressAndAgainWhileHeld) {
    PegBitmapButton& button = Add(kStyleButtonOnPress | kStyleButtonRepeat);
    button.Press(MSG_BUTTON_DOWN);
    EXPECT_EQ(SignalsAfter(0), 1);
    EXPECT_EQ(SignalsAfter(19), 1);
    EXPECT_EQ(SignalsAfter(6), 3);  // after 20 and 25 ticks
    button.Release(MessageOf(MSG_BUTTON_UP));
    EXPECT_EQ(SignalsAfter(40), 3);
}

TEST_F(Buttons, ShowTheBitmapOfTheirLook) {
    std::vector<std::unique_ptr<LoadedBitmap>> looks;
    for (std::uint32_t i = 0; i < 4; ++i) {
        looks.push_back(PegScreen::CreateBitmap(4, 4, 0));
        std::fill_n(looks[i]->pixels.get(), 16, static_cast<std::uint16_t>(0x1000 + i));
        PegResources::SetBitmap(60 + i, &looks[i]->bitmap, false);
    }
    PegBitmapButton& button = Add(0);
    button.SetBitmaps(60, 61, 62, 0);
    button.SetBitmap(PegBitmapButton::Disabled, 63);
    const auto& child = AddNew<Recorder>(button, RectOf(18, 18, 19, 19));
    const auto look = [&] {
        Pump();
        return Pixel(8, 8) - 0x1000;
    };
    EXPECT_EQ(look(), 0);
    EXPECT_FALSE(child.drawn.empty());
    EXPECT_EQ(Pixel(7, 7), 0xFFFF) << "centred, with nothing drawn around it";
    button.Press(MSG_BUTTON_DOWN);
    EXPECT_EQ(look(), 1);
    button.Release(MessageOf(MSG_BUTTON_UP));
    button.SetStyleBits(kStyleHighlighted);
    button.Invalidate();
    EXPECT_EQ(look(), 2);
    button.ClearStyleBits(kStyleActive);
    button.Invalidate();
    EXPECT_EQ(look(), 3);
    PegResources::Reset();
}

TEST_F(Buttons, ShowAnIconThatYieldsToThePress) {
    const auto icon = PegScreen::CreateBitmap(4, 4, 0);
    std::fill_n(icon->pixels.get(), 16, std::uint16_t{0x1234});
    auto& button = AddNew<PegIconButton>(window, RectOf(0, 0, 19, 19), &icon->bitmap, std::uint16_t{5},
                                         kStyleActive | kStyleBorderRaised);
    EXPECT_EQ(button.Type(), TYPE_ICON_BUTTON);
    Pump();
    EXPECT_EQ(Pixel(8, 8), 0x1234);
    button.Press(MSG_BUTTON_DOWN);
    Pump();
    EXPECT_EQ(Pixel(12, 12), 0x1234);
    EXPECT_NE(Pixel(8, 8), 0x1234);
}

}  // namespace
