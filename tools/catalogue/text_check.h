#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/catalogue/glossary.h"
#include "tools/catalogue/po_file.h"
#include "tools/formats/resource_file.h"

/// Something that a translator should look at.
struct TextFault {
    std::string file;
    std::uint32_t number;
    std::string check;  // missing, extra, other-text, differs, placeholder, digits, too-wide, too-long, no-glyph, term
    std::string english;
    std::string translation;
    std::string detail;  // with the places on the panel, where they count
};

/// What texts are held against.
struct TextRules {
    const Glossary* glossary = nullptr;  // null: none
    std::vector<Font> fonts;             // of numbers 32, 33 and so on
};

/// Compares a language with the base language, text by text.
[[nodiscard]] std::vector<TextFault> CheckTexts(const PoFile& base, const PoFile& file, const TextRules& rules);
