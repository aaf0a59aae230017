#include "peg/widgets/edit_field.h"

#include <algorithm>
#include <span>

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"
#include "platform/wipe.h"

namespace {
constexpr int kFirstCharacter = 0x20;
constexpr int kLastCharacter = 0xFF;
constexpr int kMargin = 3;
constexpr int kCursorWidth = 1;
constexpr char16_t kDot = u'\u2022';
}  // namespace

PegEditField::PegEditField(const PegRect& rect, std::uint16_t id, std::uint32_t style, std::size_t longest)
    : PegTextThing(rect, id, style & ~kStyleCopyText),
      m_longest(longest),
      m_typed(std::make_unique<char16_t[]>(longest + 1)),
      m_dots(std::make_unique<char16_t[]>(longest + 1)) {
    SetType(TYPE_EDIT_FIELD);
    std::fill_n(m_dots.get(), longest, kDot);
}

PegEditField::~PegEditField() { Empty(); }

void PegEditField::Empty() {
    Wipe(std::span(m_typed.get(), m_longest + 1));
    m_length = 0;
}

void PegEditField::HideText(bool hidden) {
    m_hidden = hidden;
    Invalidate();
}

void PegEditField::SetText(const char16_t* text) {
    Empty();
    while (text != nullptr && text[m_length] != 0 && !IsFull()) {
        m_typed[m_length] = text[m_length];
        ++m_length;
    }
    PegTextThing::SetText(m_typed.get());
}

std::int32_t PegEditField::Message(const PegMessage& message) {
    if (message.type == MSG_KEY_DOWN) {
        const bool isCharacter = message.param >= kFirstCharacter && message.param <= kLastCharacter;
        if (isCharacter || message.param == kKeyBackspace) {
            Type(message.param);
            return 0;
        }
    }
    return PegTextThing::Message(message);
}

void PegEditField::Type(int key) {
    if (key == kKeyBackspace) {
        if (m_length == 0) return;
        m_typed[--m_length] = 0;
    } else {
        if (IsFull()) return;
        m_typed[m_length++] = static_cast<char16_t>(key);
    }
    PegTextThing::SetText(m_typed.get());
}

void PegEditField::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawFrame(GetColor(kBackground));
    const std::uint16_t color = PegResources::GetColor(GetColor(kText));
    const int lineHeight = PegScreen::FontHeight(Font());
    const int left = ClientRect().left + kMargin;
    const int top = ClientRect().top + (ClientRect().Height() - lineHeight) / 2;
    int end = left;
    if (Text() != nullptr) {
        const char16_t* const shown = m_hidden ? &m_dots[m_longest - m_length] : Text();
        const PegBrush brush(color, PegResources::GetColor(GetColor(kBackground)));
        toolkit.screen->DrawText(PointOf(left, top), shown, brush, Font(), -1, &ClientRect());
        end += PegScreen::TextWidth(shown, Font());
    }
    toolkit.screen->Fill(RectOf(end + 1, top, end + kCursorWidth, top + lineHeight - 1), color);
    DrawChildren(invalid);
}
