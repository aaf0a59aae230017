#include "simulator/meter/model/catalogue.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;

// What the display's tables ask for, kind by kind of screen.
// clang-format off
constexpr auto kParameterScreens = std::to_array<std::uint32_t>({
    3708, 298, 1890, 2055, 3705, 3711, 3714, 3681, 3693, 3699, 2675, 3687, 284, 312, 326, 273, 1872, 1707, 1542, 1749,
    1584, 1419, 1750, 1585, 1420, 1751, 1586, 1421, 2052, 2053, 2054, 204, 1880, 1882, 1884, 1886, 3008, 3338, 3668, 640,
    922, 1204, 200, 2368, 2367, 2366, 2658, 2374, 2373, 2372, 2393, 2392, 2391, 2412, 2411, 2410, 1942, 2383, 2384, 2385,
    2402, 2403, 2404, 2421, 2422, 2423, 2378, 2379, 2397, 2398, 2416, 2417, 210, 212, 214, 211, 2989, 2991, 2993, 2990,
    3319, 3321, 3323, 3320, 3649, 3651, 3653, 3650, 3719, 3721, 3720, 2970, 2972, 2974, 2971, 3300, 3302, 3304, 3301,
    3630, 3632, 3634, 3631, 2714, 2716, 2715, 3044, 3046, 3045, 3374, 3376, 3375, 3717, 114, 1946,
});
constexpr auto kMinMaxScreens = std::to_array<std::uint32_t>({
    3685, 3697, 3703, 3686, 3698, 3704, 3706, 3712, 3715, 3707, 3713, 3716, 289, 317, 331, 290, 318, 332, 1346, 1345, 1877,
    1712, 1547, 1876, 1711, 1546, 2049, 2040, 2050, 2041, 1807, 1646, 1477, 1808, 1809, 1810, 1811, 1816, 1655, 1486, 1817,
    1818, 1819, 1820, 3691, 3692, 303, 304, 3709, 3710, 2679, 2680, 208, 209,
});
constexpr auto kMetrologicalScreens = std::to_array<std::uint32_t>({
    1890, 1725, 1560, 1878, 1713, 1548, 1900, 1735, 1570, 1780, 1615, 1450, 1842, 1677, 1512,
});
constexpr auto kSetupScreens = std::to_array<std::uint32_t>({
    3717, 2063, 3676, 3679, 3680, 1358, 1359, 1360, 1347, 2658, 354, 1945, 1409, 2590, 2592, 2591, 1916, 26, 28, 27, 1410,
    1412, 2594, 2593, 30, 29, 198, 172, 2430, 2517, 94, 93, 97, 99, 98, 95, 101, 100, 103, 105, 104, 106, 108, 1947, 2521,
    54, 2062, 1919, 2033, 166, 3718, 113, 2364, 2601, 145, 2616, 177, 78, 2604, 2605, 2608, 2609, 2610, 2611, 2512, 2513,
    2514, 2515, 1914, 2461, 2462, 111, 112, 1215, 1216,
});
constexpr auto kChoices = std::to_array<std::uint32_t>({
    3717, 2063, 3676, 3679, 3680, 1358, 1359, 1360, 1347, 1945, 1409, 1410, 94, 93, 98, 95, 101, 100, 104, 106, 1914, 2062,
    1919, 166, 3718, 113, 2364, 2033, 2601, 145, 78, 2604, 2605,
});
constexpr auto kMasks = std::to_array<std::uint32_t>({
    2461, 2462, 111, 112, 1215, 1216, 2658, 354, 2590, 2592, 2591, 99, 105, 108, 54, 97, 103, 2616, 177,
});
constexpr auto kYesNo = std::to_array<std::uint32_t>({180, 181, 182, 184, 192, 185, 188, 189, 191, 194, 197, 196, 193});
constexpr auto kResets = std::to_array<std::uint32_t>({1917, 2031, 1922, 167, 228, 169, 178, 1969});
// clang-format on

class CatalogueOfRegisters : public testing::Test {
protected:
    Meter m_meter{bench::kSeed, bench::kStart};
};

TEST_F(CatalogueOfRegisters, HoldsEveryRegisterOfTheScreens) {
    for (const auto& ids :
         {std::span<const std::uint32_t>(kParameterScreens), std::span<const std::uint32_t>(kMinMaxScreens),
          std::span<const std::uint32_t>(kMetrologicalScreens), std::span<const std::uint32_t>(kSetupScreens)})
        for (std::uint32_t id : ids) {
            const RegisterValue value = bench::Get(m_meter, id);
            EXPECT_FALSE(TextIn(value.label).empty()) << id;
            EXPECT_FALSE(TextIn(value.value).empty()) << id;
        }
    EXPECT_TRUE(TextIn(bench::Get(m_meter, 3728).label).empty());
}

TEST_F(CatalogueOfRegisters, DatesTheExtremes) {
    for (std::uint32_t id : kMinMaxScreens) {
        EXPECT_EQ(TextIn(bench::Get(m_meter, id).date).size(), 10U) << id;
        EXPECT_EQ(TextIn(bench::Get(m_meter, id).time).size(), 8U) << id;
    }
}

TEST_F(CatalogueOfRegisters, OffersChoicesWhereTheDisplayEditsThem) {
    for (std::uint32_t id : kChoices) {
        const auto data = bench::Ask<EnumerationData>(m_meter, "PDMINTERFACE_getEnumerationData", bench::Words({id}));
        ASSERT_EQ(data.result.Get(), 0U) << id;
        ASSERT_GE(data.count.Get(), 2U) << id;
        ASSERT_LE(data.count.Get(), kMaxEnumerationItems) << id;
        EXPECT_EQ(TextIn(data.items[data.current.Get()]), TextIn(bench::Get(m_meter, id).value)) << id;
    }
    const auto none = bench::Ask<EnumerationData>(m_meter, "PDMINTERFACE_getEnumerationData", bench::Words({3705}));
    EXPECT_NE(none.result.Get(), 0U);
}

TEST_F(CatalogueOfRegisters, TakesBackWhatItShows) {
    ASSERT_EQ(bench::LogIn(m_meter, "USER", "0"), 0U);
    for (const auto& ids : {std::span<const std::uint32_t>(kChoices), std::span<const std::uint32_t>(kMasks),
                            std::span<const std::uint32_t>(kYesNo)})
        for (std::uint32_t id : ids) {
            const std::string held(TextIn(bench::Get(m_meter, id).value));
            EXPECT_EQ(bench::Set(m_meter, id, held).result.Get(), 0U) << id << " " << held;
            EXPECT_EQ(TextIn(bench::Get(m_meter, id).value), held) << id;
        }
    for (std::uint32_t id : kResets) EXPECT_EQ(bench::Set(m_meter, id, "1").result.Get(), 0U) << id;
}

}  // namespace
