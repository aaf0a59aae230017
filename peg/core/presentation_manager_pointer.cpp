#include "peg/core/presentation_manager.h"

// Where the pointer's messages go.

namespace {

PegThing* DeepestAt(const PegThing& within, PegPoint point) {
    for (PegThing* child = within.FirstChild(); child != nullptr; child = child->Next()) {
        if (!child->IsVisible() || !child->HasStatus(STAT_SELECTABLE) || !child->ContainsPoint(point)) continue;
        PegThing* inner = DeepestAt(*child, point);
        return inner != nullptr ? inner : child;
    }
    return nullptr;
}

}  // namespace

PegThing* PegPresentationManager::ThingUnderPointer(PegPoint point) const { return DeepestAt(*this, point); }

std::int32_t PegPresentationManager::DispatchPointer(const PegMessage& message) {
    PegThing* receiver = m_captureDepth > 0 ? m_captured[m_captureDepth - 1] : ThingUnderPointer(message.Point());
    if (receiver != m_pointerOver) {
        PegMessage crossing = message;
        crossing.type = MSG_POINTER_LEAVE;
        if (m_pointerOver != nullptr) m_pointerOver->Message(crossing);
        m_pointerOver = receiver;
        crossing.type = MSG_POINTER_ENTER;
        if (receiver != nullptr) receiver->Message(crossing);
    }
    if (receiver == nullptr) return 0;
    if (message.type == MSG_BUTTON_DOWN) {
        PegThing* owner = receiver;
        while (owner != nullptr && !owner->HasStatus(STAT_ACCEPTS_FOCUS | STAT_CURRENT)) owner = owner->Parent();
        if (owner != nullptr && !owner->HasStatus(STAT_CURRENT)) SetFocus(*owner);
    }
    return receiver->Message(message);
}

void PegPresentationManager::CapturePointer(PegThing& thing) {
    if (m_captureDepth < kCaptureDepth) m_captured[m_captureDepth++] = &thing;
}

void PegPresentationManager::ReleasePointer(const PegThing& thing) {
    if (m_captureDepth > 0 && m_captured[m_captureDepth - 1] == &thing) --m_captureDepth;
}
