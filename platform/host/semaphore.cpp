#include "platform/semaphore.h"

#include <pthread.h>

#include <new>

namespace os {

struct Semaphore {
    pthread_mutex_t mutex;
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
    if (semaphore == nullptr) return -1;
    return pthread_mutex_lock(&semaphore->mutex) == 0 ? 0 : -1;
}

int semGive(SemaphoreId semaphore) {
    if (semaphore == nullptr) return -1;
    return pthread_mutex_unlock(&semaphore->mutex) == 0 ? 0 : -1;
}

}  // namespace os
