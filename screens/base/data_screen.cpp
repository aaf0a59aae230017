#include "screens/base/data_screen.h"

#include <algorithm>
#include <cstdio>

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "navigation/messages.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "navigation/password_handler.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::int32_t kTestModeScreen = 201;
constexpr std::uint32_t kHeaderStyle = kStyleTransparent | kStyleBorderNone;
constexpr std::uint32_t kThickFrameStatus = 0x18;

constexpr std::uint16_t kRefreshTimer = 1;
constexpr std::uint16_t kConnectionTimer = 5;
constexpr int kConnectionTicks = 10 * kTicksPerSecond;

}  // namespace

DSBC_dataScrnBaseClass::DSBC_dataScrnBaseClass(std::int32_t screenId)
    : m_screenId(screenId),
      m_infoRow(FindRow(kScreenInfoRows, &ScreenInfoRow::screen, screenId)),
      m_keyRow(FindRow(kSoftKeyRows, &SoftKeyRow::screen, screenId)),
      m_scheme(screenId == kTestModeScreen ? Scheme::TestMode : Scheme::Data),
      m_menu(screenId) {
    ClearStatusBits(kThickFrameStatus);
    if (m_infoRow == nullptr) return;
    m_header = &AddNew<scrnHeader>(*this, RectOf(0, 0, kPanelWidth - 1, kHeaderBottom), nullptr, std::uint16_t{0},
                                   kHeaderStyle);
    m_header->setTitleColor(m_scheme.colour(0));
    SetTitleById(m_infoRow->title);
    BuildSoftKeys();
}

void DSBC_dataScrnBaseClass::BuildSoftKeys() {
    const bool hasMenu = Target(0) == kOptionsMenu;
    if (hasMenu) {
        m_keys.SetImage(0, m_scheme, KeyImage::OptionsMenu);
        m_keys.Enable(0, m_menu.HasItems());
    } else if (Target(0) != kNoTarget) {
        m_keys.SetImage(0, m_scheme, KeyImage::Parent);
        m_keys.Enable(0, true);
    }
    if (hasMenu || Target(1) != kNoTarget || Target(2) != kNoTarget) {
        m_keys.SetImage(1, m_scheme, KeyImage::Up);
        m_keys.Enable(1, Target(1) != kNoTarget);
        m_keys.SetImage(2, m_scheme, KeyImage::Down);
        m_keys.Enable(2, Target(2) != kNoTarget);
    }
    m_keys.SetImage(3, m_scheme, m_infoRow->keyFour == KeyFour::Back ? KeyImage::Return : KeyImage::Detail);
    m_keys.Enable(3, Target(3) != kNoTarget);
    m_keys.AddTo(*this);
}

void DSBC_dataScrnBaseClass::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    m_scheme.Draw(Real());
    DrawChildren(invalid);
    if (m_menu.IsOpen()) m_menu.Draw(invalid);
}

std::int32_t DSBC_dataScrnBaseClass::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_HIDE: OnHide(message); return 0;
        case MSG_SHOW: OnShow(message); return 0;
        case MSG_INPUT_IN:
        case MSG_INPUT_OUT: return 0;
        case MSG_LANGUAGE:
            RetranslateTexts();
            InitScreenData();
            return 0;
        case MSG_TIMER: OnTimer(message); return 0;
        case MSG_KEY_DOWN: (m_menu.IsOpen() ? m_menu.Keys() : m_keys).Press(message.param); return 0;
        case MSG_KEY_UP: OnKeyUp(message); return 0;
        case MSG_ALARM_STATUS:
            if (m_header != nullptr) m_header->Message(message);
            return 0;
    }
    return PegWindow::Message(message);
}

void DSBC_dataScrnBaseClass::OnShow(const PegMessage& message) {
    m_keys.ReleaseAll(message);
    PegWindow::Message(message);
    SetTimer(*this, kRefreshTimer, 1, kTicksPerSecond);
    SetTimer(*this, kConnectionTimer, 1, kConnectionTicks);
    PHC_passwordHandlerClass::getInstance().logout();
    RetranslateTexts();
    InitScreenData();
    if (!m_menu.IsOpen()) UpdateScreenData();
}

void DSBC_dataScrnBaseClass::OnHide(const PegMessage& message) {
    PegWindow::Message(message);
    KillTimer(*this, kRefreshTimer);
    KillTimer(*this, kConnectionTimer);
}

void DSBC_dataScrnBaseClass::OnTimer(const PegMessage& message) {
    meterAccessClass& meter = meterAccessClass::getInstance();
    if (message.param == kConnectionTimer && !meter.isSameMeterConnection()) {
        std::printf(
            "\nDSBC_dataScrnBaseClass::Message(): WARNING meter connection ID changed. Integrated unit so do "
            "nothing.\n");
    }
    if (m_menu.IsOpen()) {
        if (!m_menu.CountDown()) {
            m_menu.ForgetSelection();
            CloseMenu();
        }
        meter.keepAlive();
        return;
    }
    UpdateScreenData();
    if (m_header != nullptr) m_header->Message(message);
}

