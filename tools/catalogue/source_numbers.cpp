#include "tools/catalogue/source_numbers.h"

#include <array>
#include <regex>

#include "tools/formats/file_bytes.h"

namespace {

struct KindRow {
    AssetKind kind;
    std::uint32_t first;  // smaller numbers are none of the assets'
    const char* pattern;
};
// clang-format off
constexpr std::array<KindRow, 4> kKinds = {{
    {AssetKind::String, 100, R"((?:\.(?:label|title|text|message|note)\s*=|k(?!First)\w*(?:Text|Title|Label|String|Sign)\s*=|(?:LocalizedString|SetTextById)\()\s*(\d+)\b)"},
    {AssetKind::Font,    32, R"((?:\.\w*[fF]ont\s*=|k\w*Font\s*=|(?:SetFontNumber|GetFont)\()\s*(\d+)\b)"},
    {AssetKind::Colour,  85, R"((?:\.(?:\w*[cC]olou?r|accent)\s*=|k\w*Colou?r\s*=|GetColor\(|SetColor\(\w+,)\s*(\d+)\b)"},
    {AssetKind::Bitmap,  64, R"((?:\.(?:icon|bitmap|\w*[bB]ackdrop)\s*=|k\w*(?:Bitmap|Icon|Marker|Backdrop)\s*=|(?:BitmapWidth|BitmapHeight|GetBitmap)\()\s*(\d+)\b)"},
}};
// clang-format on

std::string WithoutComments(const std::string& source) {
    std::string code;
    for (std::size_t at = 0; at < source.size(); ++at) {
        if (source.compare(at, 2, "//") == 0) at = std::min(source.find('\n', at), source.size() - 1);
        code += source[at];
    }
    return code;
}

template <typename Operation>
void ForEachMatch(const std::string& code, const std::regex& pattern, Operation operation) {
    for (std::sregex_iterator match(code.begin(), code.end(), pattern), end; match != end; ++match) {
        operation((*match)[1].str());
    }
}

}  // namespace

SourceNumbers::SourceNumbers(const std::vector<std::filesystem::path>& folders) {
    for (const KindRow& row : kKinds) m_named[row.kind];
    for (const auto& folder : folders) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const auto extension = entry.path().extension();
            if (extension == ".h" || extension == ".cpp") Read(entry.path());
        }
    }
}

void SourceNumbers::Read(const std::filesystem::path& path) {
    static const std::regex kNumber(R"((?:^|[^\w.])(0[xX][0-9A-Fa-f]+|\d+)(?![\w.]))");
    static const std::regex kText(R"re("([^"\\\n]*)")re");
    const std::string code = WithoutComments(ReadTextFile(path));
    ForEachMatch(code, kNumber, [&](const std::string& number) {
        const unsigned long value = std::stoul(number.substr(0, 10), nullptr, 0);
        if (value <= UINT16_MAX) m_numbers.insert(static_cast<std::uint32_t>(value));
    });
    ForEachMatch(code, kText, [&](const std::string& text) { m_texts.insert(text); });
    for (const KindRow& row : kKinds) {
        ForEachMatch(code, std::regex(row.pattern), [&](const std::string& digits) {
            const unsigned long number = std::stoul(digits.substr(0, 6));
            if (number >= row.first) m_named[row.kind].try_emplace(static_cast<std::uint32_t>(number), path.string());
        });
    }
}
