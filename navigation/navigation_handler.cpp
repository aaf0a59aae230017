#include "navigation/navigation_handler.h"

#include <algorithm>

#include "navigation/menu_trees.h"
#include "navigation/messages.h"
#include "navigation/meter_access.h"
#include "peg/core/message_queue.h"
#include "peg/core/toolkit.h"
#include "platform/shown_screen.h"

namespace {

void Post(std::uint16_t type, std::uint32_t param) {
    PegMessage message;
    message.target = &navigationHandlerClass::getInstance();
    message.type = type;
    message.param = static_cast<std::int16_t>(param);
    toolkit.queue->Push(message);
}

std::int32_t ModeOfMeter() {
    meterAccessClass& meter = meterAccessClass::getInstance();
    if (meter.getTestMode() == 1) return DISPLAY_MODE_TEST;
    return meter.getAltMode() == 1 ? DISPLAY_MODE_ALT : DISPLAY_MODE_NORMAL;
}

}  // namespace

navigationHandlerClass& navigationHandlerClass::getInstance() {
    static auto* const instance = new navigationHandlerClass;  // lives as long as the process
    return *instance;
}

navigationHandlerClass::navigationHandlerClass() : m_mode(ModeOfMeter()) {
    for (std::size_t mode = 0; mode < kMenuTrees.size(); ++mode) {
        m_startIds[mode] = m_homeIds[mode] = kMenuTrees[mode].StartScreen();
        m_history[mode].fill(m_startIds[mode]);
    }
    m_currentId = m_startIds[Mode()];
}

void navigationHandlerClass::addScreen(std::int32_t id, PegThing& screen, ScreenKind kind) {
    if (m_count == m_registry.size()) return;
    m_registry[m_count++] = {id, kind, &screen};
    SetCurrent(m_currentId);
}

void navigationHandlerClass::setMenu(std::int32_t menuId, ModeMenu& menu) {
    for (std::size_t mode = 0; mode < kMenuTrees.size(); ++mode) {
        if (kMenuTrees[mode].menuId == menuId) m_menus[mode] = &menu;
    }
}

const navigationHandlerClass::Entry* navigationHandlerClass::FindEntry(std::int32_t id) const {
    const std::int32_t resolved = id == kCurrentMenu ? MenuOfMode(m_mode) : id;
    for (std::size_t i = m_count; i > 0; --i) {
        if (m_registry[i - 1].id == resolved) return &m_registry[i - 1];
    }
    return nullptr;
}

PegThing* navigationHandlerClass::Find(std::int32_t id) const {
    const Entry* entry = FindEntry(id);
    return entry != nullptr ? entry->screen : nullptr;
}

ScreenKind navigationHandlerClass::getScreenKind(std::int32_t id) const {
    const Entry* entry = FindEntry(id);
    return entry != nullptr ? entry->kind : SCREEN_KIND_MENU;
}

void navigationHandlerClass::SetCurrent(std::int32_t id) {
    m_currentId = id;
    m_currentScreen = Find(id);
}

void navigationHandlerClass::navigate(std::int32_t fromId, std::int32_t toId) {
    PegThing* from = Find(fromId);
    PegThing* to = Find(toId);
    if (from == nullptr || to == nullptr || from == to || from->Parent() == nullptr) return;
    // Known before the screen is shown, so that what it does on arrival finds the handler up to date.
    m_historyIndex = (m_historyIndex + 1) % kHistory;
    History()[m_historyIndex] = fromId;
    if (getScreenKind(toId) == SCREEN_KIND_DATA) m_homeIds[Mode()] = toId;
    SetCurrent(toId);
    SwapFrom(fromId);
}

