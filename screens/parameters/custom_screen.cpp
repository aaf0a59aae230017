#include "screens/parameters/custom_screen.h"

#include <charconv>

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"
#include "peg/resources/resources.h"
#include "platform/panel.h"

/// A screen whose pages the meter composes: what it says without one, how it asks for one, and which of the meter's
/// settings turns its pages.
struct CustomScreenRow {
    enum class Scroll : std::uint8_t { None, Custom, Normal };

    std::int32_t screen;
    std::uint32_t noData;  // string number
    int (*fetch)(std::uint32_t pageCommand, CustomScreenData& out);
    Scroll scroll;
};

namespace {

// clang-format off
constexpr auto kCustomScreenRows = std::to_array<CustomScreenRow>({
    {.screen = 99,  .noData = 113, .fetch = CUSTOMSCREENINTERFACE_getCustomModeScreenData, .scroll = CustomScreenRow::Scroll::Custom},
    {.screen = 200, .noData = 271, .fetch = CUSTOMSCREENINTERFACE_getNormalModeScreenData, .scroll = CustomScreenRow::Scroll::Normal},
    {.screen = 201, .noData = 338, .fetch = CUSTOMSCREENINTERFACE_getTestModeScreenData,   .scroll = CustomScreenRow::Scroll::None},
});
// clang-format on
static_assert(AllDiffer(kCustomScreenRows, &CustomScreenRow::screen));
static_assert(std::ranges::all_of(kCustomScreenRows, IsDataScreenId, &CustomScreenRow::screen));

constexpr std::uint32_t kCustomScrollRegister = 114;
constexpr std::uint32_t kNormalScrollRegister = 1946;
constexpr int kFirstLook = 5 * kTicksPerSecond;  // until the scroll settings are looked at
constexpr int kPauseAfterKey = 10 * kTicksPerSecond;
constexpr std::int16_t kRefreshTimer = 1;

constexpr std::size_t kBackKey = 1;
constexpr std::size_t kForwardKey = 2;

constexpr std::uint32_t kNoDataTitle = 154;
constexpr std::uint32_t kNoDataStyle = 0x40000481;
constexpr std::size_t kNoDataLongest = 128;
constexpr std::int32_t kNoDataFont = FontForSize(14, kPanelHeight);

PegRect NoDataPlace() {
    const int height = PegScreen::FontHeight(PegResources::GetFont(static_cast<std::uint32_t>(kNoDataFont)));
    return RectOf(15, 132 - height, 305, 136 + height);
}

const CustomScreenRow& RowOf(std::int32_t screenId) {
    const CustomScreenRow* row = FindRow(kCustomScreenRows, &CustomScreenRow::screen, screenId);
    return row != nullptr ? *row : kCustomScreenRows.back();
}

RowTexts TextsOf(const RegisterValue& parameter) {
    displayClass& texts = displayClass::getInstance();
    RowTexts row;
    texts.translateInto(TextIn(parameter.label), row.label);
    texts.translateInto(TextIn(parameter.value), row.value);
    texts.translateInto(TextIn(parameter.unit), row.unit);
    return row;
}

/// A period in ticks from a scroll setting in seconds; as it was when the meter does not tell.
int PeriodFrom(std::uint32_t registerId, int before) {
    constexpr int kLongestSeconds = 1'000'000;
    RegisterValue setting{};
    if (meterAccessClass::getInstance().readRegisterRaw(registerId, setting) != 0) return before;
    const std::string_view text = TextIn(setting.value);
    int seconds = 0;
    std::from_chars(text.data(), text.data() + text.size(), seconds);
    return std::clamp(seconds, 0, kLongestSeconds) * kTicksPerSecond;
}

}  // namespace

custParamScrnClass::custParamScrnClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId),
      m_row(RowOf(screenId)),
      m_rows(UnplacedRows(OverflowFrame::Off)),
      m_noData(NoDataPlace(), std::uint16_t{0}, kNoDataStyle, kNoDataLongest),
      m_customPeriod(kFirstLook),
      m_normalPeriod(kFirstLook) {
    SetSoftKeyImages(kBackKey, KeyImage::Up);
    SetSoftKeyImages(kForwardKey, KeyImage::Down);
    EnableSoftKey(kBackKey, false);
    EnableSoftKey(kForwardKey, false);
    m_noData->SetFontNumber(static_cast<std::uint32_t>(kNoDataFont));
}

