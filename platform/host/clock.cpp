#include "platform/timer.h"

namespace os {

std::time_t time() { return std::time(nullptr); }

}  // namespace os
