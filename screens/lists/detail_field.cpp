#include "screens/lists/detail_field.h"

#include "localization/localization.h"
#include "screens/lists/line_place.h"

namespace {

constexpr int kLabelLeft = 25;
constexpr int kLabelRight = 100;
constexpr int kValueRight = 300;
constexpr std::uint32_t kStyle = kStyleTextLeft | kStyleBorderNone;

}  // namespace

DetailField::DetailField(PegThing& screen, int line, std::uint32_t font, std::uint32_t label, int valueLeft)
    : m_labelText(label),
      m_label(AddNew<PegPrompt>(screen, PlaceOnLine(line, kLabelLeft, kLabelRight, font), nullptr, std::uint16_t{0},
                                kStyle)),
      m_value(AddNew<PegPrompt>(screen, PlaceOnLine(line, valueLeft, kValueRight, font), nullptr, std::uint16_t{0},
                                kStyle)) {
    m_label.SetFontNumber(font);
    m_value.SetFontNumber(font);
}

void DetailField::Relabel() {
    const char16_t* label = LocalizedString(m_labelText);
    if (m_label.Text() != label) m_label.SetText(label);
}
