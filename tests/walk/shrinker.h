#pragma once

#include <functional>
#include <span>
#include <vector>

#include "tests/walk/stroke.h"

/// Whether a list of strokes, given to a display that has just come up, shows the fault.
using ShowsFault = std::function<bool(std::span<const Stroke>)>;

/// The part of a list that shows the same fault and from which no stroke can be left out, with no wait that is not
/// needed.
/// @param strokes  show the fault; after so many runs, what was found until then is returned
std::vector<Stroke> Shrink(std::vector<Stroke> strokes, const ShowsFault& showsFault);
