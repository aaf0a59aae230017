#include "setup/edit/confirm_dialog.h"

#include <algorithm>
#include <string_view>

#include "localization/localization.h"
#include "navigation/font_for_size.h"

namespace {

constexpr std::uint32_t kConfirmTitle = 306;
constexpr std::uint32_t kQuestion = 305;
constexpr std::uint32_t kOldLabel = 308;
constexpr std::uint32_t kNewLabel = 307;

constexpr std::uint32_t kBackdrop = 139;
constexpr std::uint32_t kPaper = 15;
constexpr std::uint32_t kTextFont = FontForSize(12, kPanelHeight);
constexpr std::uint32_t kLineFont = FontForSize(14, kPanelHeight);
constexpr std::array<std::int32_t, 4> kSmallerFonts = {35, 34, 33, 32};

// Under the title, within the frame that the backdrop draws.
constexpr int kLeft = Divided(kPanelWidth, 32.0);
constexpr int kRight = kPanelWidth - kLeft;
constexpr int kTop = kBoxTitle.bottom + 1;
constexpr int kBottom = kSoftKeyLine - 1;
constexpr int kLastLineTop = Divided(kPanelHeight, 1.26);
constexpr int kValueTop = kTop + Divided(kPanelHeight, 14.0);
constexpr int kInnerLeft = kBoxTitle.left;
constexpr int kInnerRight = kBoxTitle.right;
constexpr int kMiddle = kPanelWidth / 2;
constexpr int kHalfGap = Divided(kPanelWidth, 80.0);

constexpr PegRect kWholeText = RectOf(kLeft, kTop, kRight, kBottom);
constexpr PegRect kUpperText = RectOf(kLeft, kTop, kRight, kLastLineTop - 1);
constexpr PegRect kLastLine = RectOf(kLeft, kLastLineTop, kRight, kBottom);
constexpr PegRect kOldLabelPlace = RectOf(kInnerLeft, kTop, kMiddle - kHalfGap, kValueTop - 1);
constexpr PegRect kNewLabelPlace = RectOf(kMiddle + kHalfGap, kTop, kInnerRight, kValueTop - 1);
constexpr PegRect kOldValuePlace = RectOf(kInnerLeft, kValueTop, kMiddle - kHalfGap, kLastLineTop - 1);
constexpr PegRect kNewValuePlace = RectOf(kMiddle + kHalfGap, kValueTop, kInnerRight, kLastLineTop - 1);
static_assert(kWholeText == PegRect{10, 148, 310, 213} && kLastLine == PegRect{10, 190, 310, 213});
static_assert(kOldLabelPlace == PegRect{15, 148, 156, 164} && kNewValuePlace == PegRect{164, 165, 305, 189});
static_assert(!kWholeText.Overlaps(kBoxTitle) && !kUpperText.Overlaps(kLastLine));

constexpr DialogLook kLook = {
    .scheme = Scheme::Plain,
    .accent = 86,
    .titleFont = FontForSize(16, kPanelHeight),
    .messageFont = kTextFont,
    .messagePlace = kWholeText,
    .entryBackdrop = kBackdrop,
    .messageBackdrop = kBackdrop,
    .firstEntryLength = 0,
};

constexpr std::size_t kCancelKey = 0;
constexpr std::size_t kSelectKey = 3;

template <typename TextThing>
void Dress(TextThing& thing, std::uint32_t font) {
    thing.SetFontNumber(font);
    thing.SetColor(kBackground, kPaper);
    thing.ClearStatusBits(STAT_ACCEPTS_FOCUS);
}

PegPrompt& AddLabel(PegThing& parent, const PegRect& place, std::uint32_t side) {
    auto& label = AddNew<PegPrompt>(parent, place, nullptr, std::uint16_t{0}, kStyleBorderNone | side);
    Dress(label, kTextFont);
    return label;
}

dataPegPromptClass& AddValue(PegThing& parent, const PegRect& place, std::uint32_t side) {
    auto& value = AddNew<dataPegPromptClass>(parent, place, nullptr, std::uint16_t{0}, kStyleBorderNone | side);
    Dress(value, kLineFont);
    for (std::size_t i = 0; i < kSmallerFonts.size(); ++i) value.setFitFont(i, kSmallerFonts[i]);
    value.setOverflowFrame(false);
    return value;
}

template <std::size_t size>
void CopyCut(std::array<char16_t, size>& out, const char16_t* text) {
    const std::u16string_view given = text != nullptr ? text : u"";
    out.fill(u'\0');
    std::ranges::copy(given.substr(0, size - 1), out.begin());
}

}  // namespace

