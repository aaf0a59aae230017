#include "peg/widgets/vert_list.h"

void PegVertList::PositionChildren() {
    const PegRect& client = ClientRect();
    int top = client.top - Scroll();
    for (PegThing* child = FirstChild(); child != nullptr; child = child->Next()) {
        if (!IsItem(*child)) continue;
        Enlist(*child);
        const PegRect place = RectOf(client.left, top, client.right, top + child->Real().Height() - 1);
        if (child->Real() != place) child->Resize(place);
        top += child->Real().Height() + Spacing();
    }
}

void PegVertList::ScrollToSelected() {
    if (Selected() == nullptr) return;
    const PegRect& item = Selected()->Real();
    if (item.top < ClientRect().top) {
        SetScroll(Scroll() - (ClientRect().top - item.top));
    } else if (item.bottom > ClientRect().bottom) {
        SetScroll(Scroll() + (item.bottom - ClientRect().bottom));
    }
}