/// Puts the current screen in the place of another.
void navigationHandlerClass::SwapFrom(std::int32_t fromId) {
    PegThing* from = Find(fromId);
    PegThing* to = Find(m_currentId);
    if (from == nullptr || to == nullptr || from == to || from->Parent() == nullptr) return;
    PegThing* parent = from->Parent();
    os::tellShownScreen(FindEntry(m_currentId)->id);
    parent->AddChild(*to, true);
    parent->RemoveChild(*from);
}

void navigationHandlerClass::goBack(std::int32_t fromId) {
    const std::int32_t target = History()[m_historyIndex];
    m_historyIndex = (m_historyIndex + kHistory - 1) % kHistory;
    SetCurrent(target);
    SwapFrom(fromId);
}

void navigationHandlerClass::goHome(std::int32_t fromId) {
    const std::int32_t target = m_homeIds[Mode()];
    if (target == getPreviousScreenId()) {
        goBack(fromId);
        return;
    }
    SetCurrent(target);
    SwapFrom(fromId);
}

void navigationHandlerClass::setDisplayMode(std::int32_t mode) {
    if (mode < DISPLAY_MODE_NORMAL || mode > DISPLAY_MODE_TEST) mode = DISPLAY_MODE_NORMAL;
    if (mode == m_mode) return;
    meterAccessClass& meter = meterAccessClass::getInstance();
    bool accepted = false;
    switch (mode) {
        case DISPLAY_MODE_TEST: accepted = meter.setTestMode(1) == 0; break;
        case DISPLAY_MODE_ALT: accepted = meter.setAltMode(1) == 0; break;
        case DISPLAY_MODE_NORMAL: {
            const bool testLeft = m_mode != DISPLAY_MODE_TEST || meter.setTestMode(0) == 0;
            const bool altLeft = meter.setAltMode(0) == 0;
            accepted = testLeft && altLeft;
            break;
        }
    }
    if (!accepted) return;
    if (ModeMenu* menu = m_menus[static_cast<std::size_t>(mode)]) menu->reset();
    m_mode = mode;
    SetCurrent(m_currentId);
}

void navigationHandlerClass::EnterMode(std::int32_t mode) {
    const std::int32_t from = m_currentId == kCurrentMenu ? MenuOfMode(m_mode) : m_currentId;
    setDisplayMode(mode);
    navigate(from, m_startIds[static_cast<std::size_t>(mode)]);
}

std::int32_t navigationHandlerClass::Message(const PegMessage& message) {
    switch (message.type) {
        case NAV_MSG_TEST_MODE:
            if (message.param != 0) {
                EnterMode(DISPLAY_MODE_TEST);
            } else if (m_mode == DISPLAY_MODE_TEST) {
                EnterMode(DISPLAY_MODE_NORMAL);
            }
            break;
        case NAV_MSG_ALT_MODE: EnterMode(message.param == 1 ? DISPLAY_MODE_ALT : DISPLAY_MODE_NORMAL); break;
        case NAV_MSG_DISP_TEST: navigateFromCurrent(SCREEN_ID_FACTORY_TEST); break;
        case NAV_MSG_NAVIGATE:
            if (message.param <= kLastCommandedScreen) navigateFromCurrent(message.param);
            break;
        case MSG_KEY_DOWN:
        case MSG_KEY_UP: OnKey(message); break;
    }
    return 0;
}

void navigationHandlerClass::OnKey(const PegMessage& message) {
    if (PegThing* screen = getCurrentScreen()) screen->Message(message);
}

void navigationHandlerClass::postTestModeState(std::uint32_t state) { Post(NAV_MSG_TEST_MODE, state); }

void navigationHandlerClass::postAltModeState(std::uint32_t state) { Post(NAV_MSG_ALT_MODE, state); }

void navigationHandlerClass::postDispTest() { Post(NAV_MSG_DISP_TEST, 0); }

void navigationHandlerClass::postNavigateTo(std::uint32_t screenId) {
    if (screenId <= static_cast<std::uint32_t>(kLastCommandedScreen)) Post(NAV_MSG_NAVIGATE, screenId);
}
