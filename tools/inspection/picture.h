#pragma once

#include <string>

#include "tools/formats/pixels.h"
#include "tools/formats/resource_file.h"

/// A picture that grows by lines of tiles, for contact sheets. The background is a chequer, so that transparency shows.
class ContactSheet {
public:
    explicit ContactSheet(int width) : m_width(width) {}

    /// Puts a picture behind the last one, on a new line where it does not fit, with a caption above it.
    void Add(const Image& tile, const std::string& caption);
    [[nodiscard]] Image Finish() const;

private:
    struct Tile {
        int x;
        int y;
        Image image;
    };

    int m_width;
    int m_x = 0;
    int m_y = 0;
    int m_lineHeight = 0;
    std::vector<Tile> m_tiles;
};

/// A line of text, dark on white, in one of the panel's own fonts.
[[nodiscard]] Image DrawText(const Font& font, std::u16string_view text);

/// A number in figures of 3 x 5 pixels: captions need no font of the file.
[[nodiscard]] Image DrawCaption(const std::string& digits);
