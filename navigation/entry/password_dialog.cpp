#include "navigation/entry/password_dialog.h"

#include <utility>

#include "localization/localization.h"
#include "navigation/password_handler.h"
#include "platform/wipe.h"

namespace {

using Entry = std::array<char, keyboardWin::kLongestText + 1>;

constexpr std::uint32_t kUserName = 518;
constexpr std::uint32_t kPassword = 378;
constexpr std::uint32_t kAccessDenied = 386;
constexpr std::uint32_t kUserMayNot = 196;
constexpr std::uint32_t kWrongPassword = 298;

constexpr std::uint32_t kBlack = 0;
constexpr std::uint32_t kWhite = 15;

constexpr std::array<KeyImage, kSoftKeys> kEntryKeys = {KeyImage::Up, KeyImage::Left, KeyImage::Right,
                                                        KeyImage::Select};
constexpr std::array<int, kSoftKeys - 1> kArrows = {kKeyUp, kKeyLeft, kKeyRight};
constexpr std::size_t kConfirmKey = 3;

/// The text as 8-bit characters, cut to `longest` and terminated.
void CopyEntry(const char16_t* text, std::size_t longest, Entry& out) {
    out.fill(0);
    for (std::size_t i = 0; text != nullptr && text[i] != 0 && i < longest && i + 1 < out.size(); ++i) {
        out[i] = static_cast<char>(text[i]);
    }
}

}  // namespace

PasswordDialog::PasswordDialog(PegThing& screen, SoftKeys& keys, const DialogLook& look)
    : m_screen(screen),
      m_look(look),
      m_frame(screen, keys, look),
      m_message(look.messagePlace, nullptr, std::uint16_t{0}, kDialogPromptStyle),
      m_keyboard(keyboardWin::getInstance()) {
    static_cast<void>(PHC_passwordHandlerClass::getInstance());  // made before the first dialog asks for it
    m_message->SetFontNumber(look.messageFont);
    m_message->SetColor(kText, kBlack);
    m_message->SetColor(kHighlightText, kBlack);
    m_message->SetColor(kBackground, kWhite);
    m_message->SetColor(kHighlightBackground, kWhite);
    m_message->ClearStatusBits(STAT_ACCEPTS_FOCUS);
}

void PasswordDialog::Ask() {
    Wipe(m_first);
    OpenEntry(State::FirstEntry, kUserName);
    m_keyboard.prefillUser();
}

void PasswordDialog::OpenEntry(State entry, std::uint32_t title) {
    m_state = entry;
    m_keyboardResult = 0;
    m_frame.Open(title, kBandTitle);
    for (std::size_t key = 0; key < kEntryKeys.size(); ++key) m_frame.ShowKey(key, kEntryKeys[key]);
    m_keyboard.hideText(entry == State::SecondEntry);
    m_screen.AddChild(m_keyboard);
}

void PasswordDialog::Refuse(std::uint32_t textNumber) {
    m_state = State::Message;
    m_messageNumber = textNumber;
    m_frame.Open(kAccessDenied, kBoxTitle);
    for (std::size_t key = 0; key < kConfirmKey; ++key) m_frame.HideKey(key);
    m_frame.ShowKey(kConfirmKey, KeyImage::Select);
    Relabel();
    m_message.AddTo(m_screen);
}

void PasswordDialog::Close() {
    if (IsEntryOpen() && m_keyboard.Parent() == &m_screen) m_screen.RemoveChild(m_keyboard);
    Wipe(m_first);
    m_message.TakeOff();
    m_frame.Close();
    m_keyboardResult = 0;
    m_state = State::Closed;
}

void PasswordDialog::KeyDown(int keyCode) {
    const std::size_t key = SoftKeyOf(keyCode);
    if (!IsEntryOpen() || key == kSoftKeys) return;
    if (key == kConfirmKey) {
        m_keyboardResult = m_keyboard.selectFocused();
    } else {
        m_keyboard.moveFocus(kArrows[key]);
    }
}

bool PasswordDialog::Confirm() {
    const std::uint16_t result = std::exchange(m_keyboardResult, 0);
    switch (m_state) {
        case State::Closed: return false;
        case State::Message: Close(); return false;
        case State::FirstEntry:
        case State::SecondEntry: break;
    }
    if (result == kKeyEscape) Close();
    if (result != kKeyEnter) return false;
    if (m_state == State::SecondEntry) return FinishSecond();
    FinishFirst();
    return false;
}

void PasswordDialog::FinishFirst() {
    Entry first;
    CopyEntry(m_keyboard.getText(), m_look.firstEntryLength, first);
    Close();
    m_first = first;
    Wipe(first);
    OpenEntry(State::SecondEntry, kPassword);
}

bool PasswordDialog::FinishSecond() {
    std::int32_t result = kPasswordNotChecked;
    if (m_keyboard.getText() != nullptr) {
        Entry second;
        CopyEntry(m_keyboard.getText(), keyboardWin::kLongestText, second);
        result = PHC_passwordHandlerClass::getInstance().verify(m_first.data(), second.data());
        Wipe(second);
    }
    Close();
    if (result == kPasswordAccepted) return true;
    Refuse(result == kPasswordRefused ? kUserMayNot : kWrongPassword);
    return false;
}

void PasswordDialog::Relabel() {
    m_frame.Relabel();
    if (m_state == State::Message) m_message->SetText(LocalizedString(m_messageNumber));
}

void PasswordDialog::Draw(const PegRect& invalid) {
    if (IsEntryOpen()) {
        m_frame.Draw(m_look.entryBackdrop, invalid);
        m_keyboard.Draw(invalid);
    } else if (m_state == State::Message) {
        m_frame.Draw(m_look.messageBackdrop, invalid);
        m_message->Draw(invalid);
    }
}
