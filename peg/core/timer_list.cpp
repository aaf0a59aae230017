#include "peg/core/timer_list.h"

#include "peg/core/message_queue.h"
#include "peg/core/thing.h"
#include "peg/core/toolkit.h"

PegTimerList::~PegTimerList() {
    while (m_first != nullptr) {
        Timer* timer = m_first;
        m_first = timer->next;
        delete timer;
    }
}

void PegTimerList::SetTimer(PegThing& owner, std::uint16_t id, std::int32_t count, std::int32_t reload) {
    for (Timer* timer = m_first; timer != nullptr; timer = timer->next) {
        if (timer->owner != &owner || timer->id != id) continue;
        timer->countdown = count;
        timer->reload = reload;
        return;
    }
    m_first = new Timer{m_first, &owner, count, reload, id};
}

void PegTimerList::KillTimer(const PegThing& owner, std::uint16_t id, bool includeDescendants) {
    for (Timer** link = &m_first; *link != nullptr;) {
        Timer* timer = *link;
        const bool owned = timer->owner == &owner || (includeDescendants && timer->owner->IsAncestor(owner));
        if (!owned || (id != 0 && timer->id != id)) {
            link = &timer->next;
            continue;
        }
        *link = timer->next;
        delete timer;
        if (id != 0) return;
    }
}

void PegTimerList::ProcessTick() {
    ++m_ticks;
    for (Timer** link = &m_first; *link != nullptr;) {
        Timer* timer = *link;
        // A countdown below 1 never fires; it stops falling where it can fall no further.
        if (timer->countdown > INT32_MIN) --timer->countdown;
        if (timer->countdown != 0) {
            link = &timer->next;
            continue;
        }
        PegMessage message;
        message.target = timer->owner;
        message.type = MSG_TIMER;
        message.param = static_cast<std::int16_t>(timer->id);
        toolkit.queue->PushDirect(message);
        if (timer->reload >= 1) {
            timer->countdown = timer->reload;
            link = &timer->next;
        } else {
            *link = timer->next;
            delete timer;
        }
    }
}

void SetTimer(PegThing& owner, std::uint16_t id, std::int32_t count, std::int32_t reload) {
    toolkit.timers->SetTimer(owner, id, count, reload);
}

void KillTimer(const PegThing& owner, std::uint16_t id, bool includeDescendants) {
    toolkit.timers->KillTimer(owner, id, includeDescendants);
}

std::uint32_t timerTickCount() { return toolkit.timers->TickCount(); }
