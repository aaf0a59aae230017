#include "peg/widgets/text_box.h"

#include <algorithm>
#include <string_view>

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

/// The part of a text that stands on its first line: as many words as fit, or the part of a long word that does.
std::u16string_view FirstLine(std::u16string_view text, const PegFont* font, int room) {
    std::size_t end = 0;
    while (end < text.size() && text[end] != u'\n' && WidthOf(text.substr(0, end + 1), font) <= room) ++end;
    if (end == text.size() || text[end] == u'\n' || text[end] == u' ') return text.substr(0, end);
    const std::size_t space = text.rfind(u' ', end);
    if (space != std::u16string_view::npos && space > 0) return text.substr(0, space);
    return text.substr(0, std::max<std::size_t>(end, 1));
}

std::u16string_view Behind(std::u16string_view text, std::u16string_view line) {
    text.remove_prefix(line.size());
    if (!text.empty() && (text.front() == u' ' || text.front() == u'\n')) text.remove_prefix(1);
    return text;
}

}  // namespace

PegTextBox::PegTextBox(const PegRect& rect, std::uint16_t id, std::uint32_t style, std::size_t longest)
    : PegTextThing(rect, id, style & ~kStyleCopyText),
      m_longest(longest),
      m_kept(std::make_unique<char16_t[]>(longest + 1)) {
    SetType(TYPE_TEXT_BOX);
    ClearStatusBits(STAT_SELECTABLE | STAT_ACCEPTS_FOCUS);
}

void PegTextBox::SetText(const char16_t* text) {
    const std::u16string_view given = text != nullptr ? text : u"";
    const std::size_t kept = std::min(given.size(), m_longest);
    if (given.substr(0, kept) == m_kept.get()) return;
    std::copy_n(given.data(), kept, m_kept.get());
    m_kept[kept] = 0;
    PegTextThing::SetText(m_kept.get());
}

void PegTextBox::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawFrame(GetColor(kBackground));
    const std::u16string_view whole = Text() != nullptr ? Text() : u"";
    const int lineHeight = PegScreen::FontHeight(Font());
    int lines = 0;
    for (auto rest = whole; !rest.empty(); ++lines) {
        rest = Behind(rest, FirstLine(rest, Font(), ClientRect().Width()));
    }
    const int room = lineHeight > 0 ? ClientRect().Height() / lineHeight : 0;
    int top = ClientRect().top + (ClientRect().Height() - std::min(lines, room) * lineHeight) / 2;
    const PegBrush brush(PegResources::GetColor(GetColor(kText)), PegResources::GetColor(GetColor(kBackground)));
    for (auto rest = whole; !rest.empty() && top + lineHeight - 1 <= ClientRect().bottom; top += lineHeight) {
        const std::u16string_view line = FirstLine(rest, Font(), ClientRect().Width());
        const int width = WidthOf(line, Font());
        int left = ClientRect().left + (ClientRect().Width() - width) / 2;
        if (HasStyle(kStyleTextLeft)) left = ClientRect().left;
        if (HasStyle(kStyleTextRight)) left = ClientRect().right - width + 1;
        toolkit.screen->DrawText(PointOf(left, top), line.data(), brush, Font(), static_cast<int>(line.size()),
                                 &ClientRect());
        rest = Behind(rest, line);
    }
    DrawChildren(invalid);
}
