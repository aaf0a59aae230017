#pragma once

// What the scripted meter's replies to the data screens are from now on: nothing, or those of the simulated meter, but
// wider.

/// The meter has nothing to show: every reply is zeros.
void EmptyEveryReply();

/// Every text fills its field, without a terminator: labels and names with 'W', values, dates and times with '8'.
void FillEveryText();

/// Names stay as they are; values have the widest figures, as many of them as they can have.
void WidenEveryValue();
