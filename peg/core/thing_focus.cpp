#include <cstdint>
#include <limits>

#include "peg/core/presentation_manager.h"
#include "peg/core/thing.h"
#include "peg/core/toolkit.h"

// Which thing the input focus goes to: by default, and by the arrow keys.

namespace {

constexpr int kTypeWithoutArrows = 532;
constexpr std::int64_t kNone = std::numeric_limits<std::int32_t>::max();  // what is farther away does not count

bool KeepsArrowsToItself(const PegThing& thing) {
    switch (thing.Type()) {
        case TYPE_VERT_LIST:
        case TYPE_HORZ_LIST:
        case TYPE_COMBO_BOX:
        case kTypeWithoutArrows: return true;
    }
    return false;
}

bool LiesInDirection(int key, PegPoint from, PegPoint to) {
    switch (key) {
        case kKeyUp: return to.y < from.y;
        case kKeyDown: return to.y > from.y;
        case kKeyLeft: return to.x < from.x;
    }
    return to.x > from.x;
}

/// True when a thing's span across the direction of travel holds the point's coordinate.
bool LiesInLine(int key, PegPoint from, const PegRect& rect) {
    const bool vertical = key == kKeyUp || key == kKeyDown;
    return vertical ? rect.left <= from.x && from.x <= rect.right : rect.top <= from.y && from.y <= rect.bottom;
}

std::int64_t SquaredDistance(PegPoint a, PegPoint b) {
    const std::int64_t dx = a.x - b.x;
    const std::int64_t dy = a.y - b.y;
    return dx * dx + dy * dy;
}

}  // namespace

PegThing* PegThing::FindNeighbour(int key, PegThing& within, PegPoint fromPoint) {
    for (const bool inLine : {true, false}) {
        PegThing* nearest = nullptr;
        std::int64_t shortest = kNone;
        for (PegThing* child = within.m_firstChild; child != nullptr; child = child->m_next) {
            if (child == this || !child->IsVisible() || !child->HasStatus(STAT_ACCEPTS_FOCUS)) continue;
            const PegPoint center = CenterPointOf(child->m_real);
            if (!LiesInDirection(key, fromPoint, center)) continue;
            if (inLine && !LiesInLine(key, fromPoint, child->m_real)) continue;
            const std::int64_t distance = SquaredDistance(fromPoint, center);
            if (distance >= shortest) continue;
            shortest = distance;
            nearest = child;
        }
        if (nearest != nullptr) return nearest;
    }
    return nullptr;
}

bool PegThing::MoveFocusByArrow(int key) {
    if (m_parent == nullptr || m_parent == toolkit.manager || KeepsArrowsToItself(*m_parent)) return false;
    const PegPoint center = CenterPointOf(m_real);
    PegThing* found = FindNeighbour(key, *m_parent, center);
    PegThing* grandparent = m_parent->m_parent;
    if (found == nullptr && grandparent != nullptr) {
        found = m_parent->FindNeighbour(key, *grandparent, center);
        const bool holdsThings = found != nullptr && (found->m_type == TYPE_GROUP || found->IsWindowLike());
        if (holdsThings && found->m_firstChild != nullptr) {
            if (PegThing* inner = FindNeighbour(key, *found, center)) found = inner;
        }
    }
    if (found == nullptr) return false;
    toolkit.manager->SetFocus(*found);
    return true;
}

void PegThing::SetDefaultFocus() {
    PegThing* last = nullptr;
    for (PegThing* child = m_firstChild; child != nullptr;) {
        if (!child->HasStatus(STAT_FOCUS_CHILD)) {
            child = child->m_next;
            continue;
        }
        last = child;
        child = child->HasStatus(STAT_KEEP_FOCUS_CHILD) ? nullptr : child->m_firstChild;
    }
    if (last != nullptr) {
        if (!last->HasStatus(STAT_CURRENT) || last != toolkit.manager->Focus()) toolkit.manager->SetFocus(*last);
        return;
    }
    for (PegThing* child = m_firstChild; child != nullptr;) {
        if (!child->HasStatus(STAT_ACCEPTS_FOCUS) || child->HasStatus(STAT_NO_CLIENT_CLIP)) {
            child = child->m_next;
            continue;
        }
        last = child;
        child = child->HasStatus(STAT_KEEP_FOCUS_CHILD | STAT_FRONT_ON_FOCUS) ? nullptr : child->m_firstChild;
    }
    if (last != nullptr && !last->HasStatus(STAT_CURRENT)) toolkit.manager->SetFocus(*last);
}

void PegThing::LoseFocus(PegThing& thing) {
    PegMessage message;
    message.target = &thing;
    message.type = MSG_FOCUS_OUT;
    thing.Message(message);
}
