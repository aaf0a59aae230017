#include "platform/process.h"

#include <cstdio>

namespace os {

void startProcess() { std::setvbuf(stdout, nullptr, _IONBF, 0); }

}  // namespace os
