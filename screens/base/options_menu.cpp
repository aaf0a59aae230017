#include "screens/base/options_menu.h"

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"
#include "screens/base/soft_key_table.h"

namespace {

constexpr PegRect kListPlace = RectOf(Divided(kPanelWidth, 26.67), Divided(kPanelHeight, 1.88),
                                      Divided(kPanelWidth, 1.04), Divided(kPanelHeight, 1.12));
static_assert(kListPlace == PegRect{11, 127, 307, 214});

constexpr PegRect kItemPlace = RectOf(kListPlace.left, 0, kListPlace.right, Divided(kPanelHeight, 11.43));
static_assert(kItemPlace == PegRect{11, 0, 307, 20});

constexpr std::uint32_t kItemStyle = kStyleActive | kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
constexpr std::int32_t kItemFont = FontForSize(11, kPanelHeight);
constexpr int kItemIndent = Share(kPanelWidth, 0.03125);
constexpr std::uint32_t kItemBackground = 83;
constexpr std::uint32_t kSelectedBackground = 84;
constexpr std::uint32_t kSelectedText = 15;
constexpr std::uint32_t kSelectedColor = 89;
constexpr std::uint32_t kBackdrop = 70;

constexpr int kTimeout = 200;  // ticks
constexpr int kRefresh = 20;

constexpr std::size_t kClose = 0;
constexpr std::size_t kUp = 1;
constexpr std::size_t kDown = 2;
constexpr std::size_t kSelect = 3;

}  // namespace

OptionsMenu::OptionsMenu(std::int32_t screen)
    : m_items(OptionsOf(screen)), m_list(kListPlace, std::uint16_t{0}, kStyleBorderNone), m_timeout(kTimeout) {
    const drawScreenClass scheme(Scheme::Menu);
    m_keys.SetImage(kClose, scheme, KeyImage::Back);
    m_keys.SetImage(kUp, scheme, KeyImage::Up);
    m_keys.SetImage(kDown, scheme, KeyImage::Down);
    m_keys.SetImage(kSelect, scheme, KeyImage::Select);
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        auto* item = new PegBitmapPrompt(kItemPlace, nullptr, 0, kItemStyle);
        item->SetFontNumber(static_cast<std::uint32_t>(kItemFont));
        item->SetTextIndent(kItemIndent);
        item->SetBitmapNumber(PegBitmapPrompt::Background, kItemBackground);
        item->SetBitmapNumber(PegBitmapPrompt::HighlightBackground, kSelectedBackground);
        item->SetColor(kHighlightText, kSelectedText);
        item->SetColor(kHighlightBackground, kSelectedColor);
        m_list->AddChildAtEnd(*item);
    }
    Retranslate();
}

void OptionsMenu::Retranslate() {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        auto* item = static_cast<PegTextThing*>(m_list->ItemAt(static_cast<int>(i)));
        item->SetText(LocalizedString(static_cast<std::uint32_t>(m_items[i].label)));
    }
}

void OptionsMenu::Open(PegThing& screen) {
    m_open = true;
    RestartCountdown();
    m_keys.AddTo(screen);
    m_list.AddTo(screen);
    m_selection = m_list->SelectedIndex();
    if (m_selection < 0) m_selection = 0;
    m_list->SelectIndex(m_selection);
    EnableMoves();
}

void OptionsMenu::Close() {
    m_open = false;
    m_keys.TakeOff();
    m_list.TakeOff();
}

void OptionsMenu::ForgetSelection() { m_list->SetSelected(nullptr); }

void OptionsMenu::EnableMoves() {
    const int index = m_list->SelectedIndex();
    m_keys.Enable(kUp, index > 0);
    m_keys.Enable(kDown, index < static_cast<int>(m_items.size()) - 1);
}

void OptionsMenu::MoveUp() {
    m_list->SelectPrevious();
    EnableMoves();
}

void OptionsMenu::MoveDown() {
    m_list->SelectNext();
    EnableMoves();
}

std::int32_t OptionsMenu::TakeSelectedTarget() {
    m_selection = m_list->SelectedIndex();
    return m_selection >= 0 ? m_items[static_cast<std::size_t>(m_selection)].target : kNoTarget;
}

bool OptionsMenu::CountDown() {
    const int before = m_timeout;
    m_timeout -= kRefresh;
    return before >= kRefresh;
}

void OptionsMenu::RestartCountdown() { m_timeout = kTimeout; }

void OptionsMenu::Draw(const PegRect& invalid) {
    toolkit.screen->DrawBitmap({}, PegResources::GetBitmap(kBackdrop));
    for (std::size_t key = 0; key < kSoftKeys; ++key) m_keys[key].Draw(invalid);
    if (m_list->Clip().Overlaps(invalid)) m_list->Draw(invalid);
}
