#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>

#include "tools/panel_tour/text_record.h"
#include "tools/text_places/known_texts.h"

/// Collects where each string of the catalogue is shown, in which fonts and in how much room, for the translators.
class TextPlaces {
public:
    explicit TextPlaces(const KnownTexts& known) : m_known(known) {}

    /// Notes how wide the places of one picture can be and how small their fonts, in any language.
    void AddLimits(const TextRecord& record, const std::string& place);

    /// Adds the texts of one picture.
    void Add(const TextRecord& record, const std::string& place);

    /// Writes a line for each spot of a string, fields separated by tabs: string number, font, smallest font in which a
    /// text is drawn there when it is wide, pixels of room, places. @return false when the file cannot be written
    bool Write(const std::string& path) const;

private:
    /// The edges of a text's room; what is drawn there gets smaller as it gets wider.
    using Spot = std::tuple<std::int16_t, std::int16_t, std::int16_t, std::int16_t>;
    struct Use {
        std::uint32_t number;
        std::uint32_t font;
        int room;
        Spot spot;
        std::string place;

        auto operator<=>(const Use&) const = default;
    };

    const KnownTexts& m_known;
    std::map<std::string, std::string> m_titles;  // of places, the first that was seen
    std::map<Spot, std::uint32_t> m_smallest;     // font numbers
    std::map<std::tuple<std::string, std::int16_t, std::int16_t>, std::int16_t> m_rightmost;  // edges, by left and top
    std::set<Use> m_uses;
};
