#pragma once

#include <cstdint>

class PegThing;

/// Toolkit timers: counts of ticks after which their owners get a MSG_TIMER with the timer's id. Toolkit task only.
class PegTimerList {
public:
    /// @param ticks  the count to begin with, which wraps after seven years
    explicit PegTimerList(std::uint32_t ticks = 0);
    PegTimerList(const PegTimerList&) = delete;
    PegTimerList& operator=(const PegTimerList&) = delete;
    ~PegTimerList();

    /// Fires after `count` ticks and then every `reload` ticks, or once when that is 0 or less; once means with the
    /// next tick whose message finds room in the queue. A timer that the owner has under this id already starts again.
    void SetTimer(PegThing& owner, std::uint16_t id, std::int32_t count, std::int32_t reload);

    /// Frees a timer of the owner, or with id 0 all of them; with `includeDescendants` those of the things inside it
    /// too.
    void KillTimer(const PegThing& owner, std::uint16_t id, bool includeDescendants);

    /// One tick has passed.
    void ProcessTick();
    std::uint32_t TickCount() const { return m_ticks; }

private:
    struct Timer {
        Timer* next;
        PegThing* owner;
        std::int32_t countdown;  // ticks left
        std::int32_t reload;
        std::uint16_t id;
    };

    static void Free(Timer* chain);

    /// Takes a timer out of the list and keeps it for the next one that is set.
    void Retire(Timer** link);

    Timer* m_first = nullptr;  // newest first
    Timer* m_spare = nullptr;  // not running
    std::uint32_t m_ticks;
};

void SetTimer(PegThing& owner, std::uint16_t id, std::int32_t count, std::int32_t reload);
void KillTimer(const PegThing& owner, std::uint16_t id, bool includeDescendants = false);

/// Ticks that the toolkit has processed so far, 20 a second.
std::uint32_t timerTickCount();

inline constexpr int kTicksPerSecond = 20;
