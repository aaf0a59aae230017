#pragma once

#include <array>

#include "peg/widgets/bitmap_prompt.h"
#include "peg/widgets/prompt.h"

/// The band across the top of a screen: its title, the meter's date and time, and three icons for alarms, hardware lock
/// and display mode.
///
/// Date, lock and mode are read from the meter when the header is shown and then once a second; without an answer the
/// date is blank and the lock counts as locked. The alarm icon follows MSG_ALARM_STATUS.
class scrnHeader : public PegPrompt {
public:
    scrnHeader(const PegRect& rect, const char16_t* title, std::uint16_t id, std::uint32_t style);

    std::int32_t Message(const PegMessage& message) override;

    /// Shows the caller's text, which must live on.
    void setTitle(const char16_t* text) { m_title.SetText(text); }
    void setTitleColor(std::uint32_t color) { m_title.SetColor(kBackground, color); }
    void refreshDateTime();
    void refreshLockIcon();
    void refreshModeIcon();

    /// Shows the icon of a display mode; none for any other value.
    void setModeIcon(std::int32_t mode);

private:
    void Refresh();
    void ShowAlarm(const PegMessage& message);

    PegBitmapPrompt& m_alarmIcon;
    PegBitmapPrompt& m_lockIcon;
    PegBitmapPrompt& m_modeIcon;
    PegPrompt& m_title;
    PegPrompt& m_dateTime;
    std::array<char16_t, 26> m_dateTimeText{};  // date, two blanks, time
};
