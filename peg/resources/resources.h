#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "peg/resources/bitmap.h"
#include "peg/resources/file.h"
#include "peg/resources/font.h"
#include "peg/resources/resource_set.h"

/// What the rest of the toolkit is told when the tables change.
enum class ResourceEvent { Language, Redraw, Installed };

/// Fonts, bitmaps, colours and texts by number: what things draw with.
///
/// The tables begin with built-in defaults and are filled from the resource file at start-up. Fonts and bitmaps belong
/// to the set they were loaded with. Toolkit task only.
class PegResources {
public:
    using Listener = void (*)(ResourceEvent event);

    /// Names the function that tells the things of the toolkit about changes; null for none.
    static void SetListener(Listener listener);

    /// Reads a resource file: frees the sets loaded before, keeps the new ones for `InstallResourceSet` and registers
    /// its texts. A file of a foreign format changes nothing. @return 1, or 0 on any format error
    static int LoadResourceFile(PegFile& file, int option);
    static const PegResourceSet* GetResourceSet(std::size_t index);

    /// Copies a set into the tables; with `replace`, a bitmap that stood under the same number is freed.
    static void InstallResourceSet(const PegResourceSet& set, bool replace);

    static const PegFont* GetFont(std::uint32_t number);
    static void SetFont(std::uint32_t number, const PegFont* font);
    static const PegBitmap* GetBitmap(std::uint32_t number);
    static void SetBitmap(std::uint32_t number, const PegBitmap* bitmap, bool replace);
    static int BitmapWidth(std::uint32_t number);
    static int BitmapHeight(std::uint32_t number);
    static std::uint16_t GetColor(std::uint32_t number);
    static void SetColor(std::uint32_t number, std::uint16_t value);

    /// The 256 screen colours of 8-bit bitmaps.
    static const std::array<std::uint16_t, 256>& IndexedColors();

    /// The text of that number in the current language, or in language 0 when its table has fewer; null when there is
    /// none.
    static const char16_t* GetString(std::uint32_t number);
    static void SetLanguage(std::uint32_t index);

    /// Sizes of the tables, which grow in steps of 16.
    static std::size_t FontTableSize();
    static std::size_t ColorTableSize();
    static std::size_t BitmapTableSize();

    /// Back to the built-in tables, as at the start of the process.
    static void Reset();
};
