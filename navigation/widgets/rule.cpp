#include "navigation/widgets/rule.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

Rule::Rule(const PegRect& rect, std::uint32_t color) : PegThing(rect) {
    SetColor(0, color);
    ClearStatusBits(STAT_SELECTABLE | STAT_ACCEPTS_FOCUS);
}

void Rule::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    toolkit.screen->Fill(Real(), PegResources::GetColor(GetColor(0)));
}
