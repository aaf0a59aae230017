#pragma once

#include <sched.h>

namespace bench {

/// Keeps this process, and what it will start, on the processor it is running on: the board has one, and waking a task
/// on another costs a message between the two.
inline void StayOnOneProcessor() {
    cpu_set_t here;
    CPU_ZERO(&here);
    CPU_SET(static_cast<std::size_t>(sched_getcpu()), &here);
    sched_setaffinity(0, sizeof here, &here);
}

}  // namespace bench
