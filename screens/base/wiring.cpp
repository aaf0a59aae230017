#include "screens/base/wiring.h"

#include <string_view>

#include "navigation/meter_access.h"

namespace {
constexpr std::uint32_t kWiringRegister = 3717;
constexpr std::string_view kDeltaWiring = "DELTA";
}  // namespace

bool IsWiredInDelta() {
    RegisterValue wiring{};
    static_cast<void>(meterAccessClass::getInstance().readRegisterRaw(kWiringRegister, wiring));
    return TextIn(wiring.value).starts_with(kDeltaWiring);
}
