#include "tests/look/known_texts.h"

#include "localization/localization.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::uint32_t kFirstNumber = 100;
constexpr std::uint32_t kEndOfNumbers = 2000;
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

std::u16string KnownTexts::Longer(const std::u16string& text) const {
    const auto next = m_numbers.upper_bound(text);
    return next != m_numbers.end() && next->first.starts_with(text) ? next->first : std::u16string{};
}

std::string Utf8(const std::u16string& text) {
    std::string bytes;
    for (const char16_t unit : text) {
        const unsigned code = unit;
        if (code < 0x80U) {
            bytes += static_cast<char>(code);
        } else if (code < 0x800U) {
            bytes += static_cast<char>(0xC0U | code >> 6U);
            bytes += static_cast<char>(0x80U | (code & 0x3FU));
        } else {
            bytes += static_cast<char>(0xE0U | code >> 12U);
            bytes += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
            bytes += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return bytes;
}
