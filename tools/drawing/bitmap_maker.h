#pragma once

#include <filesystem>
#include <vector>

#include "tools/drawing/palette.h"
#include "tools/formats/resource_file.h"

/// Makes the panel's bitmaps as a bitmaps file (JSON) asks for, in the order of their numbers: one drawing (SVG, beside
/// the file) a bitmap, and the pictures of the soft keys from one symbol a meaning.
///
/// A symbol is drawn in the `color` of its surroundings: the accent of a colour scheme on white, white on a rounded
/// field while the key is held, pale on white while it is out of use.
/// @throws SourceError when a drawing has another size than it should, a number stands twice or a colour is unknown
[[nodiscard]] std::vector<Bitmap> MakeBitmaps(const std::filesystem::path& path, const Palette& palette);
