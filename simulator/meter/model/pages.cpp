#include "simulator/meter/model/pages.h"

#include <algorithm>
#include <array>

#include "rda/records/register.h"
#include "simulator/meter/model/catalogue.h"

namespace meter {
namespace {

using Ids = std::uint16_t;

constexpr auto kPowerNow = std::to_array<Ids>({1872, 1707, 1542, 2055});
constexpr auto kEnergyIn = std::to_array<Ids>({1878, 1713, 1548});
constexpr auto kEnergyOut = std::to_array<Ids>({1900, 1735, 1570});
constexpr auto kLineVoltages = std::to_array<Ids>({3681, 3693, 3699});
constexpr auto kPhaseVoltages = std::to_array<Ids>({3705, 3711, 3714});
constexpr auto kCurrents = std::to_array<Ids>({284, 312, 326, 273});
constexpr auto kFrequencyOnly = std::to_array<Ids>({204});
constexpr auto kPeaks = std::to_array<Ids>({1807, 1486});
constexpr auto kOverview = std::to_array<Ids>({3687, 298, 1872, 1707, 2055});
constexpr auto kTariffs = std::to_array<Ids>({1880, 1882, 1884, 1886});
constexpr auto kDistortion = std::to_array<Ids>({3008, 3338, 3668, 640, 922, 1204});
constexpr auto kPhasePowers = std::to_array<Ids>({1749, 1750, 1751, 1584, 1585, 1586});
constexpr auto kTestEnergy = std::to_array<Ids>({1878, 1713});

// clang-format off
constexpr auto kNormalPages = std::to_array<Page>({
    {"Energy imported", kEnergyIn},
    {"Energy exported", kEnergyOut},
    {"Power",           kPowerNow},
    {"Voltages",        kPhaseVoltages},
    {"Line voltages",   kLineVoltages},
    {"Currents",        kCurrents},
    {"Frequency",       kFrequencyOnly},
    {"Peak demand",     kPeaks},
});
constexpr auto kCustomPages = std::to_array<Page>({
    {"Overview",        kOverview},
    {"Tariffs",         kTariffs},
    {"Distortion",      kDistortion},
    {"Power per phase", kPhasePowers},
});
constexpr auto kTestPages = std::to_array<Page>({
    {"Test energy", kTestEnergy},
    {"Test power",  kPowerNow},
});
// clang-format on

constexpr bool IsSound(const Page& page) {
    return !page.registers.empty() && page.registers.size() <= kMaxPageParameters && page.title.size() < 30;
}
static_assert(std::ranges::all_of(kNormalPages, IsSound) && std::ranges::all_of(kCustomPages, IsSound) &&
              std::ranges::all_of(kTestPages, IsSound));

}  // namespace

std::span<const Page> PagesOf(PageSet set) {
    switch (set) {
        case PageSet::Normal: return kNormalPages;
        case PageSet::Custom: return kCustomPages;
        case PageSet::Test: return kTestPages;
    }
    return {};
}

std::size_t PageCursor::Follow(std::uint32_t command, std::size_t pageCount) {
    if (command == kPagePrevious && m_index > 0) --m_index;
    if (command == kPageNext && m_index + 1 < pageCount) ++m_index;
    if (command == kPageFirst) m_index = 0;
    return m_index;
}

}  // namespace meter
