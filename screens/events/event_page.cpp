#include "screens/events/event_page.h"

#include <algorithm>

#include "localization/localization.h"
#include "rda/meter_operations.h"
#include "screens/events/event_log_list_controller.h"

namespace {

using ModuleName = std::array<char, 40>;

/// The name of a module, empty when the meter does not tell.
ModuleName NameFrom(int (*fetch)(std::span<char>)) {
    ModuleName name{};
    if (fetch(name) != 0) name.fill('\0');
    return name;
}

/// Widens a whole field, also one without end: whoever reads it can see that it has none.
template <std::size_t size>
void WidenWhole(const std::array<char, size>& field, std::array<char16_t, size>& out) {
    out.fill(u'\0');
    std::ranges::transform(TextIn(field), out.begin(),
                           [](char letter) { return static_cast<char16_t>(static_cast<unsigned char>(letter)); });
}

}  // namespace

void FillEventPage(const EventLogListController& controller, EventPage& page, EventPageMode mode) {
    controller.FillPosition(page);
    ModuleName frontPanel{};
    ModuleName factory{};
    if (page.total != 0) {
        frontPanel = NameFrom(EVLIF_getFrontPanelModuleName);
        factory = NameFrom(EVLIF_getFactoryModuleName);
    }
    displayClass& texts = displayClass::getInstance();
    for (std::size_t i = 0; i < controller.Entries().size(); ++i) {
        const EventLogEntry& entry = controller.Entries()[i];
        EventRow& row = page.rows[i];
        WidenWhole(entry.date, row.date);
        WidenWhole(entry.time, row.time);
        const std::string_view source = TextIn(entry.source);
        const std::string_view description = TextIn(entry.description);
        const bool named = source != TextIn(factory) && source != TextIn(frontPanel);
        texts.translateInto(mode == EventPageMode::Detail || named ? source : description, row.source);
        texts.translateInto(description, row.description);
    }
}
