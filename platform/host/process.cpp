#include "platform/process.h"

#include <cstdio>

#include "platform/shown_screen.h"

namespace os {

void startProcess() {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    tellShownScreen(kNoScreen);
}

}  // namespace os
