#pragma once

#include <cstdint>
#include <ctime>
#include <memory>

#include "peg/core/screen.h"
#include "platform/message_queue.h"

/// The toolkit's place in the operating system: its queue, its task and its tick.

/// Called once by the toolkit task, when the toolkit's objects exist and before the first message is processed.
using ResourceLoaderHook = std::intptr_t (*)(std::intptr_t presentationManager);
void setResourceLoaderHook(ResourceLoaderHook hook);

/// @return the hook's result, or `word` when there is no hook
std::intptr_t callResourceLoaderHook(std::intptr_t word);

/// Creates the toolkit queue and the toolkit task, and then sleeps for ever.
/// @return -1 when the task cannot be created; it returns for no other reason
int PegInitialize();

/// The queue that carries messages into the toolkit task; null when it could not be created.
os::MessageQueueId toolkitQueueId();

/// Names the timer that drives the toolkit's tick, or null when there is none; PegTaskMain waits for this and arms it.
void setTickTimer(const timer_t* timer);

/// Sends a tick unless one is waiting already. Called from the tick timer's signal handler.
void postToolkitTick();

/// The toolkit's objects, made and ended together, in the task that is the toolkit's from then on.
class PegToolkitObjects {
public:
    PegToolkitObjects(std::unique_ptr<PegScreen> screen, os::MessageQueueId queue);
    PegToolkitObjects(const PegToolkitObjects&) = delete;
    PegToolkitObjects& operator=(const PegToolkitObjects&) = delete;
    ~PegToolkitObjects();
};
