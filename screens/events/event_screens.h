#pragma once

#include "screens/events/event_detail_screen.h"
#include "screens/events/event_list_screen.h"

/// Create one screen and register it with the navigation handler.
/// @return null, with a line on the console, for an id that is no data screen's
eventLogScrnClass* CreateEventList(std::int32_t screenId);
eventDetailScrnClass* CreateEventDetail(std::int32_t screenId);

/// Creates the list and the detail screen and links them with each other.
void CreateEventScreens();
