#include "navigation/keyed_screen.h"

#include "navigation/geometry.h"

KeyedScreen::KeyedScreen() : PegWindow(kWholePanel, 0, kStyleBorderNone) {}

void KeyedScreen::RunKeyAction(int keyCode) {
    switch (keyCode) {
        case KEY_SOFT_1: SoftKey1Action(); break;
        case KEY_SOFT_2: SoftKey2Action(); break;
        case KEY_SOFT_3: SoftKey3Action(); break;
        case KEY_SOFT_4: SoftKey4Action(); break;
        case KEY_HOME: HomeKeyAction(); break;
        case KEY_SOFT_2_3: SoftKey23Action(); break;
    }
}
