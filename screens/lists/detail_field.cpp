#include "screens/lists/detail_field.h"

#include "localization/localization.h"
#include "screens/base/line_place.h"

namespace {

constexpr std::uint32_t kStyle = kStyleTextLeft | kStyleBorderNone;

PegPrompt& AddPrompt(PegThing& screen, const PegRect& place, std::uint32_t font) {
    PegPrompt& prompt = AddNew<PegPrompt>(screen, place, nullptr, std::uint16_t{0}, kStyle);
    prompt.SetFontNumber(font);
    return prompt;
}

}  // namespace

DetailLabel::DetailLabel(PegThing& screen, int line, const DetailColumns& columns, std::uint32_t font,
                         std::uint32_t text)
    : m_text(text), m_prompt(AddPrompt(screen, PlaceOnLine(line, columns.labelLeft, columns.labelRight, font), font)) {}

void DetailLabel::Relabel() {
    const char16_t* label = LocalizedString(m_text);
    if (m_prompt.Text() != label) m_prompt.SetText(label);
}

DetailField::DetailField(PegThing& screen, int line, const DetailColumns& columns, std::uint32_t font,
                         std::uint32_t label)
    : m_label(screen, line, columns, font, label),
      m_value(AddPrompt(screen, PlaceOnLine(line, columns.valueLeft, columns.valueRight, font), font)) {}