void DSBC_dataScrnBaseClass::OnKeyUp(const PegMessage& message) {
    const int key = message.param;
    if (!m_menu.IsOpen()) {
        m_keys.Release(message, key);
        RunKeyAction(key);
        return;
    }
    m_menu.RestartCountdown();
    if (key == KEY_SOFT_2_3) {
        m_keys.Release(message, key);
        return;
    }
    if (key == KEY_HOME) {
        m_menu.ForgetSelection();
        CloseMenu();
    } else {
        m_menu.Keys().Release(message, key);
    }
    RunKeyAction(key);
}

void DSBC_dataScrnBaseClass::SoftKey1Action() {
    if (m_menu.IsOpen()) {
        m_menu.ForgetSelection();
        CloseMenu();
    } else if (Target(0) == kOptionsMenu) {
        if (m_menu.HasItems()) OpenMenu();
    } else {
        Follow(Target(0));
    }
}

void DSBC_dataScrnBaseClass::SoftKey2Action() {
    if (m_menu.IsOpen()) {
        m_menu.MoveUp();
    } else {
        Follow(Target(1));
    }
}

void DSBC_dataScrnBaseClass::SoftKey3Action() {
    if (m_menu.IsOpen()) {
        m_menu.MoveDown();
    } else {
        Follow(Target(2));
    }
}

void DSBC_dataScrnBaseClass::SoftKey4Action() {
    if (!m_menu.IsOpen()) {
        Follow(Target(3));
        return;
    }
    Follow(m_menu.TakeSelectedTarget());
    CloseMenu();
}

void DSBC_dataScrnBaseClass::HomeKeyAction() {
    if (m_keyRow != nullptr) Follow(kCurrentMenu);
}

void DSBC_dataScrnBaseClass::Follow(std::int32_t target) {
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    switch (target) {
        case kNoTarget:
        case kOptionsMenu: return;
        case kGoBack: navigation.goBack(m_screenId); return;
    }
    navigation.navigate(m_screenId, target);
}

void DSBC_dataScrnBaseClass::OpenMenu() {
    m_keys.TakeOff();
    m_menu.Open(*this);
    Invalidate();
}

void DSBC_dataScrnBaseClass::CloseMenu() {
    m_menu.Close();
    m_keys.AddTo(*this);
    Invalidate();
}

bool DSBC_dataScrnBaseClass::GetScreenTitleId(std::int32_t screenId, std::int32_t& titleId) {
    const ScreenInfoRow* row = FindRow(kScreenInfoRows, &ScreenInfoRow::screen, screenId);
    titleId = row != nullptr ? row->title : -1;
    return row != nullptr;
}

void DSBC_dataScrnBaseClass::SetTitleById(std::int32_t stringNumber) {
    if (stringNumber < 0) return;
    m_title = PegResources::GetString(static_cast<std::uint32_t>(stringNumber));
    ShowTitle(displayClass::getInstance().translate(m_title));
}

void DSBC_dataScrnBaseClass::SetTitleText(std::string_view text) {
    decltype(m_titleText) title{};
    displayClass::getInstance().translateInto(text, title);
    ShowTitle(title.data());
}

void DSBC_dataScrnBaseClass::SetTitleSuffix(const char16_t* suffix, SuffixTranslation translation) {
    if (suffix == nullptr) return;
    displayClass& texts = displayClass::getInstance();
    if (translation == SuffixTranslation::TitleOnly) {
        ShowTitle(texts.translate(m_title), texts.translate(suffix));
        return;
    }
    ShowTitle(m_title, texts.translate(suffix));
    const decltype(m_titleText) whole = m_titleText;
    ShowTitle(texts.translate(whole.data()));
}

/// Shows a text and a suffix, cut to the room of a title. The same title again changes nothing on the panel.
void DSBC_dataScrnBaseClass::ShowTitle(const char16_t* text, const char16_t* suffix) {
    decltype(m_titleText) title{};
    std::size_t length = 0;
    for (const char16_t* part : {text, suffix}) {
        while (part != nullptr && *part != 0 && length + 1 < title.size()) title[length++] = *part++;
    }
    if (title == m_titleText || m_header == nullptr) return;
    m_titleText = title;
    m_header->setTitle(m_titleText.data());
}

void DSBC_dataScrnBaseClass::RetranslateTexts() {
    ShowTitle(displayClass::getInstance().translate(m_title));
    m_menu.Retranslate();
}
