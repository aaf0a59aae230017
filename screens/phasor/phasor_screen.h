#pragma once

#include <array>

#include "navigation/meter_access.h"
#include "navigation/widgets/data_prompt.h"
#include "screens/base/data_screen.h"
#include "screens/phasor/phasor_diagram.h"

/// Shows the voltages and currents as phasors: a diagram on the right, their magnitudes and angles on the left.
///
/// Reads all phasors in one call a second. Without an answer the table is empty and the diagram has no arrows.
class phasorScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit phasorScrnClass(std::int32_t screenId);

    void UpdateScreenData() override;
    void InitScreenData() override;

private:
    static constexpr std::size_t kTableRows = 7;

    /// One phasor in the table.
    struct TableRow {
        dataPegPromptClass& magnitudeLabel;
        dataPegPromptClass& magnitude;
        dataPegPromptClass& angleLabel;
        dataPegPromptClass& angle;
    };
    TableRow AddRow(std::size_t index);
    template <std::size_t... indexes>
    std::array<TableRow, kTableRows> AddRows(std::index_sequence<indexes...>) {
        return {AddRow(indexes)...};
    }

    PhasorDiagram& m_diagram;
    dataPegPromptClass& m_magnitudeHeading;
    dataPegPromptClass& m_angleHeading;
    std::array<TableRow, kTableRows> m_rows;
    std::array<PhasorDisplay, meterAccessClass::kPhasors> m_shown{};  // what the prompts point at
};

/// Creates the phasor screen and registers it with the navigation handler.
void CreatePhasorScreen();
