#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/thing.h"
#include "peg/core/toolkit.h"

// What a thing does with the messages that reach it.

std::int32_t PegThing::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_ADD:
            if (message.source != nullptr && message.target == this) AddChild(*message.source);
            return 0;
        case MSG_REMOVE:
            if (message.source != nullptr && message.target == this) RemoveChild(*message.source);
            return 0;
        case MSG_DESTROY:
            if (message.source != nullptr) Destroy(*message.source);
            return 0;
        case MSG_RESIZE:
            Resize(message.Rect());
            Signal(kSignalResized);
            return 0;
        case MSG_HIDE: return OnHide(message);
        case MSG_SHOW: return OnShow(message);
        case MSG_REDRAW: Invalidate(); return 0;
        case MSG_FOCUS_IN: return OnFocusIn(message);
        case MSG_FOCUS_OUT: return OnFocusOut(message);
        case MSG_LANGUAGE:
        case MSG_RESOURCES: PassToChildren(message); return 0;
        case MSG_KEY_DOWN: return HandleKey(message);
        case MSG_SET_CANVAS: m_canvas = static_cast<std::int32_t>(message.data[0]); return 0;
        case MSG_INPUT_IN:
        case MSG_INPUT_OUT:
        case MSG_POINTER_ENTER:
        case MSG_POINTER_LEAVE:
        case MSG_IGNORED: return 0;
    }
    return PassToParent(message);
}

void PegThing::PassToChildren(const PegMessage& message) {
    for (PegThing* child = m_firstChild; child != nullptr;) {
        PegThing* next = child->m_next;
        child->Message(message);
        child = next;
    }
}

std::int32_t PegThing::PassToParent(const PegMessage& message) {
    if (m_parent == nullptr) return 0;
    if (m_parent == toolkit.manager && message.type < MSG_FIRST_USER) return 0;
    return m_parent->Message(message);
}

std::int32_t PegThing::OnShow(const PegMessage& message) {
    if (HasStatus(STAT_NO_SHOW)) return 0;
    m_status |= STAT_VISIBLE;
    if (m_canvas == -1 && m_parent != nullptr) m_canvas = m_parent->m_canvas;
    PassToChildren(message);
    return 0;
}

std::int32_t PegThing::OnHide(const PegMessage& message) {
    m_canvas = -1;
    m_status &= ~static_cast<std::uint32_t>(STAT_VISIBLE | STAT_CURRENT);
    PassToChildren(message);
    return 0;
}

std::int32_t PegThing::OnFocusIn(const PegMessage& message) {
    if (HasStatus(STAT_CURRENT)) return 0;
    m_status |= STAT_CURRENT;
    if (m_parent == nullptr) return 0;
    if (!HasStatus(STAT_NO_CLIENT_CLIP)) {
        PegThing* before = m_parent->m_firstChild;
        while (before != nullptr && (before == this || !before->HasStatus(STAT_FOCUS_CHILD))) before = before->m_next;
        if (before != nullptr) before->ClearStatusBits(STAT_FOCUS_CHILD);
        m_status |= STAT_FOCUS_CHILD;
    }
    return m_parent->HasStatus(STAT_CURRENT) ? 0 : m_parent->Message(message);
}

std::int32_t PegThing::OnFocusOut(const PegMessage& message) {
    if (!HasStatus(STAT_CURRENT)) return 0;
    m_status &= ~static_cast<std::uint32_t>(STAT_CURRENT);
    PegThing* child = m_firstChild;
    while (child != nullptr && !child->HasStatus(STAT_CURRENT)) child = child->m_next;
    return child != nullptr ? child->Message(message) : 0;
}

std::int32_t PegThing::HandleKey(const PegMessage& message) {
    constexpr std::uint32_t kModifiers = 0x7;
    const int key = message.param;
    const bool arrow = key >= kKeyUp && key <= kKeyRight;
    if (arrow && (message.data[0] & kModifiers) == 0 && MoveFocusByArrow(key)) return 0;
    if (m_parent == nullptr) return 0;
    if (Signal(key == kKeyEnter ? kSignalSelected : kSignalKey)) return 0;
    return PassToParent(message);
}
