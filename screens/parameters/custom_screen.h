#pragma once

#include <array>

#include "peg/core/holder.h"
#include "peg/widgets/text_box.h"
#include "rda/records.h"
#include "screens/base/data_screen.h"
#include "screens/parameters/parameter_row.h"

struct CustomScreenRow;

/// Shows pages of up to six quantities that the meter composes, and turns them: by soft keys 2 and 3, and by itself as
/// often as the meter's scroll settings say.
///
/// Reads the page again every second. Without a valid page it says so; the next refresh recovers.
class custParamScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit custParamScrnClass(std::int32_t screenId);

    std::int32_t Message(const PegMessage& message) override;
    void UpdateScreenData() override;
    void SoftKey2Action() override;
    void SoftKey3Action() override;

private:
    void Fetch(std::uint32_t pageCommand);
    void FetchAndShow(std::uint32_t pageCommand);
    void ShowPage();
    void ShowNoData();
    void LayOut(std::uint32_t rows);
    void TurnPage(std::uint32_t pageCommand);
    void CountDown();
    void ScrollByTime();

    const CustomScreenRow& m_row;
    CustomScreenData m_page{};
    std::array<ParameterRow, kMostParameters> m_rows;
    PegHolder<PegTextBox> m_noData;
    std::uint32_t m_layout = 0;  // rows that are on the screen
    int m_customPeriod;          // ticks between pages; 0: none
    int m_normalPeriod;
    int m_countdown = -1;  // ticks; negative: stopped
};

/// Creates the custom screens and registers them with the navigation handler.
void CreateCustomScreens();
