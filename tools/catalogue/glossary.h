#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// The trade's terms in the panel's languages, and the units that no language changes.
class Glossary {
public:
    /// @throws SourceError
    explicit Glossary(const std::filesystem::path& path);

    /// What is wrong with a translation: a term that it does not use, or a word that it should not use for one.
    [[nodiscard]] std::vector<std::string> Judge(const std::u16string& english, const std::u16string& translation,
                                                 const std::string& language) const;

private:
    using Words = std::vector<std::u16string>;
    struct Term {
        std::u16string english;              // with capitals: matches only as it is
        std::map<std::string, Words> words;  // by language: one of them, or of their abbreviations
        std::map<std::string, Words> avoid;
    };

    std::vector<Term> m_terms;
    Words m_units;
};
