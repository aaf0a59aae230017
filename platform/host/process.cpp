#include "platform/process.h"

#include <malloc.h>

#include <cstdio>

#include "platform/shown_screen.h"

namespace os {
namespace {

// One heap for all tasks, grown in large steps: a task's own would be grown page by page.
constexpr int kHeapStep = 1 << 20;

}  // namespace

void startProcess() {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    // Nothing else runs yet.
    // NOLINTBEGIN(concurrency-mt-unsafe)
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_TOP_PAD, kHeapStep);
    // NOLINTEND(concurrency-mt-unsafe)
    tellShownScreen(kNoScreen);
}

}  // namespace os
