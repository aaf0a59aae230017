#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "navigation/mode_menu.h"
#include "navigation/screen_ids.h"
#include "peg/core/thing.h"

/// Knows every application screen by its id and decides which one is on the panel.
///
/// Screens are registered once and from then on only moved in and out of the presentation manager. The handler keeps
/// the display mode and, for each mode, a home screen and a ring of screens to go back to; it passes the panel's keys
/// on to the screen that is shown and carries out the meter's navigation commands. Toolkit task only, but for
/// `getCurrentScreen` and the post operations, which any task may call.
class navigationHandlerClass : public PegThing {
public:
    static constexpr std::size_t kMaxScreens = 206;

    /// The one handler; the first call creates it and asks the meter for the display mode.
    static navigationHandlerClass& getInstance();

    /// Registers a screen, which stays the caller's and lives as long as the process. Refused when there is no room; of
    /// two screens under one id the later counts.
    void addScreen(std::int32_t id, PegThing& screen, ScreenKind kind);

    /// Names the menu that is reset when its display mode is entered. Ignored for an id that is no menu's.
    void setMenu(std::int32_t menuId, ModeMenu& menu);

    /// Puts screen `toId` in the place of `fromId`; nothing when either is unknown, `fromId` is not on the panel, or
    /// both are the same.
    void navigate(std::int32_t fromId, std::int32_t toId);
    void navigateFromCurrent(std::int32_t toId) { navigate(m_currentId, toId); }
    void goBack(std::int32_t fromId);
    void goHome(std::int32_t fromId);

    /// Asks the meter for a display mode, resets that mode's menu and keeps the mode; it stays when the meter refuses.
    void setDisplayMode(std::int32_t mode);

    std::int32_t getDisplayMode() const { return m_mode; }
    std::int32_t getCurrentScreenId() const { return m_currentId; }
    std::int32_t getPreviousScreenId() const { return History()[m_historyIndex]; }
    ScreenKind getScreenKind(std::int32_t id) const;

    /// The screen that is on the panel, or null.
    PegThing* getCurrentScreen() const { return m_currentScreen; }
    PegThing* getStartScreen() const { return Find(m_startIds[Mode()]); }

    std::int32_t Message(const PegMessage& message) override;

    static void postTestModeState(std::uint32_t state);
    static void postAltModeState(std::uint32_t state);
    static void postDispTest();

    /// Nothing for an id that the meter may not name.
    static void postNavigateTo(std::uint32_t screenId);

private:
    static constexpr std::size_t kHistory = 5;
    struct Entry {
        std::int32_t id;
        ScreenKind kind;
        PegThing* screen;
    };

    navigationHandlerClass();

    std::size_t Mode() const { return static_cast<std::size_t>(m_mode); }
    std::array<std::int32_t, kHistory>& History() { return m_history[Mode()]; }
    const std::array<std::int32_t, kHistory>& History() const { return m_history[Mode()]; }
    const Entry* FindEntry(std::int32_t id) const;
    PegThing* Find(std::int32_t id) const;
    void SetCurrent(std::int32_t id);
    void SwapFrom(std::int32_t fromId);
    void EnterMode(std::int32_t mode);
    void OnKey(const PegMessage& message);

    std::size_t m_count = 0;
    std::int32_t m_currentId = 0;
    std::array<std::array<std::int32_t, kHistory>, kDisplayModes> m_history{};
    std::size_t m_historyIndex = 0;  // one for all modes
    std::array<std::int32_t, kDisplayModes> m_homeIds{};
    std::array<std::int32_t, kDisplayModes> m_startIds{};
    std::array<ModeMenu*, kDisplayModes> m_menus{};  // null: none yet
    std::int32_t m_mode = DISPLAY_MODE_NORMAL;
    std::array<Entry, kMaxScreens> m_registry{};
    std::atomic<PegThing*> m_currentScreen = nullptr;  // written by the toolkit task
};
