#pragma once

#include <array>

#include "peg/widgets/vert_list.h"
#include "setup/view/setting_line.h"
#include "setup/view/setup_page_tables.h"
#include "setup/view/setup_view_screen.h"

/// Shows up to six settings, a line each; soft key 1 selects the next line, soft key 4 changes its setting.
///
/// Reads the registers of its lines once a second; a line whose register cannot be read is empty.
class setupView1ScrnClass : public SVBC_setupViewBaseClass {
public:
    setupView1ScrnClass(const SetupViewRow& row, const SettingLinesRow& content);

    void SoftKey1Action() override;

protected:
    std::int32_t EditTarget() const override;
    void refreshValues() override;

private:
    std::size_t SelectedLine() const { return static_cast<std::size_t>(m_list.SelectedIndex()); }
    void SelectLine(std::size_t line);

    const SettingLinesRow& m_content;
    PegVertList& m_list;
    std::array<SettingLine*, kMostSettingLines> m_lines{};  // the list's
};

/// Creates the pages of lines and registers them with the navigation handler.
void CreateSetupView1Screens();
