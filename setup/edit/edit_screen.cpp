#include "setup/edit/edit_screen.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "localization/localization.h"
#include "rda/meter_operations.h"

namespace {

constexpr std::uint32_t kRefusedTitle = 311;
constexpr std::uint32_t kRefusedText = 811;  // for a meter that gives no reason
constexpr std::uint32_t kNoAnswerText = 1640;

constexpr std::size_t kBack = 0;
constexpr std::size_t kSelect = 3;

}  // namespace

SEBC_setupEditBaseClass::SEBC_setupEditBaseClass(const SetupEditRow& row)
    : SetupScreen(row.screen, row.title), m_dialog(*this, m_keys) {
    SetSoftKeyImage(kBack, KeyImage::Back);
    SetSoftKeyImage(kFirstMove, KeyImage::Up);
    SetSoftKeyImage(kSecondMove, KeyImage::Down);
    SetSoftKeyImage(kSelect, KeyImage::Select);
    EnableSoftKey(kFirstMove, false);
    EnableSoftKey(kSecondMove, false);
}

std::int32_t SEBC_setupEditBaseClass::Message(const PegMessage& message) {
    if (message.type == MSG_SHOW) LoadValue();
    return SetupScreen::Message(message);
}

void SEBC_setupEditBaseClass::Relabel() {
    SetupScreen::Relabel();
    m_dialog.Relabel();
}

void SEBC_setupEditBaseClass::SoftKey1Action() {
    if (m_dialog.GetState() != ConfirmDialog::State::Message) GoBack();
}

void SEBC_setupEditBaseClass::SoftKey4Action() {
    switch (m_dialog.GetState()) {
        case ConfirmDialog::State::Closed:
            if (HasChanged()) {
                AskAboutChange();
            } else {
                GoBack();
            }
            break;
        case ConfirmDialog::State::Confirmation: WriteConfirmed(); break;
        case ConfirmDialog::State::Message: closeDialog(); break;
    }
}

void SEBC_setupEditBaseClass::WriteConfirmed() {
    m_refusal.fill(u'\0');
    m_refused.fill(u'\0');
    const WriteOutcome outcome = WriteChange();
    closeDialog();
    switch (outcome) {
        case WriteOutcome::Accepted: GoBack(); break;
        case WriteOutcome::Refused:
            showError(kRefusedTitle, m_refusal.front() != u'\0' ? m_refusal.data() : LocalizedString(kRefusedText),
                      m_refused.front() != u'\0' ? m_refused.data() : nullptr);
            break;
        case WriteOutcome::NoAnswer: showMessage(kRefusedTitle, kNoAnswerText); break;
    }
}

SEBC_setupEditBaseClass::WriteOutcome SEBC_setupEditBaseClass::Write(std::uint32_t registerId, const char* text,
                                                                     const char16_t* subject) {
    RegisterWriteResult reply{};
    if (PDMINTERFACE_setRegisterValue(registerId, text, reply) != 0) return WriteOutcome::NoAnswer;
    if (reply.result.Get() == 0) return WriteOutcome::Accepted;
    if (m_refusal.front() != u'\0' || m_refused.front() != u'\0') return WriteOutcome::Refused;
    displayClass::getInstance().translateInto(TextIn(reply.text), m_refusal);
    const std::u16string_view about = subject != nullptr ? subject : u"";
    std::ranges::copy(about.substr(0, m_refused.size() - 1), m_refused.begin());
    return WriteOutcome::Refused;
}

void SEBC_setupEditBaseClass::showError(std::uint32_t titleNumber, const char16_t* text, const char16_t* subject) {
    m_dialog.Say(titleNumber, text, subject);
}

void SEBC_setupEditBaseClass::showMessage(std::uint32_t titleNumber, std::uint32_t textNumber) {
    m_dialog.Say(titleNumber, LocalizedString(textNumber));
}

const SetupEditRow* FindSetupEditRow(std::int32_t screenId) {
    const SetupEditRow* row = FindRow(kSetupEditRows, &SetupEditRow::screen, screenId);
    if (row == nullptr) std::printf("\n\nERROR: Derived screen not added to Setup Base class!!\n\n");
    return row;
}
