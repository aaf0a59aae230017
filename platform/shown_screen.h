#pragma once

#include <cstdint>

namespace os {

inline constexpr std::int32_t kNoScreen = 0;  // the display is coming up

/// Says which screen is on the panel, to whoever watches the board. Called by the toolkit task before the screen's
/// first frame; a board without a place for it does nothing.
void tellShownScreen(std::int32_t id);

}  // namespace os
