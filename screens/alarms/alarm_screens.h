#pragma once

#include "screens/alarms/alarm_detail_screen.h"
#include "screens/alarms/alarm_list_screen.h"

/// Create one screen and register it with the navigation handler.
/// @return null, with a line on the console, for the id of no such screen
almActiveListScrnClass* CreateActiveAlarmList(std::int32_t screenId);
almHistListScrnClass* CreateHistoricalAlarmList(std::int32_t screenId);
almDetailScrnClass* CreateAlarmDetail(std::int32_t screenId);

/// Create a list and its detail screen and link them.
void CreateActiveAlarmScreens();
void CreateHistoricalAlarmScreens();
