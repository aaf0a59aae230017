#include "app/button_task.h"

#include <array>

#include "app/backlight.h"
#include "app/panel_hardware.h"
#include "navigation/messages.h"
#include "navigation/navigation_handler.h"
#include "peg/core/message_queue.h"
#include "peg/port/vxpeg.h"

namespace {

constexpr int kPriority = 80;
constexpr std::size_t kStack = 4096;
constexpr int kWithoutLimit = -1;

/// By key index.
constexpr std::array<KeyCode, 6> kKeyCodes = {KEY_HOME, KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_4, KEY_SOFT_2_3};

int ButtonTask(os::TaskArgument) {
    for (;;) {
        ButtonEvent event{};
        if (VEKHWIF_readButton(event, kWithoutLimit) == 0) handleButtonEvent(event);
    }
}

}  // namespace

os::TaskId startButtonTask() {
    const os::TaskId task = os::taskCreate("tDispButtons", kPriority, os::kTaskFloatingPoint, kStack, ButtonTask, 0);
    if (task != os::kTaskError) os::taskActivate(task);
    return task;
}

int handleButtonEvent(const ButtonEvent& event) {
    PegMessage message;
    message.target = &navigationHandlerClass::getInstance();
    if (event.kind == kSimulatedInput) {
        message.param = KEY_SIMULATED;
        message.data = {event.value, event.extra, 0};
    } else if (event.kind == kPanelKey && event.value < kKeyCodes.size()) {
        message.param = kKeyCodes[event.value];
    } else {
        return 0;
    }
    message.type = event.pressed != 0 ? MSG_KEY_DOWN : MSG_KEY_UP;
    if (event.pressed != 0) backlightKeyPress();
    return PegMessageQueue::EnqueueTaskMessage(message, toolkitQueueId());
}
