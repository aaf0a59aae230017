#pragma once

#include "navigation/widgets/composed_text.h"
#include "screens/events/event_log_list_controller.h"
#include "screens/events/event_page.h"
#include "screens/lists/list_screen.h"

class eventDetailScrnClass;

/// Lists the event log, newest first, four entries at a time: what happened and when.
///
/// Reads count and page once a second. At the top it follows new events; further down the entries on view stay there.
/// While the meter is silent the list is empty.
class eventLogScrnClass : public ListScreen {
public:
    explicit eventLogScrnClass(std::int32_t screenId);

    void UpdateScreenData() override;

    void SetDetailScreen(eventDetailScrnClass& detail) { m_detail = &detail; }

    /// The next refresh shows the page from that event on, with the event selected.
    void RestoreFrom(std::uint32_t index);

private:
    struct RowTexts {
        PegBitmapPrompt* event;  // on the row's prompt
        PegBitmapPrompt* when;
        ShownText<50> eventText;
        ShownText<24> whenText;
    };

    const ListPage& Page() const override { return m_page; }
    void Scroll(ScrollStep step) override;
    void PrepareDetail(std::uint32_t row) override;
    bool HasDetailScreen() const override { return m_detail != nullptr; }
    void AddTexts(std::uint32_t row);
    void Restore();
    void Show(int status);
    void ShowRow(std::uint32_t row);

    EventLogListController m_controller{kRows};
    EventPage m_page;
    std::uint32_t m_restoreIndex = 0;
    bool m_restore = false;
    std::array<RowTexts, kRows> m_texts{};
    eventDetailScrnClass* m_detail = nullptr;  // another screen, which the process keeps
};
