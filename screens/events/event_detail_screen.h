#pragma once

#include "peg/widgets/text_box.h"
#include "screens/base/data_screen.h"
#include "screens/events/event_page.h"
#include "screens/lists/detail_field.h"

class eventLogScrnClass;

/// Shows one event of the log with all its fields. Soft key 2 steps to the newer one, soft key 3 to the older one, soft
/// key 1 back to the list, which then stands at this event.
///
/// Reads the event when it is chosen or stepped to. When that fails the fields are empty until a later refresh reads
/// it.
class eventDetailScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit eventDetailScrnClass(std::int32_t screenId);

    void UpdateScreenData() override;
    void SoftKey1Action() override;
    void SoftKey2Action() override;
    void SoftKey3Action() override;

    void SetListScreen(eventLogScrnClass& list) { m_list = &list; }

    /// The next refresh reads the event of that index.
    void ShowFrom(std::uint32_t index);

private:
    void Step(ScrollStep step);
    void Take(int status);
    void Show();

    EventLogListController& m_controller;  // the process's
    EventPage m_page;
    std::uint32_t m_index = 0;
    bool m_showFrom = false;
    DetailField m_date;
    DetailField m_time;
    DetailField m_source;
    DetailLabel m_descriptionLabel;
    PegTextBox& m_description;
    eventLogScrnClass* m_list = nullptr;  // another screen, which the process keeps
};
