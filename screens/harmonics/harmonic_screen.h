#pragma once

#include <array>
#include <cstdint>

#include "navigation/power_quality_display.h"
#include "navigation/widgets/data_prompt.h"
#include "screens/base/data_screen.h"
#include "screens/harmonics/harmonic_chart.h"

/// Shows the harmonics of one voltage or current as bars, and the figures of a selected one above them. Soft keys 2
/// and 3 select; the selection outlives the visit.
///
/// Reads the spectrum once a second and at every selection. Without an answer the bars have no height and the figures
/// no text.
class harmonicDiagramScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit harmonicDiagramScrnClass(std::int32_t screenId);

    void UpdateScreenData() override;
    void SoftKey2Action() override;
    void SoftKey3Action() override;

private:
    static constexpr std::size_t kFigures = 6;
    static constexpr std::size_t kAxisLabels = 3;

    /// A label and its value, with the texts that their prompts point at.
    struct Figure {
        dataPegPromptClass& label;
        dataPegPromptClass& value;
        std::array<char16_t, 21> labelText{};
        std::array<char16_t, 80> valueText{};
    };
    struct AxisLabel {
        custPpromptClass& prompt;
        std::array<char16_t, 40> text{};
    };
    Figure AddFigure(std::size_t index);
    template <std::size_t... indexes>
    std::array<Figure, kFigures> AddFigures(std::index_sequence<indexes...>) {
        return {AddFigure(indexes)...};
    }
    std::array<AxisLabel, kAxisLabels> AddAxisLabels();
    void ShowFigures(const HarmonicDisplay& spectrum);

    std::uint32_t m_channel;
    BarLayout m_layout;
    int m_selected = 0;  // index of a harmonic; 0: the fundamental
    std::array<Figure, kFigures> m_figures;
    std::array<AxisLabel, kAxisLabels> m_axisLabels;
    HarmonicChart& m_chart;
};

/// Creates the harmonic screens and registers them with the navigation handler.
void CreateHarmonicScreens();
