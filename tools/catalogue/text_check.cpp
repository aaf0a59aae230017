#include "tools/catalogue/text_check.h"

#include <algorithm>
#include <array>
#include <regex>

#include "tools/catalogue/text_spots.h"
#include "tools/formats/utf.h"

namespace {

constexpr std::uint32_t kFirstFont = 32;

/// How many characters a kind of text may have, wherever it is shown. A title is cut at 29, a field of the meter's
/// records at its length; the others are what fits beside the neighbours.
struct KindRow {
    std::string_view kind;
    std::size_t longest;
};
// clang-format off
constexpr auto kKinds = std::to_array<KindRow>({
    {"title", 29}, {"setup title", 29}, {"page title", 29}, {"options item", 29}, {"menu item", 26},
    {"register label", 19}, {"setting", 19}, {"alarm name", 29}, {"priority", 19}, {"event", 30}, {"event source", 30},
    {"I/O point", 22}, {"state", 8}, {"choice", 20}, {"nameplate field", 20}, {"alarm field", 12}, {"event field", 12},
    {"alarm field or I/O column", 10}, {"I/O column", 10}, {"alarm or event field", 10}, {"I/O column, narrow", 8},
    {"column heading", 12}, {"grid column", 12}, {"grid row", 18}, {"phasor column", 10}, {"harmonics figure", 13},
    {"dialog message", 46}, {"dialog title", 29}, {"dialog note", 36}, {"dialog label", 16}, {"answer to a change", 72},
    {"message on an empty page", 72}, {"min/max bar, one character", 1}, {"min/max bar, instead of a value", 5},
    {"hint, both arrow keys together", 44}, {"reset", 30}, {"unit", 9}, {"symbol", 5}, {"key label", 9},
    {"abbreviated days, as in 3 d + 02:00:00", 4},
});
// clang-format on

/// These are broken into lines.
constexpr std::array<std::string_view, 2> kWrapped = {"message on an empty page", "answer to a change"};

std::vector<std::string> Matches(const std::string& text, const std::regex& pattern) {
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match) {
        found.push_back(match->str());
    }
    std::ranges::sort(found);
    return found;
}

class Check {
public:
    Check(const PoFile& base, const PoFile& file, const TextRules& rules)
        : m_base(base), m_file(file), m_rules(rules) {}

    std::vector<TextFault> Run() {
        for (const auto& [number, message] : m_base.messages) {
            if (!m_file.messages.contains(number)) Report(number, message, "missing", "is not in the file");
        }
        for (const auto& [number, message] : m_file.messages) {
            const auto base = m_base.messages.find(number);
            if (base == m_base.messages.end()) {
                Report(number, message, "extra", "is not in " + m_base.path);
            } else if (base->second.base != message.base) {
                Report(number, message, "other-text", "translates another text than that of " + m_base.path);
            } else if (message.translation.empty()) {
                Report(number, message, "missing", "is not translated");
            } else {
                CheckWords(number, message);
                CheckRoom(number, message);
            }
        }
        return std::move(m_faults);
    }

private:
    void CheckWords(std::uint32_t number, const PoFile::Message& message) {
        static const std::regex kPlaceholder(R"(%[-+0 #]*\d*(?:\.\d+)?[diouxXeEfgGscu](?![A-Za-z])|\{\w*\}|\?+#)");
        static const std::regex kDigits(R"(\d+)");
        if (m_file.language == m_base.language && message.translation != message.base) {
            Report(number, message, "differs", "is not its own text");
        }
        const auto [said, fresh] = m_said.try_emplace(message.base, message.translation);
        if (said->second != message.translation) {
            Report(number, message, "differs", "is \"" + ToUtf8(said->second) + "\" elsewhere");
        }
        const std::string english = ToUtf8(message.base);
        const std::string translation = ToUtf8(message.translation);
        if (Matches(english, kPlaceholder) != Matches(translation, kPlaceholder)) {
            Report(number, message, "placeholder", "has other placeholders");
        }
        if (Matches(english, kDigits) != Matches(translation, kDigits)) {
            Report(number, message, "digits", "has other digits");
        }
        if (m_rules.glossary == nullptr) return;
        for (const std::string& fault : m_rules.glossary->Judge(message.base, message.translation, m_file.language)) {
            Report(number, message, "term", fault);
        }
    }

    void CheckRoom(std::uint32_t number, const PoFile::Message& message) {
        const auto kind = std::ranges::find(kKinds, message.kind, &KindRow::kind);
        if (kind != kKinds.end() && message.translation.size() > kind->longest) {
            Report(number, message, "too-long",
                   "has " + std::to_string(message.translation.size()) + " characters, " +
                       std::to_string(kind->longest) + " is the most for a " + message.kind);
        }
        const bool isWrapped = std::ranges::find(kWrapped, message.kind) != kWrapped.end();
        for (const std::string& comment : message.comments) {
            const auto spot = TextSpot::FromComment(comment);
            if (!spot || spot->smallest < kFirstFont || spot->smallest - kFirstFont >= m_rules.fonts.size()) continue;
            const Font& font = m_rules.fonts[spot->smallest - kFirstFont];
            const int width = font.TextWidth(message.translation);
            if (width > spot->room && !isWrapped) {
                Report(number, message, "too-wide", "takes " + std::to_string(width) + " pixels in " + comment);
            }
            const auto hasGlyph = [&](char16_t unit) { return font.PageOf(unit) != nullptr; };
            if (!std::ranges::all_of(message.translation, hasGlyph)) {
                Report(number, message, "no-glyph", "has a character that is not in " + comment);
            }
        }
    }

    void Report(std::uint32_t number, const PoFile::Message& message, const char* check, const std::string& detail) {
        m_faults.push_back({m_file.path, number, check, ToUtf8(message.base), ToUtf8(message.translation), detail});
    }

    const PoFile& m_base;
    const PoFile& m_file;
    const TextRules& m_rules;
    std::map<std::u16string, std::u16string> m_said;  // by English text
    std::vector<TextFault> m_faults;
};

}  // namespace

std::vector<TextFault> CheckTexts(const PoFile& base, const PoFile& file, const TextRules& rules) {
    return Check(base, file, rules).Run();
}
