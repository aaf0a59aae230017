#pragma once

#include <cstddef>
#include <cstdint>

/// What the records of the resource file and of the localisation file begin with.

inline constexpr std::uint16_t kRecordMagic = 0xBEEF;

inline constexpr std::uint16_t kStringTableRecord = 1;
inline constexpr std::uint16_t kLanguageRecord = 2;
inline constexpr std::uint16_t kBitmapListRecord = 3;
inline constexpr std::uint16_t kFontRecord = 4;
inline constexpr std::uint16_t kColorListRecord = 5;
inline constexpr std::uint16_t kResourceSetRecord = 6;
inline constexpr std::uint16_t kPaletteRecord = 7;

inline constexpr std::size_t kNameBytes = 40;        // of a language or a font
inline constexpr std::size_t kTableNameBytes = 120;  // of a string table
