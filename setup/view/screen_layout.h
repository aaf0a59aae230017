#pragma once

#include "peg/core/thing.h"
#include "setup/view/large_setting.h"

/// Places the settings of a screen and shows them. It is never drawn: its prompts belong to the screen.
class ISV5_screenLayout : public PegThing {
public:
    /// @param record  as many texts as the layout has places; null changes nothing
    virtual void update(const LargeSettingText* record) = 0;
};
