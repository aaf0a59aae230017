#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

/// A language of the gallery: what it is called on the page, in file names, and where it stands in its localisation
/// file.
struct GalleryLanguage {
    std::string code;
    std::string name;
    std::uint32_t number;
    bool ofTests;
};

/// What the page says of one picture; the picture itself is the file LANGUAGE/NAME.png beside it.
struct Caption {
    std::string name;
    std::string family;
    std::string title;
};

struct LanguageCaptions {
    GalleryLanguage language;
    std::vector<Caption> captions;  // in the order of the walk
};

/// A page of all pictures: a row a picture, a column a language, then the sheets of fonts and drawings that lie in
/// fonts/ and bitmaps/ beside it. It needs nothing from elsewhere; its script only filters.
[[nodiscard]] std::string GalleryPage(const std::filesystem::path& folder, std::span<const LanguageCaptions> languages);
