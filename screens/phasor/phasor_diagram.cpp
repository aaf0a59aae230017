#include "screens/phasor/phasor_diagram.h"

#include <algorithm>

#include "navigation/table_proofs.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"
#include "screens/phasor/phasor_arrow.h"

namespace {

/// Which of the meter's phasors have an arrow, and its colour. Further back first.
struct ArrowRow {
    std::size_t phasor;
    std::uint32_t color;
};
// clang-format off
constexpr auto kArrowRows = std::to_array<ArrowRow>({
    {.phasor = 0, .color = 1},
    {.phasor = 1, .color = 2},
    {.phasor = 2, .color = 4},
    {.phasor = 4, .color = 5},
    {.phasor = 5, .color = 10},
    {.phasor = 6, .color = 6},
});
// clang-format on
static_assert(kArrowRows.size() == PhasorDiagram::kArrows);
static_assert(AllDiffer(kArrowRows, &ArrowRow::phasor) && AllDiffer(kArrowRows, &ArrowRow::color));

constexpr ArrowPoint kCentre{78, 78};  // in the diagram
constexpr std::uint16_t kPaper = 0xFFFF;
constexpr std::uint32_t kScaleColor = 7;
constexpr std::uint32_t kDotColor = 15;
constexpr int kDotRadius = 3;
constexpr int kArrowWidth = 2;

PegBrush BrushOf(std::uint32_t color, int width = 1, std::uint32_t style = 0) {
    return {PegResources::GetColor(color), PegResources::GetColor(kDotColor), style, width};
}

void DrawArrow(ArrowPoint centre, const PhasorArrow& arrow, std::uint32_t color) {
    PegScreen& screen = *toolkit.screen;
    const PegBrush head = BrushOf(color, kArrowWidth, PegBrush::kCentred);
    const PegBrush shaft = BrushOf(color, kArrowWidth + (arrow.alongAnAxis ? 1 : 0), PegBrush::kCentred);
    const ArrowPoint tip{centre.x + arrow.tip.x, centre.y + arrow.tip.y};
    screen.DrawLine(centre.x, centre.y, tip.x, tip.y, shaft);
    for (const ArrowPoint& barb : arrow.barbs) {
        screen.DrawLine(tip.x, tip.y, centre.x + barb.x, centre.y + barb.y, head);
    }
}

}  // namespace

PhasorDiagram::PhasorDiagram(const PegRect& rect) : PegThing(rect) {
    ClearStatusBits(STAT_SELECTABLE | STAT_ACCEPTS_FOCUS);
}

void PhasorDiagram::Show(std::span<const PhasorDisplay> phasors) {
    decltype(m_phasors) next{};
    for (std::size_t i = 0; i < kArrows; ++i) {
        const std::size_t place = kArrowRows[i].phasor;
        if (place >= phasors.size() || phasors[place].shown != 1) continue;
        next[i] = {.shown = true, .magnitude = phasors[place].magnitude, .angle = phasors[place].angle};
    }
    if (next == m_phasors) return;
    m_phasors = next;
    Invalidate();
}

std::int32_t PhasorDiagram::LongestMagnitude() const {
    std::int32_t longest = 0;
    for (const Phasor& phasor : m_phasors) longest = std::max(longest, phasor.magnitude);
    return longest;
}

void PhasorDiagram::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    PegScreen& screen = *toolkit.screen;
    const PegRect area = Real();
    const ArrowPoint centre{area.left + kCentre.x, area.top + kCentre.y};
    const PegBrush scale = BrushOf(kScaleColor);
    screen.Fill(area, kPaper);
    screen.DrawCircle(centre.x, centre.y, kPhasorRadius + 1, scale);
    screen.DrawLine(area.left, centre.y, area.right, centre.y, scale);
    screen.DrawLine(centre.x, area.top, centre.x, area.bottom, scale);
    const std::int32_t longest = LongestMagnitude();
    for (std::size_t i = 0; i < kArrows; ++i) {
        const Phasor& phasor = m_phasors[i];
        if (!phasor.shown) continue;
        DrawArrow(centre, ArrowOf(phasor.magnitude, longest, phasor.angle), kArrowRows[i].color);
    }
    screen.DrawCircle(centre.x, centre.y, kDotRadius, BrushOf(kDotColor, 1, PegBrush::kFill));
}
