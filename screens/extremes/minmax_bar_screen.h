#pragma once

#include <array>

#include "screens/base/data_screen.h"
#include "screens/extremes/extremes_tables.h"
#include "screens/extremes/minmax_bar.h"

/// Shows one to four quantities as bars from their minimum to their maximum, on one scale.
///
/// Reads each quantity once a second. One that the meter does not tell has its marks in the middle, and no values.
class minMaxBarScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit minMaxBarScrnClass(std::int32_t screenId);

    void UpdateScreenData() override;

private:
    const BarScreenRow* m_row;                   // null: a screen without bars
    std::array<MinMaxBar*, kMostBars> m_bars{};  // children; null beyond the row's count
};

/// Creates the bar screens and registers them with the navigation handler.
void CreateMinMaxBarScreens();
