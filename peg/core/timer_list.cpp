#include "peg/core/timer_list.h"

#include <utility>

#include "peg/core/message_queue.h"
#include "peg/core/thing.h"
#include "peg/core/toolkit.h"

namespace {
constexpr int kSpareTimers = 32;  // more than an application has running at a time
}

PegTimerList::PegTimerList(std::uint32_t ticks) : m_ticks(ticks) {
    for (int i = 0; i < kSpareTimers; ++i) m_spare = new Timer{m_spare, nullptr, 0, 0, 0};
}

PegTimerList::~PegTimerList() {
    Free(m_first);
    Free(m_spare);
}

void PegTimerList::Free(Timer* chain) {
    while (chain != nullptr) {
        Timer* timer = chain;
        chain = timer->next;
        delete timer;
    }
}

void PegTimerList::Retire(Timer** link) {
    Timer* timer = *link;
    *link = timer->next;
    timer->next = m_spare;
    m_spare = timer;
}

void PegTimerList::SetTimer(PegThing& owner, std::uint16_t id, std::int32_t count, std::int32_t reload) {
    for (Timer* timer = m_first; timer != nullptr; timer = timer->next) {
        if (timer->owner != &owner || timer->id != id) continue;
        timer->countdown = count;
        timer->reload = reload;
        return;
    }
    Timer* timer = m_spare != nullptr ? std::exchange(m_spare, m_spare->next) : new Timer;
    *timer = {m_first, &owner, count, reload, id};
    m_first = timer;
}

void PegTimerList::KillTimer(const PegThing& owner, std::uint16_t id, bool includeDescendants) {
    for (Timer** link = &m_first; *link != nullptr;) {
        Timer* timer = *link;
        const bool owned = timer->owner == &owner || (includeDescendants && timer->owner->IsAncestor(owner));
        if (!owned || (id != 0 && timer->id != id)) {
            link = &timer->next;
            continue;
        }
        Retire(link);
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
        const bool sent = toolkit.queue->PushDirect(message) != 0;
        if (timer->reload >= 1 || !sent) {
            // Nothing makes up for a lost time-out: what a full queue refused is due again with the next tick.
            timer->countdown = timer->reload >= 1 ? timer->reload : 1;
            link = &timer->next;
        } else {
            Retire(link);
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
