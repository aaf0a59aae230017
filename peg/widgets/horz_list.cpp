#include "peg/widgets/horz_list.h"

void PegHorzList::PositionChildren() {
    const PegRect& client = ClientRect();
    int left = client.left - Scroll();
    for (PegThing* child = FirstChild(); child != nullptr; child = child->Next()) {
        if (!IsItem(*child)) continue;
        Enlist(*child);
        const PegRect place = RectOf(left, client.top, left + child->Real().Width() - 1, client.bottom);
        if (child->Real() != place) child->Resize(place);
        left += child->Real().Width() + Spacing();
    }
}

void PegHorzList::ScrollToSelected() {
    if (Selected() == nullptr) return;
    const PegRect& item = Selected()->Real();
    if (item.left < ClientRect().left) {
        SetScroll(Scroll() - (ClientRect().left - item.left));
    } else if (item.right > ClientRect().right) {
        SetScroll(Scroll() + (item.right - ClientRect().right));
    }
}