std::int32_t custParamScrnClass::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_HIDE: m_countdown = -1; break;
        case MSG_SHOW: m_countdown = kFirstLook; break;
        case MSG_TIMER:
            if (message.param == kRefreshTimer) CountDown();
            break;
    }
    return DSBC_dataScrnBaseClass::Message(message);
}

void custParamScrnClass::UpdateScreenData() { FetchAndShow(kPageCurrent); }

void custParamScrnClass::SoftKey2Action() { TurnPage(kPagePrevious); }

void custParamScrnClass::SoftKey3Action() { TurnPage(kPageNext); }

void custParamScrnClass::TurnPage(std::uint32_t pageCommand) {
    FetchAndShow(pageCommand);
    m_countdown = kPauseAfterKey;
}

void custParamScrnClass::Fetch(std::uint32_t pageCommand) {
    if (m_row.fetch(pageCommand, m_page) != 0) m_page.status.Set(1);
}

void custParamScrnClass::FetchAndShow(std::uint32_t pageCommand) {
    Fetch(pageCommand);
    if (m_page.status.Get() == 0) {
        ShowPage();
    } else {
        ShowNoData();
    }
}

void custParamScrnClass::ShowPage() {
    m_noData.TakeOff();
    const std::uint32_t count = m_page.count.Get();
    if (count != m_layout) LayOut(count);
    SetTitleText(TextIn(m_page.title));
    for (std::size_t i = 0; i < std::min<std::size_t>(count, m_rows.size()); ++i) {
        m_rows[i].Show(TextsOf(m_page.parameters[i]));
    }
    EnableSoftKey(kBackKey, m_page.isFirstPage.Get() != 1);
    EnableSoftKey(kForwardKey, m_page.isLastPage.Get() != 1);
}

void custParamScrnClass::ShowNoData() {
    for (ParameterRow& row : m_rows) row.TakeOff();
    m_layout = 0;
    m_noData->SetText(LocalizedString(m_row.noData));
    m_noData.AddTo(*this);
    SetTitleById(kNoDataTitle);
    EnableSoftKey(kBackKey, false);
    EnableSoftKey(kForwardKey, false);
}

void custParamScrnClass::LayOut(std::uint32_t rows) {
    m_layout = rows;
    const RowLayout* layout = LayoutOf(kCustomLayouts, rows);
    if (layout == nullptr) return;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (i < rows) {
            m_rows[i].Place(*layout, i);
            m_rows[i].AddTo(*this);
        } else {
            m_rows[i].TakeOff();
        }
    }
}

void custParamScrnClass::CountDown() {
    if (m_countdown <= 0) return;
    const int before = m_countdown;
    m_countdown -= kTicksPerSecond;
    if (m_countdown == 0 || before < kTicksPerSecond) ScrollByTime();
}

void custParamScrnClass::ScrollByTime() {
    m_customPeriod = PeriodFrom(kCustomScrollRegister, m_customPeriod);
    m_normalPeriod = PeriodFrom(kNormalScrollRegister, m_normalPeriod);
    int period = 0;
    switch (m_row.scroll) {
        case CustomScreenRow::Scroll::Custom: period = m_customPeriod; break;
        case CustomScreenRow::Scroll::Normal: period = m_normalPeriod; break;
        case CustomScreenRow::Scroll::None: break;
    }
    if (period == 0) {
        m_countdown = kFirstLook;
        return;
    }
    m_countdown = period;
    Fetch(kPageCurrent);
    FetchAndShow(m_page.isLastPage.Get() == 1 ? kPageFirst : kPageNext);
}

void CreateCustomScreens() {
    for (const CustomScreenRow& row : kCustomScreenRows) {
        navigationHandlerClass::getInstance().addScreen(row.screen, *new custParamScrnClass(row.screen),
                                                        SCREEN_KIND_DATA);
    }
}
