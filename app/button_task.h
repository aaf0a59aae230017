#pragma once

#include "platform/button_event.h"
#include "platform/task.h"

/// Starts the task tDispButtons, which turns the panel's keys into key messages. @return the task, or kTaskError
os::TaskId startButtonTask();

/// Turns an event into a key message for the navigation handler; a press brings the backlight to full brightness. Any
/// task. @return 1, or 0 when the event is no key or the toolkit queue is full
int handleButtonEvent(const ButtonEvent& event);
