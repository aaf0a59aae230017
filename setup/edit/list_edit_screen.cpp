#include "setup/edit/list_edit_screen.h"

void ListEditScreen::EnableMoves() {
    const int index = List().selectedIndex();
    EnableSoftKey(kFirstMove, index > 0);
    EnableSoftKey(kSecondMove, index + 1 < List().visibleCount());
}

void ListEditScreen::SoftKey2Action() {
    if (IsDialogOpen()) return;
    List().selectPrevious();
    EnableMoves();
}

void ListEditScreen::SoftKey3Action() {
    if (IsDialogOpen()) return;
    List().selectNext();
    EnableMoves();
}
