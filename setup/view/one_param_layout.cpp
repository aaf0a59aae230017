#include "setup/view/one_param_layout.h"

#include "navigation/geometry.h"

namespace {
constexpr int kNameTop = Divided(kPanelHeight, 2.52);
constexpr int kValueTop = Divided(kPanelHeight, 1.92);
static_assert(kNameTop == 95 && kValueTop == 125);
}  // namespace

SV5_oneParamLayout::SV5_oneParamLayout(PegThing& screen) : m_setting(screen, kNameTop, kValueTop) {}

void SV5_oneParamLayout::update(const LargeSettingText* record) {
    if (record != nullptr) m_setting.Show(*record);
}
