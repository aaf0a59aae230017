#include "tools/text_places/text_places.h"

#include <algorithm>
#include <fstream>

#include "navigation/entry/keyboard_layout.h"
#include "peg/resources/resources.h"
#include "tools/formats/utf.h"

namespace {

constexpr std::uint32_t kFirstFont = 32;
constexpr std::uint32_t kLastFont = 48;
constexpr std::uint32_t kTitleFont = 39;
constexpr int kTitleTop = 25;
constexpr int kTitleBottom = 55;
constexpr int kWidestMargin = 5;
constexpr int kKeyWidth = PlaceOf(kKeyboard[0]).Width();

std::uint32_t NumberOf(const PegFont* font) {
    for (std::uint32_t number = kFirstFont; number <= kLastFont; ++number) {
        if (PegResources::GetFont(number) == font) return number;
    }
    return 0;
}

/// The pixels that a text may take at its place: all but the margin at the side that it is aligned to.
int RoomOf(const RecordedText& text) {
    const int before = text.left - text.room.left;
    const int behind = text.room.right - (text.left + text.width - 1);
    const int margin = std::min(before, behind);
    return text.room.Width() - (margin > kWidestMargin ? 0 : std::max(margin, 0));
}

std::tuple<std::int16_t, std::int16_t, std::int16_t, std::int16_t> SpotOf(const RecordedText& text) {
    return {text.room.left, text.room.top, text.room.right, text.room.bottom};
}

bool IsKeyLabel(std::uint32_t number) {
    return number >= kFirstCharacterString && number < kFirstCharacterString + 0x80U;
}

bool IsTitle(const RecordedText& text) {
    return text.room.top >= kTitleTop && text.room.bottom <= kTitleBottom && NumberOf(text.font) == kTitleFont;
}

}  // namespace

void TextPlaces::AddLimits(const TextRecord& record, const std::string& place) {
    for (const RecordedText& text : record.Texts()) {
        const std::uint32_t font = NumberOf(text.font);
        const auto [smallest, fresh] = m_smallest.try_emplace(SpotOf(text), font);
        smallest->second = std::min(smallest->second, font);
        std::int16_t& right = m_rightmost[{place, text.room.left, text.room.top}];
        right = std::max(right, text.room.right);
    }
}

void TextPlaces::Add(const TextRecord& record, const std::string& place) {
    AddLimits(record, place);
    for (const RecordedText& text : record.Texts()) {
        if (text.IsGone() || text.isBehind) continue;
        if (IsTitle(text)) m_titles.try_emplace(place, ToUtf8(m_known.FindIn(text.text).text));
        const KnownTexts::Part part = m_known.FindIn(text.text);
        const int others = text.width - WidthOf(part.text, text.font);
        for (const std::uint32_t number : part.numbers) {
            if (IsKeyLabel(number) && text.room.Width() != kKeyWidth) continue;  // a figure of one digit
            m_uses.insert({number, NumberOf(text.font), RoomOf(text) - others, SpotOf(text), place});
        }
    }
}

bool TextPlaces::Write(const std::string& path) const {
    std::map<std::tuple<std::uint32_t, std::uint32_t, std::uint32_t, int>, std::set<std::string>> lines;
    for (const Use& use : m_uses) {
        const auto title = m_titles.find(use.place);
        const auto& [left, top, right, bottom] = use.spot;
        const int growth = m_rightmost.at({use.place, left, top}) - right;  // where a place is as wide as its text
        lines[{use.number, use.font, m_smallest.at(use.spot), use.room + growth}].insert(
            title != m_titles.end() ? use.place + " \"" + title->second + "\"" : use.place);
    }
    std::ofstream file(path);
    for (const auto& [line, places] : lines) {
        const auto& [number, font, smallest, room] = line;
        file << number << '\t' << font << '\t' << smallest << '\t' << room;
        for (const std::string& place : places) file << '\t' << place;
        file << '\n';
    }
    return file.good();
}
