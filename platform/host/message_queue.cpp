#include "platform/message_queue.h"

#include <pthread.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "platform/host/clock.h"

namespace os {

/// A ring of slots of equal size, each with the length of the message in it.
struct MessageQueue {
    pthread_mutex_t lock;
    pthread_cond_t notEmpty;
    pthread_cond_t notFull;
    std::size_t slots;
    std::size_t slotBytes;
    std::size_t oldest = 0;
    std::size_t count = 0;
    int receiversWaiting = 0;
    int sendersWaiting = 0;
    std::unique_ptr<unsigned char[]> bytes;
    std::unique_ptr<std::size_t[]> lengths;
};

namespace {

thread_local QueueError lastError = QueueError::None;

int Fail(QueueError error) {
    lastError = error;
    return -1;
}

class Lock {
public:
    explicit Lock(MessageQueue& queue) : m_queue(queue) { pthread_mutex_lock(&m_queue.lock); }
    ~Lock() { pthread_mutex_unlock(&m_queue.lock); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    /// Waits until `ready` holds. @return whether it does
    template <typename Condition>
    bool WaitFor(pthread_cond_t& condition, int& waiting, int timeout, Condition ready) {
        if (ready() || timeout == kNoWait) return ready();
        const timespec end = timeout == kWaitForever ? timespec{} : host::After(timeout);
        int result = 0;
        ++waiting;
        while (!ready() && result == 0) {
            result = timeout == kWaitForever ? pthread_cond_wait(&condition, &m_queue.lock)
                                             : pthread_cond_timedwait(&condition, &m_queue.lock, &end);
        }
        --waiting;
        return ready();
    }

private:
    MessageQueue& m_queue;
};

void InitialiseCondition(pthread_cond_t& condition) {
    pthread_condattr_t attributes;
    pthread_condattr_init(&attributes);
    pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
    pthread_cond_init(&condition, &attributes);
    pthread_condattr_destroy(&attributes);
}

}  // namespace

MessageQueueId msgQCreate(std::size_t maxMessages, std::size_t maxMessageLength, int /*options*/) {
    if (maxMessages == 0 || maxMessageLength == 0) return nullptr;
    std::unique_ptr<MessageQueue> queue(new (std::nothrow) MessageQueue);
    if (!queue) return nullptr;
    queue->slots = maxMessages;
    queue->slotBytes = maxMessageLength;
    queue->bytes.reset(new (std::nothrow) unsigned char[maxMessages * maxMessageLength]);
    queue->lengths.reset(new (std::nothrow) std::size_t[maxMessages]);
    if (!queue->bytes || !queue->lengths) return nullptr;
    pthread_mutex_init(&queue->lock, nullptr);
    InitialiseCondition(queue->notEmpty);
    InitialiseCondition(queue->notFull);
    return queue.release();
}

int msgQSend(MessageQueueId queue, const void* buffer, std::size_t bytes, int timeout, int /*priority*/) {
    if (queue == nullptr) return Fail(QueueError::NoQueue);
    if (bytes > queue->slotBytes) return Fail(QueueError::TooLong);
    Lock lock(*queue);
    const auto hasRoom = [queue] { return queue->count < queue->slots; };
    if (!lock.WaitFor(queue->notFull, queue->sendersWaiting, timeout, hasRoom)) return Fail(QueueError::Full);
    const std::size_t slot = (queue->oldest + queue->count) % queue->slots;
    if (bytes != 0) std::memcpy(&queue->bytes[slot * queue->slotBytes], buffer, bytes);
    queue->lengths[slot] = bytes;
    ++queue->count;
    // Under the lock: whoever receives the message may delete the queue.
    if (queue->receiversWaiting != 0) pthread_cond_signal(&queue->notEmpty);
    return 0;
}

int msgQReceive(MessageQueueId queue, void* buffer, std::size_t maxBytes, int timeout) {
    if (queue == nullptr) return Fail(QueueError::NoQueue);
    Lock lock(*queue);
    const auto hasMessage = [queue] { return queue->count != 0; };
    if (!lock.WaitFor(queue->notEmpty, queue->receiversWaiting, timeout, hasMessage)) return Fail(QueueError::Empty);
    const std::size_t bytes = std::min(queue->lengths[queue->oldest], maxBytes);
    if (bytes != 0) std::memcpy(buffer, &queue->bytes[queue->oldest * queue->slotBytes], bytes);
    queue->oldest = (queue->oldest + 1) % queue->slots;
    --queue->count;
    if (queue->sendersWaiting != 0) pthread_cond_signal(&queue->notFull);
    return static_cast<int>(bytes);
}

QueueError msgQError() { return lastError; }

int msgQDelete(MessageQueueId queue) {
    if (queue == nullptr) return Fail(QueueError::NoQueue);
    pthread_cond_destroy(&queue->notEmpty);
    pthread_cond_destroy(&queue->notFull);
    pthread_mutex_destroy(&queue->lock);
    delete queue;
    return 0;
}

}  // namespace os
