#pragma once

/// Starts the task tDispTimers, which owns the timer of the toolkit's tick. Only its task handles the tick's signal.
/// @return 0, or -1 when the task could not be started; a console line says so, and the toolkit gets no ticks
int DISPTIMERS_init();
