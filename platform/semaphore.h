#pragma once

/// Mutual exclusion with priority inheritance.
namespace os {

struct Semaphore;
using SemaphoreId = Semaphore*;  // null: no semaphore

inline constexpr int kSemPriorityQueue = 0x1;  // waiting tasks are served by priority
inline constexpr int kSemInversionSafe = 0x8;  // the owner inherits the priority of the most urgent waiter

/// @return the mutex, or null when it could not be created
[[nodiscard]] SemaphoreId semMCreate(int options);

/// Waits without limit; the owner may take it again. @return 0, or -1 when there is no such mutex
int semTake(SemaphoreId semaphore);

/// @return 0, or -1 when the calling task does not own it
int semGive(SemaphoreId semaphore);

}  // namespace os
