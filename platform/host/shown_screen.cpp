#include "platform/shown_screen.h"

#include "platform/device.h"

namespace os {

// A file that only a board with somebody to look at it has.
void tellShownScreen(std::int32_t id) {
    const int place = open("/screen", kReadWrite);
    if (place < 0) return;
    static_cast<void>(write(place, &id, sizeof id));
    close(place);
}

}  // namespace os
