#pragma once

/// Starts the task tDispOneSecond, at most once: alarm indicator, backlight and the temperature report to the meter.
void startOneSecondTask();

/// What the task does each second.
void oneSecondUpdate();
