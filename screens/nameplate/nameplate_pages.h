#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "rda/records/identity.h"

inline constexpr std::size_t kNameplateRows = 6;
inline constexpr std::size_t kNameplatePages = 6;

/// One row of a nameplate page: a label, a field of the meter's nameplate and what follows it.
struct NameplateRow {
    std::uint32_t label;  // string number
    std::size_t field;
    std::uint32_t unit = 0;  // string number; 0: none
};

/// One page of the nameplate, from the top row down.
class NameplatePage {
public:
    constexpr NameplatePage(std::initializer_list<NameplateRow> rows) : m_count(rows.size()) {
        std::copy(rows.begin(), rows.end(), m_rows.begin());
    }
    constexpr std::span<const NameplateRow> Rows() const { return std::span(m_rows).first(m_count); }

private:
    std::array<NameplateRow, kNameplateRows> m_rows{};
    std::size_t m_count;
};
using NameplatePages = std::array<NameplatePage, kNameplatePages>;

inline constexpr std::uint32_t kMegabytes = 292;  // with the blank that parts it from its number

inline constexpr NameplatePage kIdentityPage = {{278, 3}, {333, 4}, {334, 5}, {301, 1}, {220, 0}};
inline constexpr NameplatePage kIdentityPageWithoutModel = {{278, 3}, {333, 4}, {334, 5}, {301, 1}};
inline constexpr NameplatePage kMeterPage = {{138, 7}, {140, 2}, {139, 15}, {293, 6, kMegabytes}};
inline constexpr NameplatePage kFirmwarePage = {{547, 16}, {548, 17}};
inline constexpr NameplatePage kRatingsPage = {{535, 9}, {268, 11}, {266, 12}, {267, 10}, {291, 13}, {112, 14}};
inline constexpr NameplatePage kNetworkPage = {{549, 18}, {550, 19}, {551, 20}, {552, 21}};
inline constexpr NameplatePage kAccuracyPage = {{553, 22}};

inline constexpr NameplatePages kBasicNameplatePages = {kIdentityPage, kMeterPage,   kFirmwarePage,
                                                        kRatingsPage,  kNetworkPage, kAccuracyPage};
inline constexpr NameplatePages kMidNameplatePages = {
    kIdentityPageWithoutModel, kMeterPage, kFirmwarePage, kRatingsPage, kNetworkPage, kAccuracyPage};

/// How many rows show a field.
constexpr std::ptrdiff_t RowsOfField(const NameplatePages& pages, std::size_t field) {
    std::ptrdiff_t rows = 0;
    for (const NameplatePage& page : pages) rows += std::ranges::count(page.Rows(), field, &NameplateRow::field);
    return rows;
}

/// True when every field of the nameplate stands in one row, but for those that stand in none.
constexpr bool ShowOnceAllBut(const NameplatePages& pages, std::initializer_list<std::size_t> unshown) {
    for (std::size_t field = 0; field < kNameplateFields; ++field) {
        if (RowsOfField(pages, field) != (std::ranges::count(unshown, field) == 0 ? 1 : 0)) return false;
    }
    return std::ranges::all_of(pages, [](const NameplatePage& page) {
        return std::ranges::all_of(
            page.Rows(), [](std::size_t field) { return field < kNameplateFields; }, &NameplateRow::field);
    });
}
static_assert(ShowOnceAllBut(kBasicNameplatePages, {8}), "a field stands in two rows, or in none");
static_assert(ShowOnceAllBut(kMidNameplatePages, {0, 8}), "a field stands in two rows, or in none");
