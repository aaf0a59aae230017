#include "tools/catalogue/catalogue.h"

#include "tools/formats/source_error.h"

namespace {

constexpr std::size_t kMostTexts = 8000;  // the panel finds texts in 8192 slots, some of which must stay empty

std::u16string TextOf(const PoFile& file, std::uint32_t number, bool isBase) {
    const auto found = file.messages.find(number);
    if (found == file.messages.end()) return {};
    const PoFile::Message& message = found->second;
    return isBase && message.translation.empty() ? message.base : message.translation;
}

}  // namespace

Catalogue::Catalogue(const std::vector<std::filesystem::path>& files) {
    for (const auto& path : files) m_files.push_back(ReadPoFile(path));
    const PoFile& base = m_files.at(0);
    if (base.messages.empty()) throw SourceError(base.path, "has no texts");
    if (base.messages.size() > kMostTexts) {
        throw SourceError(base.path, "has more than " + std::to_string(kMostTexts) + " texts");
    }
    for (const PoFile& file : m_files) CheckAgainstBase(file);
}

void Catalogue::CheckAgainstBase(const PoFile& file) const {
    const PoFile& base = m_files.front();
    for (const auto& [number, message] : file.messages) {
        const auto found = base.messages.find(number);
        const std::string name = "string " + std::to_string(number);
        if (found == base.messages.end()) throw SourceError(file.path, name + " has no base text");
        if (found->second.base != message.base) {
            throw SourceError(file.path, name + " translates another text than that of " + base.path);
        }
    }
}

std::size_t Catalogue::Size() const { return m_files.front().messages.rbegin()->first + std::size_t{1}; }

StringTable Catalogue::Table(const std::string& name, std::uint32_t first) const {
    StringTable table{.name = name, .languages = {}};
    for (const PoFile& file : m_files) {
        Language& language = table.languages.emplace_back();
        language.name = file.language;
        const bool isBase = &file == &m_files.front();
        for (std::uint32_t number = first; number < Size(); ++number) {
            language.texts.push_back(TextOf(file, number, isBase));
        }
    }
    return table;
}
