#include "tools/drawing/outline_face.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include "tools/formats/source_error.h"

namespace {

constexpr FT_Int32 kFitRows = FT_LOAD_TARGET_LIGHT | FT_LOAD_FORCE_AUTOHINT | FT_LOAD_RENDER;

constexpr int Rounded(FT_Pos sixtyFourths) { return static_cast<int>((sixtyFourths + 32) >> 6); }

}  // namespace

OutlineFace::OutlineFace(const std::filesystem::path& path, int pixelSize) : m_path(path) {
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0) throw SourceError(path.string(), "the font library does not start");
    m_library = {library, [](FT_Library each) { FT_Done_FreeType(each); }};
    FT_Face face = nullptr;
    if (FT_New_Face(library, path.c_str(), 0, &face) != 0) throw SourceError(path.string(), "cannot be read as a font");
    m_face = {face, [keep = m_library](FT_Face each) { FT_Done_Face(each); }};
    if (FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(pixelSize)) != 0) {
        throw SourceError(path.string(), "has no size of " + std::to_string(pixelSize) + " pixels");
    }
}

bool OutlineFace::Holds(char16_t character) const { return FT_Get_Char_Index(m_face.get(), character) != 0; }

Glyph OutlineFace::Draw(char16_t character) const {
    if (FT_Load_Char(m_face.get(), character, kFitRows) != 0) {
        throw SourceError(m_path.string(), "cannot draw character " + std::to_string(int{character}));
    }
    const FT_GlyphSlot slot = m_face->glyph;
    Glyph glyph{.left = slot->bitmap_left,
                .top = slot->bitmap_top,
                .width = static_cast<int>(slot->bitmap.width),
                .height = static_cast<int>(slot->bitmap.rows),
                .advance = Rounded(slot->advance.x),
                .coverage = {}};
    for (int row = 0; row < glyph.height; ++row) {
        const unsigned char* from = slot->bitmap.buffer + static_cast<std::ptrdiff_t>(row) * slot->bitmap.pitch;
        glyph.coverage.insert(glyph.coverage.end(), from, from + glyph.width);
    }
    return glyph;
}
