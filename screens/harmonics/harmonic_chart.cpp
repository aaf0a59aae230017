#include "screens/harmonics/harmonic_chart.h"

#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/custom_prompt.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint16_t kPaper = 0xFFFF;
constexpr std::uint32_t kEvenColor = 0x55;
constexpr std::uint32_t kOddColor = 0x56;
constexpr std::uint32_t kSelectedColor = 11;

constexpr PegPoint kOrigin = PointOf(kChartLeft + 1, kChartBottom - 1);
constexpr int kAxisRight = kChartRight - 1;
constexpr int kAxisTop = kChartTop + 1;
constexpr int kBarFoot = kOrigin.y - 4;
static_assert(kOrigin == PointOf(44, 199) && kAxisRight == 309 && kAxisTop == 111 && kBarFoot == 195);

constexpr std::uint32_t kNumberFont = 32;
constexpr int kNumbers = 6;
constexpr int kNumberTop = kOrigin.y - 1;
constexpr int kNumberWidth = 24;
constexpr std::uint32_t kNumberStyle = kStyleTransparent | kStyleBorderNone | kStyleTextRight | kStyleCopyText;

/// The last line of the numbers: they stand at the foot of their prompts, clear of the axis.
int NumberBottom() { return kNumberTop + PegScreen::FontHeight(PegResources::GetFont(kNumberFont)) + 1; }

PegRect ChartPlace(int top) { return RectOf(kChartLeft, top, kChartRight, NumberBottom()); }

}  // namespace

HarmonicChart::HarmonicChart(int top, const BarLayout& layout, std::uint32_t axisColor)
    : PegThing(ChartPlace(top)), m_layout(layout), m_axisColor(axisColor) {
    ClearStatusBits(STAT_SELECTABLE | STAT_ACCEPTS_FOCUS);
    AddNumbers();
}

void HarmonicChart::AddNumbers() {
    for (int i = 1; i <= kNumbers; ++i) {
        const int harmonic = i * (m_layout.harmonics / kNumbers);
        const int right = m_layout.Left(harmonic - 1);
        const PegRect place = RectOf(right - kNumberWidth, kNumberTop, right, NumberBottom());
        auto& number =
            AddNew<custPpromptClass>(*this, place, nullptr, std::uint16_t{0}, kNumberStyle, VerticalAlignment::Bottom);
        number.SetFontNumber(kNumberFont);
        number.SetText(ComposedText<12>().AddNumber(static_cast<std::uint32_t>(harmonic)).Text());
    }
}

void HarmonicChart::Show(const HarmonicDisplay& spectrum, int selected) {
    decltype(m_heights) heights{};
    for (std::size_t i = 0; i < heights.size(); ++i) {
        heights[i] = BarHeight(spectrum.magnitudes[i], spectrum.fullScale);
    }
    if (heights == m_heights && selected == m_selected) return;
    m_heights = heights;
    m_selected = selected;
    Invalidate();
}

void HarmonicChart::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    PegScreen& screen = *toolkit.screen;
    const std::uint16_t axisColor = PegResources::GetColor(m_axisColor);
    screen.Fill(Real(), kPaper);
    screen.Fill(RectOf(kOrigin.x, kOrigin.y, kAxisRight, kOrigin.y), axisColor);
    screen.Fill(RectOf(kOrigin.x, kAxisTop, kOrigin.x, kOrigin.y), axisColor);
    for (int i = 1; i < m_layout.harmonics; ++i) {
        const std::uint32_t color = i == m_selected ? kSelectedColor : i % 2 == 1 ? kEvenColor : kOddColor;
        const int left = m_layout.Left(i);
        const int top = kBarFoot - m_heights[static_cast<std::size_t>(i)];
        screen.Fill(RectOf(left, top, left + m_layout.width - 1, kBarFoot), PegResources::GetColor(color));
    }
    DrawChildren(invalid);
}
