#pragma once

#include "setup/view/screen_layout.h"

/// One setting in the middle of the screen.
class SV5_oneParamLayout : public ISV5_screenLayout {
public:
    explicit SV5_oneParamLayout(PegThing& screen);

    void update(const LargeSettingText* record) override;

private:
    LargeSetting m_setting;
};
