#include "screens/harmonics/harmonic_screen.h"

#include <algorithm>
#include <string_view>

#include "localization/localization.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/rule.h"
#include "navigation/widgets/show_text.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"
#include "screens/base/column_span.h"

namespace {

/// Which channel of the meter a screen shows.
struct HarmonicScreenRow {
    std::int32_t screen;
    std::uint32_t channel;
};
// clang-format off
constexpr auto kHarmonicScreenRows = std::to_array<HarmonicScreenRow>({
    {.screen = 61, .channel = 0},
    {.screen = 62, .channel = 1},
    {.screen = 63, .channel = 2},
    {.screen = 64, .channel = 4},
    {.screen = 65, .channel = 5},
    {.screen = 66, .channel = 6},
    {.screen = 67, .channel = 7},
});
// clang-format on
static_assert(AllDiffer(kHarmonicScreenRows, &HarmonicScreenRow::screen));
static_assert(AllDiffer(kHarmonicScreenRows, &HarmonicScreenRow::channel));
static_assert(std::ranges::all_of(kHarmonicScreenRows, IsDataScreenId, &HarmonicScreenRow::screen));

/// Where a figure stands, and what it is called. A figure without a text of the meter's has one of the screen's own.
struct FigureRow {
    std::uint32_t label;  // string number
    ColumnSpan labelColumns;
    ColumnSpan valueColumns;
    std::int16_t top;
    std::uint32_t font;
};
enum FigurePlace : std::size_t { kDistortion, kEvenDistortion, kOddDistortion, kOrder, kMagnitude, kAngle };
// clang-format off
constexpr std::array<FigureRow, 6> kFigureRows = {{
    {.label = 143, .labelColumns = {1, 86},    .valueColumns = {87, 132},  .top = 57, .font = 34},
    {.label = 132, .labelColumns = {133, 184}, .valueColumns = {185, 230}, .top = 57, .font = 34},
    {.label = 274, .labelColumns = {231, 271}, .valueColumns = {272, 317}, .top = 57, .font = 34},
    {.label = 144, .labelColumns = {1, 75},    .valueColumns = {76, 93},   .top = 81, .font = 33},
    {.label = 146, .labelColumns = {98, 130},  .valueColumns = {131, 231}, .top = 81, .font = 33},
    {.label = 142, .labelColumns = {232, 270}, .valueColumns = {271, 319}, .top = 81, .font = 33},
}};
// clang-format on
constexpr std::uint32_t kOtherDistortionLabel = 145;  // of currents
constexpr std::size_t kLongestLabel = 19;
constexpr std::int32_t kSmallestFont = 32;

constexpr std::uint32_t kAxisFont = 32;
constexpr int kAxisLabelRight = kChartLeft - 1;
constexpr int kAxisMiddle = 154;
constexpr int kAxisFoot = kChartBottom - 2;

constexpr int kRuleLine = Divided(kPanelHeight, 9.6) + Divided(kPanelHeight, 4.21) - kLineThickness;
static_assert(kAxisFoot == 198 && kRuleLine == 80);

constexpr std::uint32_t kLeft = kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kRight = kStyleTextRight | kStyleBorderNone;

constexpr std::size_t kBackKey = 1;
constexpr std::size_t kForwardKey = 2;

int HeightOfFont(std::uint32_t font) { return PegScreen::FontHeight(PegResources::GetFont(font)); }

std::uint32_t ChannelOf(std::int32_t screenId) {
    const HarmonicScreenRow* row = FindRow(kHarmonicScreenRows, &HarmonicScreenRow::screen, screenId);
    return row != nullptr ? row->channel : kHarmonicScreenRows.front().channel;
}

BarLayout AskForLayout() {
    std::uint32_t harmonics = 0;
    const bool told = DISPLAYFEATURES_getNumHarmonicsDisplayed(harmonics) == 0;
    return BarLayoutFor(told ? harmonics : 0);
}

template <std::size_t size>
std::array<char16_t, size> LabelText(std::uint32_t stringNumber) {
    const auto label = ComposedText<kLongestLabel + 1>().Add(LocalizedString(stringNumber));
    return ComposedText<size>().Add(label.Text()).Add(u":").Units();
}

}  // namespace

harmonicDiagramScrnClass::harmonicDiagramScrnClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId),
      m_channel(ChannelOf(screenId)),
      m_layout(AskForLayout()),
      m_figures(AddFigures(std::make_index_sequence<kFigures>())),
      m_axisLabels(AddAxisLabels()),
      m_chart(AddNew<HarmonicChart>(*this, m_figures.back().value.Real().bottom + 1, m_layout, AccentColor())) {
    static_assert(kFigureRows.size() == kFigures);
    AddNew<Rule>(*this, RectOf(1, kRuleLine, kPanelWidth - 1, kRuleLine), AccentColor());
    SetSoftKeyImages(kBackKey, KeyImage::Left);
    SetSoftKeyImages(kForwardKey, KeyImage::Right);
    EnableSoftKey(kBackKey, true);
    EnableSoftKey(kForwardKey, true);
}

