#pragma once

#include <array>

/// The toolkit's own texts, numbers 1 to 41, in one language. Null: no text.
// clang-format off
inline constexpr std::array<const char16_t*, 41> kBuiltInStrings = {
    u"OK",
    u"No",
    u"Yes",
    u"Abort",
    u"Cancel",
    u"Retry",
    u"Close",
    u"Apply",
    u"A",
    u"Minimize",
    u"Maximize",
    u"",
    u"Restore",
    u" ",
    u"Help",
    u"Inline Conversion of 24bpp images is not supported",
    u"Error reading magic number.",
    u"Not a GIF file.",
    u"Bad version number, not '87a' or '89a'.",
    u"Failed to read screen descriptor.",
    u"Read error on image data.",
    u"Bad Colormap",
    u"Out Of Memory",
    u"Unsupported Image Type",
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    u"...",
};
// clang-format on
