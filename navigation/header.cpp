#include "navigation/header.h"

#include <algorithm>

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "navigation/messages.h"
#include "navigation/meter_access.h"
#include "navigation/screen_ids.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kPartStyle = kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
constexpr std::int16_t kRefreshTimer = 1;

constexpr std::uint32_t kTitleFont = 39;
constexpr std::uint32_t kTitleTextColor = 15;
constexpr std::uint32_t kDateTimeFont = 33;

constexpr std::uint32_t kAlarmQuiet = 89;
constexpr std::uint32_t kAlarmUnknown = 86;
constexpr std::array<std::uint32_t, 12> kAlarmIcons = {88, 86, 88, 112, 113, 87,
                                                       87, 89, 89, 89,  89,  89};  // by status 1..12
constexpr std::uint32_t kLocked = 158;
constexpr std::uint32_t kUnlocked = 160;
constexpr std::array<std::uint32_t, 3> kLockIcons = {kUnlocked, kUnlocked, kLocked};  // by lock status
constexpr std::uint32_t kStatusWhenUnknown = 2;
constexpr std::array<std::uint32_t, kDisplayModes> kModeIcons = {213, 212, 214};  // by display mode

constexpr int kLeft = Divided(kPanelWidth, 62.5);
constexpr int kDateBottom = Divided(kPanelHeight, 10.0);
constexpr int kTitleHalf = Share(kPanelHeight, 0.125);
constexpr int kIconTop = Divided(kPanelHeight, 80.0);
constexpr int kIconGap = Divided(kPanelWidth, 106.66);
constexpr int kIconRight = kPanelWidth - Divided(kPanelWidth, 50.0);
constexpr int kLockDrop = 2;
static_assert(kLeft == 5 && kDateBottom == 24 && kTitleHalf == 30 && kIconTop == 3 && kIconGap == 3);
static_assert(kIconRight == 314);

int FontHeight(std::uint32_t font) { return PegScreen::FontHeight(PegResources::GetFont(font)); }

/// A line of text whose middle is at `middle`, down to `bottom`.
PegRect Line(int middle, std::uint32_t font, int bottom) {
    const float top = static_cast<float>(middle) - static_cast<float>(FontHeight(font)) / 2;
    return RectOf(kLeft, static_cast<int>(top), kPanelWidth, bottom);
}

int AlarmLeft() { return kIconRight - PegResources::BitmapWidth(kAlarmUnknown); }
int LockLeft() { return AlarmLeft() - kIconGap - PegResources::BitmapWidth(kLocked); }
int ModeLeft() { return LockLeft() - kIconGap - PegResources::BitmapWidth(kModeIcons[DISPLAY_MODE_NORMAL]); }

PegRect IconPlace(int left, int top, std::uint32_t bitmap, int spare) {
    return RectOf(left, top, left + PegResources::BitmapWidth(bitmap),
                  top + PegResources::BitmapHeight(bitmap) + spare);
}

void ShowIcon(PegBitmapPrompt& icon, std::uint32_t bitmap) {
    if (icon.BitmapNumber(PegBitmapPrompt::LeftIcon) != bitmap) icon.SetBitmapNumber(PegBitmapPrompt::LeftIcon, bitmap);
}

}  // namespace

scrnHeader::scrnHeader(const PegRect& rect, const char16_t* title, std::uint16_t id, std::uint32_t style)
    : PegPrompt(rect, nullptr, id, style),
      m_alarmIcon(AddNew<PegBitmapPrompt>(*this, IconPlace(AlarmLeft(), kIconTop, kAlarmQuiet, 0), nullptr,
                                          std::uint16_t{0}, kPartStyle)),
      m_lockIcon(AddNew<PegBitmapPrompt>(*this, IconPlace(LockLeft(), kIconTop + kLockDrop, kLocked, 1), nullptr,
                                         std::uint16_t{0}, kPartStyle)),
      m_modeIcon(AddNew<PegBitmapPrompt>(*this, IconPlace(ModeLeft(), kIconTop, kModeIcons[DISPLAY_MODE_NORMAL], 0),
                                         nullptr, std::uint16_t{0}, kPartStyle)),
      m_title(AddNew<PegPrompt>(*this, Line(kTitleHalf / 2 + kDateBottom, kTitleFont, kTitleHalf + kDateBottom), title,
                                std::uint16_t{0}, kPartStyle)),
      m_dateTime(AddNew<PegPrompt>(*this, Line(kDateBottom / 2, kDateTimeFont, kDateBottom), nullptr, std::uint16_t{0},
                                   kPartStyle)) {
    m_title.SetFontNumber(kTitleFont);
    m_title.SetColor(kText, kTitleTextColor);
    m_dateTime.SetFontNumber(kDateTimeFont);
    ShowIcon(m_alarmIcon, kAlarmQuiet);
}

std::int32_t scrnHeader::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_SHOW: {
            MoveToFront(m_alarmIcon);
            const std::int32_t result = PegPrompt::Message(message);
            Refresh();
            return result;
        }
        case MSG_TIMER:
            if (message.param == kRefreshTimer) Refresh();
            return 0;
        case MSG_ALARM_STATUS: ShowAlarm(message); return 0;
        case MSG_LANGUAGE: return 0;
    }
    return PegPrompt::Message(message);
}

void scrnHeader::Refresh() {
    refreshDateTime();
    refreshLockIcon();
    refreshModeIcon();
}

void scrnHeader::refreshDateTime() {
    DateTimeStrings now{};
    static_cast<void>(meterAccessClass::getInstance().readDateTime(now));
    decltype(m_dateTimeText) text{};
    char16_t* end = text.data();
    const auto append = [&end](std::string_view part) {
        for (const char letter : part) *end++ = static_cast<unsigned char>(letter);
    };
    append(TextIn(now.date));
    append("  ");
    append(TextIn(now.time));
    if (text == m_dateTimeText) return;
    m_dateTimeText = text;
    m_dateTime.SetText(m_dateTimeText.data());
}

void scrnHeader::refreshLockIcon() {
    std::uint32_t status = 0;
    if (meterAccessClass::getInstance().readHwLockStatus(status) != 0) status = kStatusWhenUnknown;
    ShowIcon(m_lockIcon, status < kLockIcons.size() ? kLockIcons[status] : 0);
}

void scrnHeader::refreshModeIcon() {
    meterAccessClass& meter = meterAccessClass::getInstance();
    const bool test = meter.getTestMode() != 0;
    const bool alternate = meter.getAltMode() != 0;
    setModeIcon(test ? DISPLAY_MODE_TEST : alternate ? DISPLAY_MODE_ALT : DISPLAY_MODE_NORMAL);
}

void scrnHeader::setModeIcon(std::int32_t mode) {
    const bool known = mode >= DISPLAY_MODE_NORMAL && mode <= DISPLAY_MODE_TEST;
    ShowIcon(m_modeIcon, known ? kModeIcons[static_cast<std::size_t>(mode)] : 0);
}

void scrnHeader::ShowAlarm(const PegMessage& message) {
    const std::uint32_t status = message.data[0];
    if (message.param == 0) {
        ShowIcon(m_alarmIcon, kAlarmQuiet);
    } else {
        ShowIcon(m_alarmIcon, status >= 1 && status <= kAlarmIcons.size() ? kAlarmIcons[status - 1] : kAlarmUnknown);
    }
}
