#pragma once

#include <array>

#include "navigation/widgets/data_prompt.h"

/// Name and value of a setting, in the selected language and terminated.
struct LargeSettingText {
    std::array<char16_t, 40> name{};
    std::array<char16_t, 45> value{};
};
static_assert(sizeof(LargeSettingText) == 170);

/// A setting in large type: its name, and below it its value in the largest font in which it fits. Both prompts belong
/// to the screen.
class LargeSetting {
public:
    LargeSetting(PegThing& screen, int nameTop, int valueTop);

    /// The same text again changes nothing on the panel.
    void Show(const LargeSettingText& text);

private:
    PegPrompt& m_name;
    dataPegPromptClass& m_value;
    LargeSettingText m_shown;
};
