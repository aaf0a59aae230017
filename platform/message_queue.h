#pragma once

#include <cstddef>

/// Message queues of the real-time operating system: bounded, first in first out, safe for any number of tasks.
namespace os {

struct MessageQueue;
using MessageQueueId = MessageQueue*;  // null: no queue

inline constexpr int kNoWait = 0;
inline constexpr int kWaitForever = -1;
inline constexpr int kQueueFifo = 0;  // option of msgQCreate: tasks wait first come, first served
inline constexpr int kMessagePriorityNormal = 0;

enum class QueueError { None, Empty, Full, NoQueue, TooLong };

/// @return the queue, or null when it could not be created
[[nodiscard]] MessageQueueId msgQCreate(std::size_t maxMessages, std::size_t maxMessageLength, int options);

/// Copies a message into the queue. With kNoWait it never blocks and may be called from a signal handler of a task that
/// does nothing but sleep. @return 0, or -1 when the queue is full or missing, or the message too long
[[nodiscard]] int msgQSend(MessageQueueId queue, const void* buffer, std::size_t bytes, int timeout, int priority);

/// Takes the oldest message out and copies at most `maxBytes` of it; the rest of a longer one is lost.
/// @param timeout  kNoWait, kWaitForever, or system clock ticks
/// @return the number of bytes copied, or -1; `msgQError` then says why
[[nodiscard]] int msgQReceive(MessageQueueId queue, void* buffer, std::size_t maxBytes, int timeout);

/// Why the calling task's last send or receive failed.
QueueError msgQError();

/// @return 0, or -1 when there is no such queue. No task may be waiting on it.
int msgQDelete(MessageQueueId queue);

}  // namespace os
