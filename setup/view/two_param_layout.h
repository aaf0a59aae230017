#pragma once

#include "setup/view/screen_layout.h"

/// Two settings, one below the other.
class SV5_twoParamLayout : public ISV5_screenLayout {
public:
    explicit SV5_twoParamLayout(PegThing& screen);

    void update(const LargeSettingText* record) override;

private:
    LargeSetting m_first;
    LargeSetting m_second;
};
