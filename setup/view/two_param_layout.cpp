#include "setup/view/two_param_layout.h"

#include "navigation/geometry.h"

namespace {
constexpr int kFirstNameTop = Share(kPanelHeight, 0.25);
constexpr int kFirstValueTop = Divided(kPanelHeight, 2.66);
constexpr int kSecondNameTop = Divided(kPanelHeight, 1.71);
constexpr int kSecondValueTop = Divided(kPanelHeight, 1.41);
static_assert(kFirstNameTop == 60 && kFirstValueTop == 90 && kSecondNameTop == 140 && kSecondValueTop == 170);
}  // namespace

SV5_twoParamLayout::SV5_twoParamLayout(PegThing& screen)
    : m_first(screen, kFirstNameTop, kFirstValueTop), m_second(screen, kSecondNameTop, kSecondValueTop) {}

void SV5_twoParamLayout::update(const LargeSettingText* record) {
    if (record == nullptr) return;
    m_first.Show(record[0]);
    m_second.Show(record[1]);
}
