#pragma once

#include <array>

#include "screens/base/data_screen.h"
#include "screens/extremes/extremes_tables.h"
#include "screens/parameters/parameter_row.h"

/// Shows one to three extremes of the meter, each as label, value, unit, and the date and time when it was reached.
///
/// Reads each register once a second. A register that the meter does not tell shows empty texts.
class minmaxScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit minmaxScrnClass(std::int32_t screenId);

    void UpdateScreenData() override;

private:
    /// An extreme on the panel; the prompt of its time points at the text.
    struct Row {
        ParameterRow quantity{OverflowFrame::On};
        dataPegPromptClass* when = nullptr;  // a child; null beyond the screen's count
        std::array<char16_t, 24> whenText{};
    };

    const ExtremesRow* m_row;  // null: a screen without registers
    std::array<Row, kMostExtremes> m_rows;
};

/// Creates the screens of extremes and registers them with the navigation handler.
void CreateMinMaxScreens();
