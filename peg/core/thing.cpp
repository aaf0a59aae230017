#include "peg/core/thing.h"

#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"
#include "peg/core/toolkit.h"

namespace {

constexpr std::uint32_t kNoColor = 0xFF;

/// Moves an inner rectangle with its outer one: by the change of the corner, and grown by the change of size.
PegRect Follow(const PegRect& inner, const PegRect& before, const PegRect& after) {
    return RectOf(inner.left + after.left - before.left, inner.top + after.top - before.top,
                  inner.right + after.right - before.right, inner.bottom + after.bottom - before.bottom);
}

}  // namespace

PegThing::PegThing(std::uint16_t id, std::uint32_t style) : m_style(style), m_id(id) {}

PegThing::PegThing(const PegRect& rect, std::uint16_t id, std::uint32_t style)
    : m_real(rect), m_client(rect), m_clip(rect), m_style(style), m_id(id) {}

PegThing::~PegThing() {
    if (m_parent != nullptr) m_parent->PegThing::RemoveChild(*this);
    if (toolkit.manager != nullptr && toolkit.manager != this) toolkit.manager->ForgetDeleted(*this);
    if (toolkit.timers != nullptr) toolkit.timers->KillTimer(*this, 0, false);
    if (toolkit.queue != nullptr) toolkit.queue->Remove(*this);
    while (m_firstChild != nullptr) {
        PegThing* child = m_firstChild;
        Unlink(*child);
        delete child;
    }
}

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

void PegThing::CenterChild(PegThing& child) {
    PegRect rect = child.m_real;
    rect.MoveTo(m_client.left + (m_client.Width() - rect.Width()) / 2,
                m_client.top + (m_client.Height() - rect.Height()) / 2);
    child.Resize(rect);
}

PegPoint PegThing::CenterPointOf(const PegRect& rect) const {
    return PointOf((rect.left + rect.right) >> 1, (rect.top + rect.bottom) >> 1);
}

void PegThing::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawChildren(invalid);
}

void PegThing::DrawChildren(const PegRect& invalid) {
    PegThing* child = m_firstChild;
    while (child != nullptr && child->m_next != nullptr) child = child->m_next;
    for (; child != nullptr; child = child->m_previous) {
        if (child->m_clip.Overlaps(invalid) && !child->HasStatus(STAT_NO_SHOW)) child->Draw(invalid);
    }
}

PegThing* PegThing::FindById(std::uint16_t id, bool recursive) {
    for (PegThing* child = m_firstChild; child != nullptr; child = child->m_next) {
        if (child->m_id == id) return child;
        if (!recursive) continue;
        if (PegThing* found = child->FindById(id, true)) return found;
    }
    return nullptr;
}

std::uint32_t PegThing::GetColor(unsigned index) const { return index < m_colors.size() ? m_colors[index] : kNoColor; }

void PegThing::SetColor(unsigned index, std::uint32_t value) {
    if (index >= m_colors.size()) return;
    m_colors[index] = value;
    Invalidate();
}

void PegThing::MoveToFront(PegThing& child) {
    if (child.m_parent == this) AddChild(child, true);
}

void PegThing::ParentShift(int dx, int dy) {
    m_real.Shift(dx, dy);
    m_client.Shift(dx, dy);
    m_clip.Shift(dx, dy);
    for (PegThing* child = m_firstChild; child != nullptr; child = child->m_next) child->ParentShift(dx, dy);
}

void PegThing::Resize(const PegRect& rect) {
    const PegRect before = m_real;
    if (IsVisible()) {
        PegRect changed = before;
        changed.UniteWith(rect);
        if (m_parent != nullptr && !rect.Contains(before)) {
            m_parent->Invalidate(changed);
        } else {
            Invalidate(changed);
        }
    }
    m_client = Follow(m_client, before, rect);
    m_real = rect;
    if (rect.left != before.left || rect.top != before.top) {
        for (PegThing* child = m_firstChild; child != nullptr; child = child->m_next) {
            child->ParentShift(rect.left - before.left, rect.top - before.top);
        }
    }
    UpdateClip();
    UpdateChildClips();
    if (IsVisible() && HasStatus(STAT_VIEWPORT)) toolkit.manager->RequestViewports();
}

void PegThing::SendSignal(unsigned signal) {
    PegMessage message;
    message.source = this;
    message.target = m_parent;
    message.type = SIGNAL_TYPE(m_id, signal);
    message.param = static_cast<std::int16_t>(m_id);
    toolkit.queue->Push(message);
}

bool PegThing::Signal(unsigned signal) {
    if (m_id == 0 || (m_signalMask & SIGNAL_MASK(signal)) == 0) return false;
    if (m_parent == nullptr || !m_parent->IsVisible()) return false;
    SendSignal(signal);
    return true;
}

void PegThing::Invalidate(const PegRect& rect) {
    if (IsVisible()) toolkit.manager->InvalidateArea(*this, rect);
}

void PegThing::Destroy(PegThing& thing) {
    if (&thing == this) {
        PegMessage later;
        later.source = &thing;
        later.target = toolkit.manager;
        later.type = MSG_DESTROY;
        toolkit.queue->Push(later);
        return;
    }
    if (thing.m_parent != nullptr) thing.m_parent->RemoveChild(thing);
    toolkit.timers->KillTimer(thing, 0, true);
    toolkit.queue->Purge(thing);
    delete &thing;
}

void PegThing::SetCanvas(std::int32_t canvas, bool recursive) {
    m_canvas = canvas;
    if (!recursive) return;
    for (PegThing* child = m_firstChild; child != nullptr; child = child->m_next) child->SetCanvas(canvas, true);
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

void PegThing::UpdateClip() {
    m_clip = m_real;
    if (m_parent == nullptr) return;
    m_clip.IntersectWith(m_parent->m_clip);
    if (!HasStatus(STAT_NO_CLIENT_CLIP)) m_clip.IntersectWith(m_parent->m_client);
}

void PegThing::UpdateChildClips() {
    for (PegThing* child = m_firstChild; child != nullptr; child = child->m_next) {
        child->UpdateClip();
        child->UpdateChildClips();
    }
}

void PegThing::InvalidateOverSiblingsBehind(PegThing& child) {
    for (const PegThing* sibling = child.m_next; sibling != nullptr; sibling = sibling->m_next) {
        if (sibling->m_real.Overlaps(child.m_real)) child.Invalidate(Intersection(child.m_real, sibling->m_real));
    }
}
