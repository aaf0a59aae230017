#pragma once

#include <memory>

#include "setup/view/screen_layout.h"
#include "setup/view/setup_page_tables.h"
#include "setup/view/setup_view_screen.h"

/// Shows one or two settings in large type.
///
/// Reads their registers once a second; what cannot be read is empty. From some pages the way through the chain depends
/// on whether the meter has an address stored or gets it from elsewhere: the key asks when it is pressed.
class setupView5ScrnClass : public SVBC_setupViewBaseClass {
public:
    setupView5ScrnClass(const SetupViewRow& row, const LargeSettingsRow& content);

    void SoftKey2Action() override;
    void SoftKey3Action() override;

protected:
    std::int32_t EditTarget() const override { return m_content.editScreen; }
    void refreshValues() override;

private:
    /// Takes a switch point of the chain. @return false where there is none, or while the keys are the keyboard's
    bool TookSwitchPoint(ChainStep step);

    const LargeSettingsRow& m_content;
    std::unique_ptr<ISV5_screenLayout> m_layout;
};

/// Creates the pages in large type and registers them with the navigation handler.
void CreateSetupView5Screens();
