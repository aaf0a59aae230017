#pragma once

#include "peg/core/rect.h"
#include "platform/panel.h"

/// A share of a length: rounded to single precision and cut toward zero, as all geometry of the screens is.
constexpr int Share(int length, double factor) { return static_cast<int>(static_cast<float>(length * factor)); }

/// A length divided by a number that need not be whole, likewise.
constexpr int Divided(int length, double divisor) { return static_cast<int>(static_cast<float>(length / divisor)); }

/// Lines that all screens share.
inline constexpr PegRect kWholePanel = RectOf(0, 0, kPanelWidth - 1, kPanelHeight - 1);
inline constexpr int kHeaderBottom = Divided(kPanelHeight, 4.36);  // under the title band
inline constexpr int kSoftKeyLine = Divided(kPanelHeight, 1.12);   // above the soft keys
inline constexpr int kLineThickness = Divided(kPanelHeight, 120.0);
static_assert(kHeaderBottom == 55 && kSoftKeyLine == 214 && kLineThickness == 2);
