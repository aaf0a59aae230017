#include "navigation/widgets/vert_list_nav.h"

#include <algorithm>

#include "navigation/geometry.h"

namespace {
constexpr int kBottomMargin = Divided(kPanelHeight, 40.0);
static_assert(kBottomMargin == 6);
}  // namespace

void vertListNavClass::ScrollToSelected() {
    const PegThing* item = Selected();
    if (item == nullptr) return;
    const PegRect place = item->Real();
    const PegRect& client = ClientRect();
    int scroll = Scroll();
    if (SelectedIndex() == 0 || place.top < client.top) {
        scroll += place.top - client.top;
    } else if (SelectedIndex() == Count() - 1) {
        scroll += place.bottom - client.bottom;
    } else if (place.top > m_keepVisibleLine || place.bottom > client.bottom - kBottomMargin) {
        scroll += place.top - m_keepVisibleLine;
    }
    SetScroll(std::max(scroll, 0));
}
