#pragma once

#include <array>

#include "navigation/widgets/data_prompt.h"
#include "screens/base/data_screen.h"
#include "screens/metrological/metrological_table.h"

struct RegisterDisplay;

/// Shows three registers of the meter in large type, each as value and unit.
///
/// Reads each register once a second. A register that the meter does not tell shows empty texts. Toolkit task only;
/// lives as long as the process.
class metrologicalScrn : public DSBC_dataScrnBaseClass {
public:
    explicit metrologicalScrn(const MetrologicalScreenRow& row);

    void UpdateScreenData() override;

private:
    /// One register on the panel; the prompts belong to the screen.
    class Row {
    public:
        Row(PegThing& screen, int line);
        void Show(const RegisterDisplay& display);

    private:
        dataPegPromptClass& m_value;
        dataPegPromptClass& m_unit;
        std::array<char16_t, 45> m_shownValue{};
        std::array<char16_t, 10> m_shownUnit{};
    };

    const MetrologicalScreenRow& m_row;
    std::array<Row, kMetrologicalRows> m_rows;
};

/// Creates the metrological screens and registers them with the navigation handler.
void CreateMetrologicalScreens();
