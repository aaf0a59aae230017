#pragma once

#include "navigation/widgets/composed_text.h"
#include "screens/alarms/alarm_list_controller.h"
#include "screens/lists/list_screen.h"

class almDetailScrnClass;

/// Lists alarms, four at a time: their date, name and priority, and whether they have ended. Soft keys 2 and 3 together
/// acknowledge all of them.
///
/// Reads count and page once a second. While the meter is silent the list is empty.
class almActiveListScrnClass : public ListScreen {
public:
    almActiveListScrnClass(std::int32_t screenId, AlarmListController& controller);

    void UpdateScreenData() override;
    void InitScreenData() override;
    void SoftKey23Action() override;

    void SetDetailScreen(almDetailScrnClass& detail) { m_detail = &detail; }

private:
    const ListPage& Page() const override { return m_page; }
    void Scroll(ScrollStep step) override;
    void PrepareDetail(std::uint32_t row) override;
    bool HasDetailScreen() const override { return m_detail != nullptr; }
    void ShowCounts();
    void ShowRow(std::uint32_t row);

    AlarmListController& m_controller;
    AlarmPage m_page;
    std::array<ShownText<48>, kRows> m_texts;
    PegBitmapPrompt& m_alarmHeading;  // the strip, on which the others stand
    PegPrompt& m_dateHeading;
    PegPrompt& m_endHeading;
    static constexpr std::size_t kUnacknowledgedUnits = 64;

    PegPrompt& m_unacknowledged;
    ShownText<kUnacknowledgedUnits> m_unacknowledgedText;
    almDetailScrnClass* m_detail = nullptr;  // another screen, which the process keeps
};

/// Lists the alarms that have been, whether they are still on or not.
class almHistListScrnClass : public almActiveListScrnClass {
public:
    using almActiveListScrnClass::almActiveListScrnClass;
};
