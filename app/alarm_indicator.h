#pragma once

/// Drives the alarm lamp and the alarm icon of the shown screen by the meter's global alarm status. Runs once a second
/// in the task tDispOneSecond; a meter that does not answer counts as status 4.
void alarmIndicatorUpdate();
