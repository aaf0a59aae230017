#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// The texts of one PO file. A message's context is its string number.
struct PoFile {
    struct Message {
        std::u16string base;                // the English text
        std::u16string translation;         // empty where the language has none
        std::string kind;                   // the first comment for translators: what the text is
        std::vector<std::string> comments;  // the others
    };

    std::string path;
    std::string language;  // of the file's header
    std::map<std::uint32_t, Message> messages;
};

/// @throws SourceError with file and line when the file is no PO file, a context is no number or stands twice, a text
/// is
///         longer than the panel can look up, or the file names no language
[[nodiscard]] PoFile ReadPoFile(const std::filesystem::path& path);
