#include <string>

#include "navigation/entry/keyboard_window.h"
#include "simulator/bench/keyboard_keys.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

/// The keyboard on a plain window.
class Keyboard : public PanelTest {
protected:
    Keyboard() {
        host = new Recorder(RectOf(0, 0, 319, 239));
        Manager().AddChild(*host);
        Pump();
        host->AddChild(Board());
        Pump();
    }
    static keyboardWin& Board() { return keyboardWin::getInstance(); }
    static std::u16string Text() { return Board().getText() != nullptr ? Board().getText() : u""; }
    std::uint16_t Select(std::uint16_t code) {
        FocusKey(code);
        return Board().selectFocused();
    }
    std::uint16_t After(int arrow, std::uint16_t code) {
        FocusKey(code);
        EXPECT_EQ(Board().moveFocus(arrow), 1);
        return FocusedKey();
    }

    Recorder* host;
};

TEST_F(Keyboard, LooksAsItShould) {
    EXPECT_TRUE(PanelShows("keyboard/empty"));
    Board().prefillUser();
    Board().moveFocus(kKeyUp);
    Pump();
    EXPECT_TRUE(PanelShows("keyboard/user"));
    Select(kKeyShift);
    Pump();
    EXPECT_TRUE(PanelShows("keyboard/shifted"));
    Board().moveFocus(kKeyRight);
    Board().moveFocus(kKeyRight);
    Pump();
    EXPECT_TRUE(PanelShows("keyboard/backspace_in_focus"));
}

TEST_F(Keyboard, TypesEveryCharacterWithAndWithoutShift) {
    const std::string plain = "1234567890-=qwertyuiop[]asdfghjkl;'`zxcvbnm,./\\ ";
    const std::string shifted = "!@#$%^&*()_+QWERTYUIOP{}ASDFGHJKL:\"~ZXCVBNM<>?| ";
    for (const std::string& characters : {plain, shifted, plain}) {
        for (std::size_t i = 0; i < plain.size(); ++i) {
            EXPECT_EQ(Select(static_cast<std::uint16_t>(plain[i])), characters[i]);
            EXPECT_EQ(Text(), std::u16string(1, static_cast<char16_t>(characters[i])));
            EXPECT_EQ(Select(kKeyBackspace), kKeyBackspace);
            EXPECT_EQ(Text(), u"");
        }
        EXPECT_EQ(Select(kKeyShift), kKeyShift);
    }
    EXPECT_EQ(Select(kKeyEscape), kKeyEscape);
    EXPECT_EQ(Select(kKeyEnter), kKeyEnter);
    EXPECT_EQ(Text(), u"");
}

TEST_F(Keyboard, TakesSixteenCharactersAndLetsThemBeTakenAwayAgain) {
    for (int i = 0; i < 16; ++i) EXPECT_EQ(Select(i < 15 ? 'a' : ' '), i < 15 ? 'a' : ' ');
    EXPECT_EQ(Select('b'), 0);
    EXPECT_EQ(Select(' '), 0);
    EXPECT_EQ(Text(), u"aaaaaaaaaaaaaaa ");
    for (int i = 0; i < 20; ++i) EXPECT_EQ(Select(kKeyBackspace), kKeyBackspace);
    EXPECT_EQ(Board().getText(), nullptr);
    EXPECT_EQ(Select('b'), 'b');
}

TEST_F(Keyboard, GoesRoundAtItsEdgesByThreeArrowsOnly) {
    EXPECT_EQ(FocusedKey(), ' ');
    EXPECT_EQ(After(kKeyUp, ' '), 'n') << "straight on in between";
    EXPECT_EQ(After(kKeyRight, kKeyEnter), kKeyEscape);
    EXPECT_EQ(After(kKeyLeft, '1'), '=');
    EXPECT_EQ(After(kKeyUp, kKeyEscape), '`');
    host->received.clear();
    for (const std::uint16_t type : {MSG_KEY_DOWN, MSG_KEY_UP}) {
        Board().Message(MessageOf(type, KEY_SOFT_1));
        EXPECT_EQ(host->Count(type), 1) << "keys of the panel are the screen's";
    }
    EXPECT_EQ(Board().moveFocus(kKeyDown), 0);
    EXPECT_EQ(Board().moveFocus(kKeyEnter), 0);
    EXPECT_EQ(FocusedKey(), '`');
}

TEST_F(Keyboard, IsEmptyAgainWheneverItComesOrGoesAndLeavesNothingBehind) {
    Board().prefillUser();
    EXPECT_EQ(Text(), u"USER");
    const char16_t* typed = Board().getText();
    FocusKey('x');
    host->RemoveChild(Board());
    EXPECT_EQ(Board().getText(), nullptr);
    EXPECT_EQ(std::u16string_view(typed, 4), std::u16string_view(u"\0\0\0\0", 4));
    Board().prefillUser();
    host->AddChild(Board());
    EXPECT_EQ(Board().getText(), nullptr);
    EXPECT_EQ(FocusedKey(), ' ');
}

}  // namespace
