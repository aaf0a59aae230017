#include "screens/events/event_screens.h"

#include <cstdio>

#include "navigation/navigation_handler.h"

namespace {

constexpr std::int32_t kList = 69;
constexpr std::int32_t kDetail = 70;

template <typename Screen>
Screen* Create(std::int32_t screenId, const char* complaint) {
    if (!IsDataScreenId(screenId)) {
        std::printf("%s", complaint);
        return nullptr;
    }
    auto* screen = new Screen(screenId);
    navigationHandlerClass::getInstance().addScreen(screenId, *screen, SCREEN_KIND_DATA);
    return screen;
}

}  // namespace

eventLogScrnClass* CreateEventList(std::int32_t screenId) {
    return Create<eventLogScrnClass>(screenId, "\nFailed to add active alarm list screen\n");
}

eventDetailScrnClass* CreateEventDetail(std::int32_t screenId) {
    return Create<eventDetailScrnClass>(screenId, "\nFailed to add alarm detail screen\n");
}

void CreateEventScreens() {
    eventLogScrnClass* list = CreateEventList(kList);
    eventDetailScrnClass* detail = CreateEventDetail(kDetail);
    if (list == nullptr || detail == nullptr) return;
    list->SetDetailScreen(*detail);
    detail->SetListScreen(*list);
}
