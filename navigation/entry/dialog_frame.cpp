#include "navigation/entry/dialog_frame.h"

#include "localization/localization.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::uint32_t kTitleText = 15;
}  // namespace

DialogFrame::DialogFrame(PegThing& screen, SoftKeys& keys, const DialogLook& look)
    : m_screen(screen),
      m_keys(keys),
      m_scheme(look.scheme),
      m_title(kBoxTitle, nullptr, std::uint16_t{0}, kDialogPromptStyle) {
    m_title->SetFontNumber(look.titleFont);
    m_title->SetColor(kText, kTitleText);
    m_title->SetColor(kBackground, look.accent);
    m_title->ClearStatusBits(STAT_ACCEPTS_FOCUS);
}

void DialogFrame::Open(std::uint32_t titleNumber, const PegRect& titlePlace) {
    if (m_open) return;
    m_open = true;
    m_screensKeys = m_keys.Save();
    m_titleNumber = titleNumber;
    Relabel();
    m_title->Resize(titlePlace);
    m_title.AddTo(m_screen);
    m_screen.Invalidate();
}

void DialogFrame::Close() {
    if (!m_open) return;
    m_open = false;
    m_keys.Restore(m_screensKeys);
    m_title.TakeOff();
    m_screen.Invalidate();
}

void DialogFrame::ShowKey(std::size_t key, KeyImage image) {
    m_keys.SetImage(key, m_scheme, image);
    m_keys.Enable(key, true);
}

void DialogFrame::HideKey(std::size_t key) {
    m_keys.ClearImage(key);
    m_keys.Enable(key, false);
}

void DialogFrame::Relabel() {
    if (m_open) m_title->SetText(LocalizedString(m_titleNumber));
}

void DialogFrame::Draw(std::uint32_t backdrop, const PegRect& invalid) {
    toolkit.screen->DrawBitmap({}, PegResources::GetBitmap(backdrop));
    for (std::size_t key = 0; key < kSoftKeys; ++key) m_keys[key].Draw(invalid);
    m_title->Draw(invalid);
}
