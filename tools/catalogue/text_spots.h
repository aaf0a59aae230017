#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Where and how a string is shown. In PO files it stands as a comment of the string:
/// "font 37 or 36, 129 px: screen 25 "Currents", screen 4 "Main values" and 6 more".
struct TextSpot {
    std::uint32_t font;
    std::uint32_t smallest;  // font in which a text is drawn there that is too wide for the first
    int room;                // pixels
    std::vector<std::string> places;

    [[nodiscard]] std::string Comment() const;

    /// A spot from its comment, without its places; nothing when the comment tells something else.
    [[nodiscard]] static std::optional<TextSpot> FromComment(std::string_view comment);
};

using TextSpots = std::map<std::uint32_t, std::vector<TextSpot>>;  // by string number

/// Reads what the audit of the layout wrote, and joins the spots of a string that have the same fonts: the narrowest
/// room counts.
/// @throws SourceError
[[nodiscard]] TextSpots ReadTextSpots(const std::filesystem::path& path);
