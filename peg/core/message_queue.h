#pragma once

#include <cstddef>
#include <vector>

#include "peg/core/message.h"
#include "platform/message_queue.h"

class PegThing;

/// Room of the toolkit queue.
inline constexpr std::size_t kQueueMessages = 42;
inline constexpr std::size_t kQueueMessageBytes = 40;
static_assert(sizeof(PegMessage) <= kQueueMessageBytes);

/// The way into the toolkit task. Any task may send; only the toolkit task takes messages out.
///
/// Sends never wait: a full or missing queue loses the message and says so on the console.
class PegMessageQueue {
public:
    using TickFunction = void (*)();

    /// @param tickTaken  called when a tick has been taken out and the timers have run
    PegMessageQueue(os::MessageQueueId queue, TickFunction tickTaken);

    /// Sends a message, to the queue of the task whose modal window the target is in, if there is one.
    /// @return 1, or 0 when the message was lost
    int Push(const PegMessage& message);
    int PushDirect(const PegMessage& message) { return EnqueueTaskMessage(message, m_queue); }
    static int EnqueueTaskMessage(const PegMessage& message, os::MessageQueueId queue);

    /// Waits for the next message that is neither a tick nor empty. Whenever the queue runs empty, everything invalid
    /// is drawn; ticks run the timers.
    void Pop(PegMessage& message) { Take(message, os::kWaitForever); }

    /// The same without waiting. @return false when the queue is empty and everything is drawn
    bool Poll(PegMessage& message) { return Take(message, os::kNoWait); }

    /// Takes out every waiting message from or to a thing or its descendants.
    void Purge(const PegThing& thing);

    /// The same for the thing alone, without a word on the console.
    void Remove(const PegThing& thing);
    static void DeleteQueue(os::MessageQueueId queue);

private:
    bool Take(PegMessage& message, int timeout);
    bool TakeNext(PegMessage& message, int timeout);
    template <typename Concerns>
    void RemoveIf(Concerns concerns);

    os::MessageQueueId m_queue;
    TickFunction m_tickTaken;
    // What a removal took out of the queue and kept, in order; it comes before what is in the queue.
    std::vector<PegMessage> m_held;
    std::size_t m_heldTaken = 0;
};
