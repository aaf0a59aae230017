#include <algorithm>
#include <cstring>
#include <deque>
#include <vector>

#include "platform/message_queue.h"
#include "simulator/session/scheduler.h"
#include "simulator/session/world.h"

// Message queues of the display on the session's clock.

namespace os {
namespace {

using session::IsRefused;
using session::OsCall;
using session::Scheduler;

thread_local QueueError lastError = QueueError::None;

int Fail(QueueError error) {
    lastError = error;
    return -1;
}

/// Waits as the timeout says. @return whether the condition holds
bool WaitAsTold(const std::function<bool()>& holds, int timeout) {
    if (timeout == kNoWait) return holds();
    Scheduler& scheduler = Scheduler::Instance();
    return scheduler.Wait(holds, timeout == kWaitForever ? session::kNever : scheduler.Now() + timeout);
}

}  // namespace

struct MessageQueue {
    std::size_t maxMessages;
    std::size_t maxLength;
    std::deque<std::vector<std::byte>> messages;
};

MessageQueueId msgQCreate(std::size_t maxMessages, std::size_t maxMessageLength, int /*options*/) {
    if (IsRefused(OsCall::CreateQueue)) return nullptr;
    return new MessageQueue{maxMessages, maxMessageLength, {}};
}

int msgQSend(MessageQueueId queue, const void* buffer, std::size_t bytes, int timeout, int /*priority*/) {
    if (IsRefused(OsCall::SendMessage)) return Fail(QueueError::Full);
    if (queue == nullptr) return Fail(QueueError::NoQueue);
    if (bytes > queue->maxLength) return Fail(QueueError::TooLong);
    if (!WaitAsTold([queue] { return queue->messages.size() < queue->maxMessages; }, timeout))
        return Fail(QueueError::Full);
    const auto* first = static_cast<const std::byte*>(buffer);
    queue->messages.emplace_back(first, first + bytes);
    lastError = QueueError::None;
    return 0;
}

int msgQReceive(MessageQueueId queue, void* buffer, std::size_t maxBytes, int timeout) {
    if (IsRefused(OsCall::ReceiveMessage)) return Fail(QueueError::NoQueue);
    if (queue == nullptr) return Fail(QueueError::NoQueue);
    if (!WaitAsTold([queue] { return !queue->messages.empty(); }, timeout)) return Fail(QueueError::Empty);
    const std::vector<std::byte> message = std::move(queue->messages.front());
    queue->messages.pop_front();
    const std::size_t copied = std::min(maxBytes, message.size());
    if (copied != 0) std::memcpy(buffer, message.data(), copied);
    lastError = QueueError::None;
    return static_cast<int>(copied);
}

QueueError msgQError() { return lastError; }

int msgQDelete(MessageQueueId queue) {
    if (queue == nullptr) return -1;
    delete queue;
    return 0;
}

}  // namespace os
