#pragma once

// What the scripted meter's replies to the data screens are from now on: those of the simulated meter, but wider.

/// Every text fills its field, without a terminator: labels and names with 'W', values, dates and times with '8'.
void FillEveryText();

/// Names stay as they are; values have the widest figures, as many of them as they can have.
void WidenEveryValue();
