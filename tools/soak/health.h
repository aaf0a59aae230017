#pragma once

#include <sys/types.h>

/// What a process holds of the machine.
struct Health {
    long kilobytes = 0;  // resident, without what files can give back
    long descriptors = 0;
    long threads = 0;
};

/// @return zeros when there is no such process
Health HealthOf(pid_t process);
