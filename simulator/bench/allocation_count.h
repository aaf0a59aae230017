#pragma once

/// Counts what the display takes from the heap, in programs whose operator new counts.
struct AllocationCount {
    static inline long taken = 0;
    static inline int paused = 0;  // above 0: what is taken is not the display's
};

/// Nothing counts until the end of the block.
class AllocationPause {
public:
    AllocationPause() { ++AllocationCount::paused; }
    AllocationPause(const AllocationPause&) = delete;
    AllocationPause& operator=(const AllocationPause&) = delete;
    ~AllocationPause() { --AllocationCount::paused; }
};
