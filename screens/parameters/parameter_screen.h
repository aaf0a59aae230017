#pragma once

#include <array>

#include "screens/base/data_screen.h"
#include "screens/parameters/parameter_row.h"
#include "screens/parameters/parameter_tables.h"

/// Shows one to six registers of the meter, each as label, value and unit.
///
/// Reads each register once a second. A register that the meter does not tell shows empty texts.
class paramScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit paramScrnClass(std::int32_t screenId);

    void UpdateScreenData() override;

private:
    const ParamScreenRow* m_row;  // null: a screen without registers
    std::array<ParameterRow, kMostParameters> m_rows;
};

/// Creates the parameter screens and registers them with the navigation handler.
void CreateParameterScreens();
