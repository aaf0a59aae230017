#include <cstdlib>
#include <new>

#include "simulator/bench/allocation_count.h"

void* operator new(std::size_t size) {
    if (AllocationCount::paused == 0) ++AllocationCount::taken;
    if (void* memory = std::malloc(size)) return memory;
    std::abort();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (AllocationCount::paused == 0) ++AllocationCount::taken;
    return std::malloc(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
