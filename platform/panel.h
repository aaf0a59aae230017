#pragma once

/// The fixed facts of the panel that this display is built into.

inline constexpr int kPanelWidth = 320;   // pixels
inline constexpr int kPanelHeight = 240;  // pixels
inline constexpr int kHardwareId = 3;
