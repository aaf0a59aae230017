#include "tools/catalogue/glossary.h"

#include <algorithm>

#include "tools/formats/json_source.h"
#include "tools/formats/utf.h"

namespace {

char16_t Lower(char16_t unit) {
    const bool isLatin = (unit >= u'A' && unit <= u'Z') || (unit >= 0xC0 && unit <= 0xDE && unit != 0xD7);
    const bool isCyrillic = unit >= 0x410 && unit <= 0x42F;
    return isLatin || isCyrillic ? static_cast<char16_t>(unit + 0x20) : unit;
}

std::u16string Lower(std::u16string text) {
    std::ranges::transform(text, text.begin(), [](char16_t unit) { return Lower(unit); });
    return text;
}

bool IsWordUnit(char16_t unit) { return Lower(unit) != unit || (unit >= u'a' && unit <= u'z') || unit >= 0xC0; }

/// Where a word stands by itself, or npos.
std::size_t FindWord(const std::u16string& text, const std::u16string& word) {
    for (std::size_t at = text.find(word); at != std::u16string::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !IsWordUnit(text[at - 1])) && (end == text.size() || !IsWordUnit(text[end]))) return at;
    }
    return std::u16string::npos;
}

std::u16string TextOf(const JsonSource& source) {
    const auto text = ToUtf16(source.Text());
    if (!text) source.Fail("a text in UTF-8 was expected");
    return *text;
}

std::vector<std::u16string> LoweredTexts(const JsonSource& source) {
    std::vector<std::u16string> texts;
    for (const JsonSource& item : source.Items()) texts.push_back(Lower(TextOf(item)));
    return texts;
}

}  // namespace

Glossary::Glossary(const std::filesystem::path& path) {
    const JsonSource file = JsonSource::Read(path);
    for (const JsonSource& unit : file.At("units").Items()) m_units.push_back(TextOf(unit));
    std::vector<std::string> languages;
    for (const JsonSource& language : file.At("languages").Items()) languages.push_back(language.Text());
    for (const JsonSource& item : file.At("terms").Items()) {
        Term term{.english = TextOf(item.At("en")), .words = {}, .avoid = {}};
        for (const std::string& language : languages) {
            term.words[language] = LoweredTexts(item.At(language));
            if (item.Has("avoid") && item.At("avoid").Has(language)) {
                term.avoid[language] = LoweredTexts(item.At("avoid").At(language));
            }
        }
        m_terms.push_back(std::move(term));
    }
    // The longest term of a text counts: "apparent power" is not also "power".
    std::ranges::stable_sort(m_terms, std::greater{}, [](const Term& term) { return term.english.size(); });
}

std::vector<std::string> Glossary::Judge(const std::u16string& english, const std::u16string& translation,
                                         const std::string& language) const {
    std::vector<std::string> faults;
    for (const std::u16string& unit : m_units) {
        if (FindWord(english, unit) != std::u16string::npos && FindWord(translation, unit) == std::u16string::npos) {
            faults.push_back("the unit " + ToUtf8(unit) + " is not the same");
        }
    }
    std::u16string rest = english;
    const std::u16string said = Lower(translation);
    const auto isSaid = [&](const std::u16string& word) { return said.find(word) != std::u16string::npos; };
    for (const Term& term : m_terms) {
        const auto words = term.words.find(language);
        const bool hasCapitals = Lower(term.english) != term.english;
        const std::size_t at = FindWord(hasCapitals ? rest : Lower(rest), term.english);
        if (words == term.words.end() || at == std::u16string::npos) continue;
        rest.replace(at, term.english.size(), u" ");
        if (std::ranges::none_of(words->second, isSaid)) {
            faults.push_back("\"" + ToUtf8(term.english) + "\" should be \"" + ToUtf8(words->second.front()) + "\"");
        }
        const auto avoid = term.avoid.find(language);
        if (avoid == term.avoid.end()) continue;
        for (const std::u16string& word : avoid->second) {
            if (isSaid(word))
                faults.push_back("\"" + ToUtf8(term.english) + "\" should not be \"" + ToUtf8(word) + "\"");
        }
    }
    return faults;
}
