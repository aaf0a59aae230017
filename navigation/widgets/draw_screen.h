#pragma once

#include <cstdint>

#include "peg/core/thing.h"

/// Colour schemes.
enum class Scheme : std::size_t { Data = 0, Plain = 1, Menu = 2, TestMode = 3 };

/// What a soft key's picture says.
enum class KeyImage : std::size_t {
    Up,
    Down,
    Parent,
    Detail,
    Return,
    OptionsMenu,
    Select,
    Back,
    Page,
    Left,
    Right,
    NextCell,
    NextLine,
    Edit,
    Acknowledge,
};

/// How a soft key looks.
enum class KeyLook : std::size_t { Normal, Disabled, Pressed };

/// A colour scheme: the pictures of its soft keys, its colours, and the background that screens have in common.
class drawScreenClass : public PegThing {
public:
    explicit drawScreenClass(Scheme scheme) : m_scheme(scheme) {}

    /// Bitmap number of a soft key's picture; 0 when the scheme has none.
    std::uint32_t image(KeyImage image, KeyLook look) const { return imageOfScheme(m_scheme, image, look); }
    static std::uint32_t imageOfScheme(Scheme scheme, KeyImage image, KeyLook look);

    /// Colour number 0 to 2 of the scheme; 0 is its accent, for headers and bands.
    std::uint32_t colour(std::size_t index) const;

    /// Paints the background: white, the title band, the line above the soft keys and the lines between them.
    void Draw(const PegRect& rect) override;

private:
    Scheme m_scheme;
};
