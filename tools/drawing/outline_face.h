#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

struct FT_LibraryRec_;
struct FT_FaceRec_;

/// One character drawn in grey: `width` times `height` values of 0 to 255.
struct Glyph {
    int left = 0;  // of the picture, from the pen
    int top = 0;   // of the picture, above the base line
    int width = 0;
    int height = 0;
    int advance = 0;  // of the pen
    std::vector<std::uint8_t> coverage;
};

/// An outline font at one pixel size, its outlines fitted to the rows of the pixel grid and to nothing else, so that
/// letters stay sharp where text is read and keep their widths.
class OutlineFace {
public:
    /// @throws SourceError when the file is no font
    OutlineFace(const std::filesystem::path& path, int pixelSize);

    [[nodiscard]] bool Holds(char16_t character) const;
    [[nodiscard]] Glyph Draw(char16_t character) const;

private:
    std::filesystem::path m_path;
    std::shared_ptr<FT_LibraryRec_> m_library;
    std::shared_ptr<FT_FaceRec_> m_face;
};
