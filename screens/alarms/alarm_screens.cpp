#include "screens/alarms/alarm_screens.h"

#include <cstdio>

#include "navigation/navigation_handler.h"

namespace {

constexpr std::int32_t kActiveList = 7;
constexpr std::int32_t kActiveDetail = 8;
constexpr std::int32_t kHistoricalList = 9;
constexpr std::int32_t kHistoricalDetail = 10;

template <typename Screen, typename... Arguments>
Screen* Register(std::int32_t screenId, Arguments&&... arguments) {
    auto* screen = new Screen(std::forward<Arguments>(arguments)...);
    navigationHandlerClass::getInstance().addScreen(screenId, *screen, SCREEN_KIND_DATA);
    return screen;
}

template <typename List>
List* CreateList(std::int32_t screenId, AlarmListController& controller) {
    if (IsDataScreenId(screenId)) return Register<List>(screenId, screenId, controller);
    std::printf("\nFailed to add active alarm list screen\n");
    return nullptr;
}

void Link(almActiveListScrnClass* list, almDetailScrnClass* detail) {
    if (list != nullptr && detail != nullptr) list->SetDetailScreen(*detail);
}

}  // namespace

almActiveListScrnClass* CreateActiveAlarmList(std::int32_t screenId) {
    return CreateList<almActiveListScrnClass>(screenId, ActiveAlarmListController::getInstance());
}

almHistListScrnClass* CreateHistoricalAlarmList(std::int32_t screenId) {
    return CreateList<almHistListScrnClass>(screenId, HistoricalAlarmListController::getInstance());
}

almDetailScrnClass* CreateAlarmDetail(std::int32_t screenId) {
    if (!IsDataScreenId(screenId)) {
        std::printf("\nFailed to add alarm detail screen\n");
        return nullptr;
    }
    const AlarmDetailRow* places = AlarmDetailRowOf(screenId);
    if (places == nullptr) {
        std::printf("\nInvalid detail screen ID\n");
        return nullptr;
    }
    return Register<almDetailScrnClass>(screenId, *places);
}

void CreateActiveAlarmScreens() {
    almActiveListScrnClass* list = CreateActiveAlarmList(kActiveList);
    Link(list, CreateAlarmDetail(kActiveDetail));
}

void CreateHistoricalAlarmScreens() {
    almActiveListScrnClass* list = CreateHistoricalAlarmList(kHistoricalList);
    Link(list, CreateAlarmDetail(kHistoricalDetail));
}
