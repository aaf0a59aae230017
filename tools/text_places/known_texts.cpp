#include "tools/text_places/known_texts.h"

#include "localization/localization.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::uint32_t kFirstNumber = 100;
constexpr std::uint32_t kEndOfNumbers = 2000;
constexpr std::size_t kShortestPart = 2;

bool IsLetter(char16_t unit) { return (unit | 0x20) >= u'a' && ((unit | 0x20) <= u'z' || unit >= 0xC0); }
}  // namespace

KnownTexts::KnownTexts(std::uint32_t language) {
    auto& localization = localizationClass::getInstance();
    for (std::uint32_t number = kFirstNumber; number < kEndOfNumbers; ++number) {
        const char16_t* base = PegResources::GetString(number);
        if (base != nullptr) m_numbers[localization.translate(base, language)].push_back(number);
    }
}

std::vector<std::uint32_t> KnownTexts::Find(const std::u16string& text) const {
    const auto found = m_numbers.find(text);
    return found != m_numbers.end() ? found->second : std::vector<std::uint32_t>{};
}

KnownTexts::Part KnownTexts::FindIn(const std::u16string& text) const {
    Part best{text, Find(text)};
    if (!best.numbers.empty()) return best;
    best.text.clear();
    for (const auto& [known, numbers] : m_numbers) {
        if (known.size() < kShortestPart || known.size() < best.text.size() || known.size() >= text.size()) continue;
        if (text.starts_with(known) && IsLetter(known.back()) && !IsLetter(text[known.size()])) best = {known, numbers};
    }
    return best;
}

std::vector<std::u16string> KnownTexts::Longer(const std::u16string& text) const {
    std::vector<std::u16string> longer;
    for (auto next = m_numbers.upper_bound(text); next != m_numbers.end() && next->first.starts_with(text); ++next) {
        longer.push_back(next->first);
    }
    return longer;
}
