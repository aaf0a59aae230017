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

std::uint32_t PegThing::GetColor(unsigned index) const { return index < m_colors.size() ? m_colors[index] : kNoColor; }

void PegThing::SetColor(unsigned index, std::uint32_t value) {
    if (index >= m_colors.size()) return;
    m_colors[index] = value;
    Invalidate();
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
