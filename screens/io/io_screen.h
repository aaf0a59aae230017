#pragma once

#include <array>

#include "navigation/widgets/table_row.h"
#include "peg/core/holder.h"
#include "peg/widgets/prompt.h"
#include "screens/base/data_screen.h"
#include "screens/io/io_table.h"

/// Shows the meter's input or output points as a table of four a page; soft keys 2 and 3 turn the pages.
///
/// Reads the number of points and those of the page once a second and with every key. Without points, or when a call
/// failed, it says so; the next refresh recovers. A page that the meter no longer has gives way to the last one.
/// Toolkit task only; lives as long as the process.
class ioScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit ioScrnClass(const IoScreenRow& row);

    void UpdateScreenData() override;
    void SoftKey2Action() override;
    void SoftKey3Action() override;

private:
    static constexpr std::uint32_t kPageSize = 4;
    using CellText = std::array<char16_t, 45>;

    enum class PageCommand { Previous, Same, Next };

    void FetchAndShow(PageCommand command);

    /// Reads the page into the buffer. @return how many points it has; 0 when there are none or a call failed
    std::size_t Fetch(PageCommand command);
    void ShowPoints(std::span<const IoPointEntry> points);
    void ShowNoData();
    void ShowHeadings();
    void ShowCell(std::size_t row, std::size_t column, std::string_view text);

    const IoScreenRow& m_row;
    std::uint32_t m_page = 0;
    bool m_atFirst = true;
    bool m_atLast = true;
    std::array<IoPointEntry, kPageSize> m_points{};
    std::array<std::array<CellText, kIoColumns>, kPageSize> m_texts{};
    tableRowClass& m_table;
    PegHolder<PegPrompt> m_noData;
};

/// Creates the I/O screens and registers them with the navigation handler.
void CreateIoScreens();
