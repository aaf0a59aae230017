#include "peg/widgets/list.h"

#include "peg/core/presentation_manager.h"
#include "peg/core/toolkit.h"

namespace {
constexpr std::uint32_t kStyleWrap = 0x2000;
}

PegList::PegList(const PegRect& rect, std::uint16_t id, std::uint32_t style) : PegWindow(rect, id, style) {
    SetType(TYPE_LIST);
    ClearStatusBits(STAT_VIEWPORT);  // part of a screen, not a region of its own
}

void PegList::AddChild(PegThing& item, bool draw) {
    PegWindow::AddChild(item, draw);
    PositionChildren();
}

void PegList::AddChildAtEnd(PegThing& item, bool draw) {
    PegWindow::AddChildAtEnd(item, draw);
    PositionChildren();
}

PegThing* PegList::RemoveChild(PegThing& item) {
    if (item.Parent() == this && m_selected == &item) {
        item.ClearStyleBits(kStyleHighlighted);
        m_selected = nullptr;
    }
    PegThing* removed = PegWindow::RemoveChild(item);
    PositionChildren();
    return removed;
}

void PegList::Resize(const PegRect& rect) {
    PegWindow::Resize(rect);
    PositionChildren();
}

void PegList::InsertBehind(PegThing& item, PegThing* before) {
    // Items can only join at an end: those behind the new one step behind it in turn.
    PegThing* follower = before != nullptr ? before->Next() : nullptr;
    PegWindow::AddChildAtEnd(item);
    while (follower != nullptr && follower != &item) {
        PegThing* next = follower->Next();
        PegWindow::AddChildAtEnd(*follower);
        follower = next;
    }
    PositionChildren();
}

std::int32_t PegList::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_KEY_DOWN:
            if (m_selected != nullptr && HandleListKey(message.param)) return 0;
            break;
        case MSG_SHOW:
        case MSG_FOCUS_IN: {
            const std::int32_t result = PegWindow::Message(message);
            MarkSelected();
            return result;
        }
    }
    const bool fromItem = message.source != nullptr && message.source->Parent() == this;
    if (fromItem && message.type == SIGNAL_TYPE(message.source->Id(), kSignalSelected)) SetSelected(message.source);
    return PegWindow::Message(message);
}

bool PegList::HandleListKey(int key) {
    if (key == kKeyHome) {
        SetSelected(Selectable(FirstItem(), &PegThing::Next));
    } else if (key == kKeyEnd) {
        SetSelected(Selectable(LastItem(), &PegThing::Previous));
    } else if (key == PreviousKey()) {
        SelectPrevious();
    } else if (key == NextKey()) {
        SelectNext();
    } else {
        return false;
    }
    return true;
}

PegThing* PegList::Selectable(PegThing* from, Step step) {
    while (from != nullptr && !CanBeSelected(*from)) from = (from->*step)();
    return from;
}

/// Moves the selection one item on. At the end it goes round if the list does so, and else stays. Returns whether it
/// moved.
bool PegList::SelectNeighbour(Step step, PegThing* fromOtherEnd) {
    PegThing* before = m_selected;
    PegThing* neighbour = before != nullptr ? Selectable((before->*step)(), step) : nullptr;
    if (neighbour == nullptr && HasStyle(kStyleWrap)) neighbour = Selectable(fromOtherEnd, step);
    SetSelected(neighbour != nullptr ? neighbour : before);
    return m_selected != before;
}

void PegList::SetSelected(PegThing* item) {
    if (item != nullptr && item->Parent() != this) return;
    if (m_selected != nullptr && m_selected != item) {
        m_selected->ClearStyleBits(kStyleHighlighted);
        m_selected->Invalidate();
    }
    m_selected = item;
    if (item == nullptr) return;
    MarkSelected();
    ScrollToSelected();
}

void PegList::MarkSelected() {
    if (m_selected == nullptr) return;
    if (!m_selected->HasStyle(kStyleHighlighted)) {
        m_selected->SetStyleBits(kStyleHighlighted);
        m_selected->Invalidate();
    }
    if (HasStatus(STAT_CURRENT)) toolkit.manager->SetFocus(*m_selected);
}

void PegList::Enlist(PegThing& child) {
    child.EnableSignal(kSignalSelected);
    if (!HasStatus(STAT_ACCEPTS_FOCUS)) child.ClearStatusBits(STAT_ACCEPTS_FOCUS);
}

int PegList::Count() const {
    int count = 0;
    for (const PegThing* child = FirstChild(); child != nullptr; child = child->Next()) count += IsItem(*child) ? 1 : 0;
    return count;
}

int PegList::IndexOf(const PegThing& item) const {
    int index = 0;
    for (const PegThing* child = FirstChild(); child != nullptr; child = child->Next()) {
        if (child == &item) return index;
        index += IsItem(*child) ? 1 : 0;
    }
    return -1;
}

PegThing* PegList::ItemAt(int index) const {
    for (PegThing* child = FirstChild(); child != nullptr; child = child->Next()) {
        if (IsItem(*child) && index-- == 0) return child;
    }
    return nullptr;
}

PegThing* PegList::LastItem() const {
    PegThing* last = FirstChild();
    while (last != nullptr && last->Next() != nullptr) last = last->Next();
    return last;
}

void PegList::SetSpacing(int pixels) {
    m_spacing = pixels;
    PositionChildren();
}

void PegList::SetScroll(int pixels) {
    if (m_scroll == pixels) return;
    m_scroll = pixels;
    PositionChildren();
}
