#pragma once

// Every record that the meter answers with. All are bytes until a field is asked; all texts are 8-bit and may fill
// their field without a terminator.
#include "rda/records/alarm.h"
#include "rda/records/clock.h"
#include "rda/records/identity.h"
#include "rda/records/power_quality.h"
#include "rda/records/register.h"
