#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "tests/fuzz/target.h"

// The guard between the fuzzer, or the replay of a corpus, and a target: an input that takes too long or too much
// memory ends the program, so that the fuzzer keeps it. Crashes, leaks and endless loops are found by the sanitizers
// and the fuzzer themselves.

#if defined(__SANITIZE_ADDRESS__)
#define HAS_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HAS_ADDRESS_SANITIZER
#endif
#endif

#ifdef HAS_ADDRESS_SANITIZER
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(const volatile void*, std::size_t),
                                              void (*onFree)(const volatile void*));
std::size_t __sanitizer_get_allocated_size(const volatile void* block);
}
// By the sanitizers and the fuzzer's counters, as the replay of all corpora shows: 10 times for scenarios, 16 for
// screens.
constexpr double kSlowdown = 16.0;
#else
constexpr double kSlowdown = 1.0;
#endif

namespace {

constexpr double kLongestRun = 0.050;  // seconds of the processor, with all threads

std::atomic<bool> isCounting = false;
std::atomic<std::ptrdiff_t> heldBytes = 0;  // more than before the input
std::atomic<std::ptrdiff_t> mostHeldBytes = 0;

/// Has the sanitizer's allocator tell of every block; without the sanitizer nothing is counted.
void CountMemory() {
#ifdef HAS_ADDRESS_SANITIZER
    __sanitizer_install_malloc_and_free_hooks(
        [](const volatile void*, std::size_t size) {
            if (!isCounting) return;
            const std::ptrdiff_t held = heldBytes += static_cast<std::ptrdiff_t>(size);
            if (held > mostHeldBytes) mostHeldBytes = held;
        },
        [](const volatile void* block) {
            if (!isCounting || block == nullptr) return;
            heldBytes -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(block));
        });
#endif
}

double ProcessorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double SecondsOf(std::span<const std::uint8_t> input) {
    const double start = ProcessorSeconds();
    Take(input);
    return ProcessorSeconds() - start;
}

void CheckTime(std::span<const std::uint8_t> input, double seconds) {
    constexpr double kMost = kLongestRun * kSlowdown;
    // What the machine did meanwhile may have cost time, but hardly twice.
    if (seconds <= kMost || SecondsOf(input) <= kMost) return;
    std::fprintf(stderr, "\nguard: %zu bytes took %.0f ms, and may take %.0f\n", input.size(), seconds * 1000,
                 kMost * 1000);
    std::abort();
}

void CheckMemory(std::span<const std::uint8_t> input) {
    const std::size_t most = kMemoryBound.bytes + kMemoryBound.perByte * input.size();
    if (mostHeldBytes <= static_cast<std::ptrdiff_t>(most)) return;
    std::fprintf(stderr, "\nguard: %zu bytes held %td bytes of memory, and may hold %zu\n", input.size(),
                 mostHeldBytes.load(), most);
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    Prepare();
    CountMemory();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span input(data, size);
    heldBytes = mostHeldBytes = 0;
    isCounting = true;
    const double seconds = SecondsOf(input);
    isCounting = false;
    CheckMemory(input);
    CheckTime(input, seconds);
    return 0;
}