harmonicDiagramScrnClass::Figure harmonicDiagramScrnClass::AddFigure(std::size_t index) {
    const FigureRow& row = kFigureRows[index];
    const auto add = [&](const ColumnSpan& columns, std::uint32_t style) -> dataPegPromptClass& {
        const PegRect place = RectOf(columns.left, row.top, columns.right, row.top + HeightOfFont(row.font));
        auto& prompt = AddNew<dataPegPromptClass>(*this, place, nullptr, std::uint16_t{0}, style);
        prompt.SetFontNumber(row.font);
        prompt.setFitFont(0, static_cast<std::int32_t>(row.font) - 1);
        if (row.font - 1 > kSmallestFont) prompt.setFitFont(1, kSmallestFont);
        return prompt;
    };
    const Figure figure{.label = add(row.labelColumns, kRight), .value = add(row.valueColumns, kLeft)};
    figure.label.setOverflowFrame(false);
    return figure;
}

std::array<harmonicDiagramScrnClass::AxisLabel, harmonicDiagramScrnClass::kAxisLabels>
harmonicDiagramScrnClass::AddAxisLabels() {
    const int height = HeightOfFont(kAxisFont);
    const auto add = [&](int top) -> custPpromptClass& {
        const PegRect place = RectOf(0, top, kAxisLabelRight, top + height - 1);
        auto& prompt = AddNew<custPpromptClass>(*this, place, nullptr, std::uint16_t{0}, kRight);
        prompt.SetFontNumber(kAxisFont);
        return prompt;
    };
    return {{{add(kChartTop + 1)}, {add(kAxisMiddle - height / 2)}, {add(kAxisFoot - height + 1)}}};
}

void harmonicDiagramScrnClass::UpdateScreenData() {
    HarmonicDisplay spectrum;
    static_cast<void>(
        meterAccessClass::getInstance().readHarmonics(m_channel, static_cast<std::uint32_t>(m_selected), spectrum));
    m_chart.Show(spectrum, m_selected);
    ShowText(m_axisLabels[0].prompt, m_axisLabels[0].text, spectrum.Text(HarmonicText::AxisTop));
    ShowText(m_axisLabels[1].prompt, m_axisLabels[1].text, spectrum.Text(HarmonicText::AxisMiddle));
    ShowText(m_axisLabels[2].prompt, m_axisLabels[2].text, spectrum.Text(HarmonicText::AxisBottom));
    ShowFigures(spectrum);
}

void harmonicDiagramScrnClass::ShowFigures(const HarmonicDisplay& spectrum) {
    constexpr std::size_t kLabelSize = std::tuple_size_v<decltype(Figure::labelText)>;
    constexpr std::size_t kValueSize = std::tuple_size_v<decltype(Figure::valueText)>;
    for (std::size_t i = 0; i < kFigures; ++i) {
        const bool other = i == kDistortion && spectrum.labelChoice == 1;
        const std::uint32_t label = other ? kOtherDistortionLabel : kFigureRows[i].label;
        ShowText(m_figures[i].label, m_figures[i].labelText, LabelText<kLabelSize>(label));
    }
    const auto show = [&](FigurePlace place, const std::array<char16_t, kValueSize>& text) {
        ShowText(m_figures[place].value, m_figures[place].valueText, text);
    };
    const auto text = [&](HarmonicText place) { return std::u16string_view(spectrum.Text(place).data()); };
    const std::u16string_view magnitude = text(HarmonicText::Fourth);
    const std::u16string_view share = text(HarmonicText::FourthInParentheses);
    const bool hasMagnitude = !magnitude.empty() || !share.empty();
    show(kDistortion, ComposedText<kValueSize>().Add(text(HarmonicText::First)).Units());
    show(kEvenDistortion, ComposedText<kValueSize>().Add(text(HarmonicText::Second)).Units());
    show(kOddDistortion, ComposedText<kValueSize>().Add(text(HarmonicText::Third)).Units());
    show(kOrder, ComposedText<kValueSize>().AddNumber(static_cast<std::uint32_t>(m_selected + 1)).Units());
    show(kMagnitude, hasMagnitude ? ComposedText<kValueSize>().Add(magnitude).Add(u" (").Add(share).Add(u")").Units()
                                  : ComposedText<kValueSize>().Units());
    show(kAngle, ComposedText<kValueSize>().Add(text(HarmonicText::Fifth)).Units());
}

void harmonicDiagramScrnClass::SoftKey2Action() {
    m_selected = (m_selected == 0 ? m_layout.harmonics : m_selected) - 1;
    UpdateScreenData();
}

void harmonicDiagramScrnClass::SoftKey3Action() {
    m_selected = m_selected + 1 < m_layout.harmonics ? m_selected + 1 : 0;
    UpdateScreenData();
}

void CreateHarmonicScreens() {
    for (const HarmonicScreenRow& row : kHarmonicScreenRows) {
        navigationHandlerClass::getInstance().addScreen(row.screen, *new harmonicDiagramScrnClass(row.screen),
                                                        SCREEN_KIND_DATA);
    }
}
