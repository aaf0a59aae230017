#include "peg/core/message_queue.h"

#include <cstdio>

#include "peg/core/presentation_manager.h"
#include "peg/core/thing.h"
#include "peg/core/timer_list.h"
#include "peg/core/toolkit.h"
#include "platform/task.h"

PegMessageQueue::PegMessageQueue(os::MessageQueueId queue, TickFunction tickTaken)
    : m_queue(queue), m_tickTaken(tickTaken) {
    m_held.reserve(kQueueMessages);
}

int PegMessageQueue::Push(const PegMessage& message) {
    if (message.target != nullptr && toolkit.manager->RouteToTaskQueue(message) != 0) return 1;
    return EnqueueTaskMessage(message, m_queue);
}

int PegMessageQueue::EnqueueTaskMessage(const PegMessage& message, os::MessageQueueId queue) {
    if (os::msgQSend(queue, &message, sizeof message, os::kNoWait, os::kMessagePriorityNormal) == 0) return 1;
    std::printf("EnqueueTaskMessage: msgQSend failed\n");
    return 0;
}

bool PegMessageQueue::Take(PegMessage& message, int timeout) {
    for (;;) {
        if (!TakeNext(message, os::kNoWait)) {
            toolkit.manager->DrawInvalid();
            if (!TakeNext(message, timeout)) {
                if (timeout == os::kNoWait) return false;
                continue;
            }
        }
        if (message.type == 0) continue;
        if (message.type != MSG_TIMER || message.target != nullptr) return true;
        toolkit.timers->ProcessTick();
        m_tickTaken();
    }
}

bool PegMessageQueue::TakeNext(PegMessage& message, int timeout) {
    if (m_heldTaken < m_held.size()) {
        message = m_held[m_heldTaken++];
        return true;
    }
    const int received = os::msgQReceive(m_queue, &message, sizeof message, timeout);
    // Without a queue nothing will ever come: the task must not spin on that.
    if (received < 0 && timeout != os::kNoWait) os::taskDelay(os::sysClkRateGet());
    return received == static_cast<int>(sizeof message);
}

template <typename Concerns>
void PegMessageQueue::RemoveIf(Concerns concerns) {
    m_held.erase(m_held.begin(), m_held.begin() + static_cast<std::ptrdiff_t>(m_heldTaken));
    m_heldTaken = 0;
    PegMessage message;
    while (os::msgQReceive(m_queue, &message, sizeof message, os::kNoWait) == static_cast<int>(sizeof message)) {
        m_held.push_back(message);
    }
    std::erase_if(m_held, concerns);
}

void PegMessageQueue::Purge(const PegThing& thing) {
    std::printf(
        "\n\nvxpeg Purge() function accessed - this function is not implemented as it wasn't expected that it is used "
        "in "
        "the LX4710 implementation\n\n");
    const auto isInside = [&thing](const PegThing* other) {
        return other != nullptr && (other == &thing || other->IsAncestor(thing));
    };
    RemoveIf([&](const PegMessage& message) { return isInside(message.source) || isInside(message.target); });
}

void PegMessageQueue::Remove(const PegThing& thing) {
    RemoveIf([&thing](const PegMessage& message) { return message.source == &thing || message.target == &thing; });
}

void PegMessageQueue::DeleteQueue(os::MessageQueueId queue) {
    if (os::msgQDelete(queue) != 0) std::printf("DeleteQueue: msgQDelete failed\n");
}
