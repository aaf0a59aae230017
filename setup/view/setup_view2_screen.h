#pragma once

#include <array>

#include "navigation/widgets/three_param_vert_list.h"
#include "setup/view/setup_page_tables.h"
#include "setup/view/setup_view_screen.h"

/// Shows a grid of settings, two values a row; soft key 1 selects the next value, soft key 4 changes it.
///
/// Reads the registers of its values once a second; a value that cannot be read is empty.
class setupView2ScrnClass : public SVBC_setupViewBaseClass {
public:
    setupView2ScrnClass(const SetupViewRow& row, const SettingGrid& content);

    void SoftKey1Action() override;

protected:
    std::int32_t EditTarget() const override;
    void refreshValues() override;
    void Relabel() override;

private:
    using ValueText = std::array<char16_t, 45>;

    void ShowNames();

    const SettingGrid& m_content;
    threeParamVertList& m_grid;
    std::array<std::array<ValueText, kGridColumns>, kGridRows> m_values{};  // as they are shown
};

/// Creates the page of the grid and registers it with the navigation handler.
void CreateSetupView2Screen();
