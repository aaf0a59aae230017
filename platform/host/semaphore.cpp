#include "platform/semaphore.h"

#include <pthread.h>

#include <atomic>
#include <new>

#include "platform/task.h"

namespace os {

struct Semaphore {
    pthread_mutex_t mutex;
    std::atomic<TaskId> owner{0};  // 0: nobody; written by its owner alone
    int depth = 0;                 // how often the owner took it
};

SemaphoreId semMCreate(int options) {
    auto* semaphore = new (std::nothrow) Semaphore;
    if (semaphore == nullptr) return nullptr;
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    if ((options & kSemInversionSafe) != 0) pthread_mutexattr_setprotocol(&attributes, PTHREAD_PRIO_INHERIT);
    const int result = pthread_mutex_init(&semaphore->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    if (result == 0) return semaphore;
    delete semaphore;
    return nullptr;
}

int semTake(SemaphoreId semaphore) {
    if (semaphore == nullptr || pthread_mutex_lock(&semaphore->mutex) != 0) return -1;
    semaphore->owner = taskIdSelf();
    ++semaphore->depth;
    return 0;
}

int semGive(SemaphoreId semaphore) {
    if (semaphore == nullptr || semaphore->owner != taskIdSelf()) return -1;
    if (--semaphore->depth == 0) semaphore->owner = 0;
    return pthread_mutex_unlock(&semaphore->mutex);
}

}  // namespace os