ConfirmDialog::ConfirmDialog(PegThing& screen, SoftKeys& keys)
    : m_screen(screen),
      m_frame(screen, keys, kLook),
      m_values(kUpperText, std::uint16_t{0}, kStyleTransparent | kStyleBorderNone),
      m_oldLabel(AddLabel(*m_values, kOldLabelPlace, kStyleTextLeft)),
      m_newLabel(AddLabel(*m_values, kNewLabelPlace, kStyleTextRight)),
      m_oldValue(AddValue(*m_values, kOldValuePlace, kStyleTextLeft)),
      m_newValue(AddValue(*m_values, kNewValuePlace, kStyleTextRight)),
      m_text(kWholeText, std::uint16_t{0}, kStyleBorderNone, kLongestMessage),
      m_lastLine(kLastLine, nullptr, std::uint16_t{0}, kStyleBorderNone) {
    m_values->ClearStatusBits(STAT_VIEWPORT | STAT_ACCEPTS_FOCUS);
    Dress(*m_text, kTextFont);
    Dress(*m_lastLine, kLineFont);
}

void ConfirmDialog::setOldValue(const char16_t* text) { CopyCut(m_oldText, text); }

void ConfirmDialog::setNewValue(const char16_t* text) { CopyCut(m_newText, text); }

void ConfirmDialog::Open(State state, std::uint32_t titleNumber) {
    m_state = state;
    m_frame.Open(titleNumber, kBoxTitle);
    for (std::size_t key = 0; key < kSoftKeys; ++key) m_frame.HideKey(key);
    if (state == State::Confirmation) m_frame.ShowKey(kCancelKey, KeyImage::Back);
    m_frame.ShowKey(kSelectKey, KeyImage::Select);
    Relabel();
}

void ConfirmDialog::Ask() {
    Open(State::Confirmation, kConfirmTitle);
    m_oldValue.SetText(m_oldText.data());
    m_newValue.SetText(m_newText.data());
    m_values.AddTo(m_screen);
    m_lastLine.AddTo(m_screen);
}

void ConfirmDialog::AskAbout(const char16_t* subjects) {
    Open(State::Confirmation, kConfirmTitle);
    m_text->SetText(subjects);
    m_text->Resize(kUpperText);
    m_text.AddTo(m_screen);
    m_lastLine.AddTo(m_screen);
}

void ConfirmDialog::Say(std::uint32_t titleNumber, const char16_t* text, const char16_t* subject) {
    CopyCut(m_subject, subject);
    Open(State::Message, titleNumber);
    m_text->SetText(text);
    m_text->Resize(subject != nullptr ? kUpperText : kWholeText);
    m_text.AddTo(m_screen);
    if (subject != nullptr) m_lastLine.AddTo(m_screen);
}

void ConfirmDialog::Close() {
    if (!IsOpen()) return;
    m_values.TakeOff();
    m_text.TakeOff();
    m_lastLine.TakeOff();
    m_frame.Close();
    m_state = State::Closed;
}

void ConfirmDialog::Relabel() {
    if (!IsOpen()) return;
    m_frame.Relabel();
    m_oldLabel.SetText(LocalizedString(kOldLabel));
    m_newLabel.SetText(LocalizedString(kNewLabel));
    m_lastLine->SetText(m_state == State::Confirmation ? LocalizedString(kQuestion) : m_subject.data());
}

void ConfirmDialog::Draw(const PegRect& invalid) {
    m_frame.Draw(kBackdrop, invalid);
    if (m_values->Parent() != nullptr) m_values->Draw(invalid);
    if (m_text->Parent() != nullptr) m_text->Draw(invalid);
    if (m_lastLine->Parent() != nullptr) m_lastLine->Draw(invalid);
}
