#include "screens/extremes/minmax_bar.h"

#include <algorithm>

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/show_text.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"
#include "screens/parameters/parameter_row.h"

namespace {

constexpr std::uint32_t kTrack = 99;  // bitmap numbers
constexpr std::uint32_t kMaximumMarker = 100;
constexpr std::uint32_t kMinimumMarker = 101;
constexpr std::uint32_t kPresentMarker = 102;

constexpr std::uint32_t kMinimumSign = 104;  // string numbers
constexpr std::uint32_t kMaximumSign = 560;
constexpr std::uint32_t kNotAvailable = 273;

constexpr ColumnSpan kMinimumSignColumns = {8, 18};
constexpr ColumnSpan kMinimumColumns = {19, 74};
constexpr ColumnSpan kLabelColumns = {75, 159};
constexpr ColumnSpan kPresentColumns = {160, 244};
constexpr ColumnSpan kMaximumSignColumns = {245, 255};
constexpr ColumnSpan kMaximumColumns = {256, 311};
constexpr std::uint32_t kSmallFont = 33;
constexpr std::uint32_t kLargeFont = 36;
constexpr std::int32_t kSmallestFont = 32;

constexpr std::uint32_t kLeft = kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kRight = kStyleTextRight | kStyleBorderNone;

constexpr int kTextGap = 3;      // pixels between a label and its value, on either side
constexpr int kNoGap = -1;       // a mark and its extreme begin at the very edge of their columns
constexpr int kTextHeight = 18;  // lines above a bar's line that its texts may take
constexpr int kBarGap = 3;
constexpr int kBarLeft = 20;
constexpr int kBarHeight = Divided(kPanelHeight, 15.0);
constexpr int kBarWidth = Divided(kPanelWidth, 1.14);
static_assert(kBarHeight == 16 && kBarWidth == 280 && kBarLeft + kBarWidth - 1 == 299);

constexpr std::uint16_t kPaper = 0xFFFF;
constexpr std::uint32_t kSpanColor = 0x58;

/// The columns of a bar reach to both sides of the panel: a present value beyond the scale has its mark there.
constexpr PegRect BarPlace(int line) {
    return RectOf(0, line + kBarGap, kPanelWidth - 1, line + kBarGap + kBarHeight - 1);
}

/// The middle of a marker at a position.
int MiddleOf(std::uint32_t marker, int position) {
    const int width = PegResources::BitmapWidth(marker);
    return kBarLeft + position * (kBarWidth - width) / 100 + width / 2;
}

void DrawMarker(std::uint32_t marker, int position, int top) {
    const int left = MiddleOf(marker, position) - PegResources::BitmapWidth(marker) / 2;
    toolkit.screen->DrawBitmap(PointOf(left, top), PegResources::GetBitmap(marker));
}

}  // namespace

MinMaxBar::MinMaxBar(int line)
    : PegThing(RectOf(0, line - kTextHeight, kPanelWidth - 1, BarPlace(line).bottom)),
      m_line(line),
      m_bar(BarPlace(line)),
      m_minimum(AddText(kMinimumColumns, kSmallFont, kLeft)),
      m_maximum(AddText(kMaximumColumns, kSmallFont, kLeft)),
      m_label(AddText(kLabelColumns, kLargeFont, kRight)),
      m_present(AddText(kPresentColumns, kLargeFont, kLeft)) {
    ClearStatusBits(STAT_SELECTABLE | STAT_ACCEPTS_FOCUS);
    AddMark(kMinimumSignColumns, kMinimumSign);
    AddMark(kMaximumSignColumns, kMaximumSign);
    m_label.setOverflowFrame(false);
    m_label.setMargin(kTextGap);
    m_present.setMargin(kTextGap);
    m_minimum.setMargin(kNoGap);
    m_maximum.setMargin(kNoGap);
}

dataPegPromptClass& MinMaxBar::AddText(const ColumnSpan& columns, std::uint32_t font, std::uint32_t style) {
    auto& prompt = AddNew<dataPegPromptClass>(*this, PegRect{}, nullptr, std::uint16_t{0}, style);
    PlacePrompt(prompt, m_line, columns, font);
    prompt.setFitFont(0, font == kSmallFont ? kSmallestFont : static_cast<std::int32_t>(kSmallFont));
    if (font != kSmallFont) prompt.setFitFont(1, kSmallestFont);
    return prompt;
}

void MinMaxBar::AddMark(const ColumnSpan& columns, std::uint32_t stringNumber) {
    auto& mark = AddText(columns, kSmallFont, kLeft | kStyleCopyText);
    mark.setOverflowFrame(false);
    mark.setMargin(kNoGap);
    mark.SetText(LocalizedString(stringNumber));
}

void MinMaxBar::Show(const MinMaxBarDisplay& values, const BarPositions& positions) {
    ShowPositions(positions);
    MinMaxBarDisplay next = values;
    if (!values.IsValid()) {
        const char16_t* none = LocalizedString(kNotAvailable);
        next.minimum.text = next.maximum.text = ComposedText<48>().Add(none).Units();
        next.label = ComposedText<40>().Add(none).Units();
        next.present.text = {};
    }
    ShowText(m_minimum, m_shown.minimum.text, next.minimum.text);
    ShowText(m_maximum, m_shown.maximum.text, next.maximum.text);
    ShowText(m_label, m_shown.label, next.label);
    ShowText(m_present, m_shown.present.text, next.present.text);
}

void MinMaxBar::ShowPositions(const BarPositions& positions) {
    if (positions == m_positions) return;
    m_positions = positions;
    Invalidate(m_bar);
}

void MinMaxBar::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    PegScreen& screen = *toolkit.screen;
    screen.Fill(m_bar, kPaper);
    const int height = PegResources::BitmapHeight(kTrack);
    const int top = m_bar.top + (kBarHeight - height) / 2;
    screen.DrawBitmap(PointOf(kBarLeft, top), PegResources::GetBitmap(kTrack));
    const int from = MiddleOf(kMinimumMarker, m_positions.minimum);
    const int to = MiddleOf(kMaximumMarker, m_positions.maximum);
    screen.Fill(RectOf(std::min(from, to), top, std::max(from, to), top + height - 1),
                PegResources::GetColor(kSpanColor));
    DrawMarker(kPresentMarker, m_positions.present, m_bar.top);
    DrawMarker(kMinimumMarker, m_positions.minimum, m_bar.top);
    DrawMarker(kMaximumMarker, m_positions.maximum, m_bar.top);
    DrawChildren(invalid);
}
