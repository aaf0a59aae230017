#include "screens/nameplate/nameplate_screen.h"

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "navigation/navigation_handler.h"
#include "peg/resources/resources.h"
#include "peg/widgets/bitmap_prompt.h"
#include "rda/meter_operations.h"

namespace {

constexpr std::int32_t kNameplateScreen = 98;
static_assert(IsDataScreenId(kNameplateScreen));

constexpr std::size_t kMenuKey = 0;
constexpr std::size_t kBackKey = 1;
constexpr std::size_t kForwardKey = 2;
constexpr std::size_t kDetailKey = 3;

constexpr std::uint32_t kFirstRowBitmap = 151;  // begins a line above the row
constexpr std::uint32_t kRowBitmap = 105;
constexpr std::uint32_t kStyle = kStyleTransparent | kStyleTextLeft | kStyleBorderNone;

constexpr std::int32_t kFont = FontForSize(12, kPanelHeight);
constexpr std::int32_t kNarrowFont = FontForSize(11, kPanelHeight);
constexpr std::int32_t kNarrowestFont = FontForSize(10, kPanelHeight);
static_assert(kFont == 34 && kNarrowFont == 33 && kNarrowestFont == 32);

constexpr int kTop =
    static_cast<int>(kPanelHeight / 2.33F - static_cast<float>(kPanelHeight * int{kNameplateRows}) / 21.81F);
static_assert(kTop == 36);
constexpr int kTextIndent = 8;     // of the label from the row's side, and of the value from the other
constexpr int kValueIndent = 134;  // of the value from the row's left side
constexpr int kGap = 4;            // at least, between label and value

/// The place of a row as wide and as high as its bitmap; the first is a line higher.
PegRect PlaceOf(std::size_t row) {
    const PegBitmap* bitmap = PegResources::GetBitmap(kRowBitmap);
    const int width = bitmap != nullptr ? bitmap->width : 0;
    const int height = bitmap != nullptr ? bitmap->height : 0;
    const int left = (kPanelWidth - width) / 2;
    const int top = height + kTop + static_cast<int>(row) * height;
    return RectOf(left, row == 0 ? top - 1 : top, left + width, top + height);
}

}  // namespace

nameplateScrnBaseClass::nameplateScrnBaseClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId), m_rows{MakeRow(0), MakeRow(1), MakeRow(2), MakeRow(3), MakeRow(4), MakeRow(5)} {
    ClearSoftKeyImages(kMenuKey);
    ClearSoftKeyImages(kDetailKey);
}

nameplateScrnBaseClass::Row nameplateScrnBaseClass::MakeRow(std::size_t row) {
    const PegRect place = PlaceOf(row);
    auto& background = AddNew<PegBitmapPrompt>(*this, place, nullptr, std::uint16_t{0}, kStyle);
    background.SetBitmapNumber(PegBitmapPrompt::Background, row == 0 ? kFirstRowBitmap : kRowBitmap);

    const int split = place.left + kValueIndent;
    auto& label = AddNew<PegPrompt>(background, RectOf(place.left + kTextIndent, place.top, split - kGap, place.bottom),
                                    nullptr, std::uint16_t{0}, kStyle);
    label.SetFontNumber(kFont);
    auto& value =
        AddNew<dataPegPromptClass>(background, RectOf(split, place.top, place.right - kTextIndent, place.bottom),
                                   nullptr, std::uint16_t{0}, kStyle);
    value.SetFontNumber(kFont);
    value.setFitFont(0, kNarrowFont);
    value.setFitFont(1, kNarrowestFont);
    value.setOverflowFrame(false);
    return {label, value, {}};
}

void nameplateScrnBaseClass::SoftKey2Action() {
    if (m_page > 0) TurnTo(m_page - 1);
}

void nameplateScrnBaseClass::SoftKey3Action() {
    if (m_page + 1 < kNameplatePages) TurnTo(m_page + 1);
}

void nameplateScrnBaseClass::TurnTo(std::size_t page) {
    m_page = page;
    UpdateScreenData();
}

void nameplateScrnBaseClass::ShowPage(const NameplatePages& pages) {
    EnableSoftKey(kBackKey, m_page > 0);
    EnableSoftKey(kForwardKey, m_page + 1 < pages.size());
    Fetch();
    const std::span<const NameplateRow> rows = pages[m_page].Rows();
    for (std::size_t i = 0; i < rows.size(); ++i) SetRow(i, rows[i]);
    for (std::size_t i = rows.size(); i < m_rows.size(); ++i) ClearRow(i);
}

void nameplateScrnBaseClass::Fetch() {
    m_data = {};
    if (NAMEPLATEIF_getNameplateData(m_data) != 0) m_data = {};
}

void nameplateScrnBaseClass::SetRow(std::size_t row, const NameplateRow& content) {
    const char16_t* label = LocalizedString(content.label);
    if (m_rows[row].label.Text() != label) m_rows[row].label.SetText(label);

    const std::string_view field = TextIn(m_data.fields[content.field]);
    ComposedText<48> value;
    value.Add(field);
    if (content.unit != 0 && !field.empty()) value.Add(LocalizedString(content.unit));
    m_rows[row].shownValue.Show(m_rows[row].value, value);
}

void nameplateScrnBaseClass::ClearRow(std::size_t row) {
    if (m_rows[row].label.Text() != nullptr) m_rows[row].label.SetText(nullptr);
    m_rows[row].shownValue.Show(m_rows[row].value, {});
}

void CreateNameplateScreens() {
    navigationHandlerClass::getInstance().addScreen(kNameplateScreen, *new basicNameplateScrnClass(kNameplateScreen),
                                                    SCREEN_KIND_DATA);
}
