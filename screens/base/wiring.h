#pragma once

/// Whether the meter says that it is wired in delta: without a neutral to measure against. Asks the meter.
bool IsWiredInDelta();
