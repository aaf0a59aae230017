#include "tools/catalogue/text_spots.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <sstream>

#include "tools/formats/file_bytes.h"
#include "tools/formats/source_error.h"

namespace {

constexpr std::size_t kNamedPlaces = 3;

/// Takes a number off the front of a text.
template <typename T>
bool TakeNumber(std::string_view& text, T& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc{};
}

bool TakeWord(std::string_view& text, std::string_view word) {
    if (!text.starts_with(word)) return false;
    text.remove_prefix(word.size());
    return true;
}

struct Joined {
    int room;
    std::set<std::string> places;
};

}  // namespace

std::string TextSpot::Comment() const {
    std::ostringstream comment;
    comment << "font " << font;
    if (smallest != font) comment << " or " << smallest;
    comment << ", " << room << " px:";
    const std::size_t named = places.size() <= kNamedPlaces + 1 ? places.size() : kNamedPlaces;
    for (std::size_t i = 0; i < named; ++i) comment << (i == 0 ? " " : ", ") << places[i];
    if (named < places.size()) comment << " and " << places.size() - named << " more";
    return comment.str();
}

std::optional<TextSpot> TextSpot::FromComment(std::string_view comment) {
    TextSpot spot{};
    if (!TakeWord(comment, "font ") || !TakeNumber(comment, spot.font)) return {};
    spot.smallest = spot.font;
    if (TakeWord(comment, " or ") && !TakeNumber(comment, spot.smallest)) return {};
    if (!TakeWord(comment, ", ") || !TakeNumber(comment, spot.room) || !TakeWord(comment, " px:")) return {};
    return spot;
}

TextSpots ReadTextSpots(const std::filesystem::path& path) {
    std::map<std::uint32_t, std::map<std::pair<std::uint32_t, std::uint32_t>, Joined>> joined;
    std::istringstream file(ReadTextFile(path));
    std::string line;
    for (int row = 1; std::getline(file, line); ++row) {
        std::istringstream fields(line);
        std::uint32_t number = 0;
        TextSpot spot{};
        if (!(fields >> number >> spot.font >> spot.smallest >> spot.room)) {
            throw SourceError(path.string(), row, "four numbers were expected");
        }
        Joined& join = joined[number].try_emplace({spot.font, spot.smallest}, Joined{spot.room, {}}).first->second;
        join.room = std::min(join.room, spot.room);
        std::string place;
        fields.ignore();
        while (std::getline(fields, place, '\t')) join.places.insert(place);
    }
    TextSpots spots;
    for (const auto& [number, fonts] : joined) {
        for (const auto& [font, join] : fonts) {
            spots[number].push_back({font.first, font.second, join.room, {join.places.begin(), join.places.end()}});
        }
    }
    return spots;
}
