#include "peg/core/presentation_manager.h"
#include "peg/core/thing.h"
#include "peg/core/toolkit.h"

// How things join the tree, stand in it and leave it.

void PegThing::AddChild(PegThing& child, bool draw) {
    if (child.m_parent == this && m_firstChild == &child) return;
    if (child.m_parent == this) {
        Unlink(child);
    } else if (child.m_parent != nullptr) {
        child.m_parent->RemoveChild(child);
    }
    Link(child, FrontPlaceFor(child));
    if (child.m_canvas == -1) child.m_canvas = m_canvas;
    if (!draw) {
        child.SetStatusBits(STAT_NO_SHOW);
        return;
    }
    if (!IsVisible()) return;
    if (!child.IsVisible()) {
        Show(child);
    } else {
        if (child.HasStatus(STAT_VIEWPORT)) toolkit.manager->RequestViewports();
        InvalidateOverSiblingsBehind(child);
    }
}

void PegThing::AddChildAtEnd(PegThing& child, bool draw) {
    if (child.m_parent == this) {
        Unlink(child);
    } else if (child.m_parent != nullptr) {
        child.m_parent->RemoveChild(child);
    }
    PegThing* before = nullptr;
    if (child.HasStatus(STAT_VIEWPORT)) {
        before = m_firstChild;
        while (before != nullptr && before->HasStatus(STAT_VIEWPORT)) before = before->m_next;
    }
    Link(child, before);
    if (child.m_canvas == -1) child.m_canvas = m_canvas;
    if (!draw) {
        child.SetStatusBits(STAT_NO_SHOW);
    } else if (IsVisible() && !child.IsVisible()) {
        Show(child);
    }
}

PegThing* PegThing::RemoveChild(PegThing& child) {
    if (child.m_parent != this) {
        return child.m_parent != nullptr ? child.m_parent->RemoveChild(child) : nullptr;
    }
    const bool wasVisible = child.IsVisible();
    if (wasVisible) toolkit.manager->ForgetRemoved(child);
    Unlink(child);
    child.ClearStatusBits(STAT_NO_SHOW);
    if (!wasVisible) return &child;

    PegMessage hide;
    hide.type = MSG_HIDE;
    child.Message(hide);
    Invalidate(child.m_real);
    return &child;
}

PegThing* PegThing::FindById(std::uint16_t id, bool recursive) {
    for (PegThing* child = m_firstChild; child != nullptr; child = child->m_next) {
        if (child->m_id == id) return child;
        if (!recursive) continue;
        if (PegThing* found = child->FindById(id, true)) return found;
    }
    return nullptr;
}

void PegThing::MoveToFront(PegThing& child) {
    if (child.m_parent == this) AddChild(child, true);
}

bool PegThing::IsAncestor(const PegThing& thing) const {
    const PegThing* ancestor = m_parent;
    while (ancestor != nullptr && ancestor != &thing) ancestor = ancestor->m_parent;
    return ancestor != nullptr;
}

/// Links a child in front of `before`, or behind all others when that is null.
void PegThing::Link(PegThing& child, PegThing* before) {
    child.m_parent = this;
    child.m_next = before;
    if (before != nullptr) {
        child.m_previous = before->m_previous;
        before->m_previous = &child;
    } else {
        PegThing* last = m_firstChild;
        while (last != nullptr && last->m_next != nullptr) last = last->m_next;
        child.m_previous = last;
    }
    (child.m_previous != nullptr ? child.m_previous->m_next : m_firstChild) = &child;
}

void PegThing::Unlink(PegThing& child) {
    if (child.m_next != nullptr) child.m_next->m_previous = child.m_previous;
    (child.m_previous != nullptr ? child.m_previous->m_next : m_firstChild) = child.m_next;
    child.m_parent = child.m_next = child.m_previous = nullptr;
}

/// The front child, or the first one behind a run of children that stay in front of this one.
PegThing* PegThing::FrontPlaceFor(const PegThing& child) const {
    PegThing* place = m_firstChild;
    for (const std::uint32_t front : {STAT_STAY_FRONT, STAT_VIEWPORT}) {
        if (child.HasStatus(front)) continue;
        while (place != nullptr && place->HasStatus(front)) place = place->m_next;
    }
    return place;
}

void PegThing::Show(PegThing& child) {
    child.UpdateClip();
    child.ClearStatusBits(STAT_NO_SHOW);
    PegMessage show;
    show.type = MSG_SHOW;
    child.Message(show);
    child.UpdateChildClips();
    if (child.HasStatus(STAT_VIEWPORT)) toolkit.manager->RequestViewports();
    child.Invalidate();
}

void PegThing::InvalidateOverSiblingsBehind(PegThing& child) {
    for (const PegThing* sibling = child.m_next; sibling != nullptr; sibling = sibling->m_next) {
        if (sibling->m_real.Overlaps(child.m_real)) child.Invalidate(Intersection(child.m_real, sibling->m_real));
    }
}
