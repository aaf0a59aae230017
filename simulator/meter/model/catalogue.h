#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "simulator/meter/model/quantity.h"

/// Every register that a screen, a setting or the display configuration names.
namespace meter {

enum class Kind : std::uint8_t {
    Reading,       // a quantity of the running model, or one of its statistics
    Choice,        // one of `items`; the display may choose another
    Number,        // `low` to `high` with `decimals`
    Seconds,       // a signed number of seconds
    Address,       // dotted IPv4 text, or "None"
    YesNo,         // "Yes" or "No"
    ReadOnlyText,  // text that only the meter changes
    Reset          // written with "1"
};

/// Which figure of a quantity a register shows. All but Now come with the time at which they arose or began.
enum class Aspect : std::uint8_t { Now, Minimum, Maximum, Mean, Deviation, PreviousMaximum };

/// What a reset register clears.
enum class ResetScope : std::uint8_t {
    None,
    InputCounters,
    Disturbances,
    Energy,
    Harmonics,
    Everything,
    Extremes,
    OnTime,
    PeakDemand
};

using Items = std::span<const std::string_view>;

/// One register. Only the fields of its kind are set; `preset` is the text it holds when the meter leaves the factory.
struct Register {
    std::uint16_t id = 0;
    Kind kind = Kind::Reading;
    std::string_view label;
    Unit unit = Unit::None;
    Quantity quantity = Quantity::None;
    Aspect aspect = Aspect::Now;
    std::string_view preset = {};
    Items items = {};
    double low = 0;
    double high = 0;
    std::uint8_t decimals = 0;
    ResetScope reset = ResetScope::None;
};

/// All registers in rising order of their ids.
std::span<const Register> Catalogue();

/// @return the register, or null when the meter has none of that id
const Register* FindRegister(std::uint32_t id);

/// Ids of the registers that the meter itself acts on.
namespace reg {
inline constexpr std::uint16_t kActiveIpAddress = 26, kActiveIpGateway = 27, kActiveIpMask = 28;
inline constexpr std::uint16_t kActiveIpv6Gateway = 29, kActiveIpv6Address = 30;
inline constexpr std::uint16_t kBacklightTimeout = 54;
inline constexpr std::uint16_t kCtPrimary = 111, kCtSecondary = 112;
inline constexpr std::uint16_t kCurrentDecimals = 113, kPowerDecimals = 2364, kVoltageDecimals = 3718;
inline constexpr std::uint16_t kCustomScroll = 114, kNormalScroll = 1946;
inline constexpr std::uint16_t kDateFormat = 145, kTimeFormat = 2601;
inline constexpr std::uint16_t kDigitGrouping = 166, kPowerFactorSign = 2033;
inline constexpr std::uint16_t kDaylightSaving = 177, kTimeZone = 2616;
inline constexpr std::uint16_t kNeutralCtPrimary = 1215, kNeutralCtSecondary = 1216;
inline constexpr std::uint16_t kPolarityI4 = 1347, kPolarityI1 = 1358, kPolarityI2 = 1359, kPolarityI3 = 1360;
inline constexpr std::uint16_t kPolarityV1 = 3676, kPolarityV2 = 3679, kPolarityV3 = 3680;
inline constexpr std::uint16_t kNominalCurrent = 354, kNominalFrequency = 1945, kNominalVoltage = 2658;
inline constexpr std::uint16_t kPtPrimary = 2461, kPtSecondary = 2462;
inline constexpr std::uint16_t kLanguage = 1914, kPhaseLabels = 2062, kSymbols = 1919;
inline constexpr std::uint16_t kPhaseOrder = 2063, kWiring = 3717;
inline constexpr std::uint16_t kActiveRate = 2608, kActiveSeason = 2609, kRateMode = 2610, kNextRateChange = 2611;
inline constexpr std::uint16_t kHarmonicsShown = 3900;
inline constexpr std::uint16_t kStoredIpAddress = 2590, kStoredIpGateway = 2591, kStoredIpMask = 2592;
inline constexpr std::uint16_t kStoredIpv6Gateway = 2593, kStoredIpv6Address = 2594;
}  // namespace reg

}  // namespace meter
