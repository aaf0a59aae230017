#include "platform/timer.h"

#include <unistd.h>

#ifndef sigev_notify_thread_id
#define sigev_notify_thread_id _sigev_un._tid  // older C libraries give the member no name
#endif

namespace os {

int timer_create(clockid_t clock, const sigevent* event, timer_t* timer) {
    sigevent toThisTask = *event;
    toThisTask.sigev_notify = SIGEV_THREAD_ID;
    toThisTask.sigev_notify_thread_id = gettid();
    return ::timer_create(clock, &toThisTask, timer);
}

int timer_settime(timer_t timer, int flags, const itimerspec* value, itimerspec* previous) {
    return ::timer_settime(timer, flags, value, previous);
}

int sigaction(int signal, const struct ::sigaction* action, struct ::sigaction* previous) {
    return ::sigaction(signal, action, previous);
}

}  // namespace os
