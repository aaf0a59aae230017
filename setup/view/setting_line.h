#pragma once

#include <array>

#include "peg/widgets/bitmap_prompt.h"

/// A line of a list of settings: the name on the left, and the value in the room that the name leaves.
class SettingLine : public PegBitmapPrompt {
public:
    using Name = std::array<char16_t, 40>;
    using Value = std::array<char16_t, 45>;

    enum class Place { First, Further };

    explicit SettingLine(Place place);

    /// Both terminated. The same text again changes nothing on the panel.
    void Show(const Name& name, const Value& value);

    /// Puts the texts on the ground of a line that is selected, or not.
    void StandOut(bool selected);

private:
    void DivideAfterName(int nameRight);

    PegPrompt& m_name;
    PegPrompt& m_value;
    Name m_nameText{};
    Value m_valueText{};
};
