#include "tools/drawing/palette.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "tools/formats/json_source.h"

namespace {

std::uint16_t ReadColour(const JsonSource& source) {
    const std::string text = source.Text();
    unsigned rgb = 0;
    const bool shaped = text.size() == 7 && text[0] == '#';
    if (shaped) {
        const auto [end, error] = std::from_chars(text.data() + 1, text.data() + text.size(), rgb, 16);
        if (error == std::errc{} && end == text.data() + text.size()) {
            return ToRgb565({static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8 & 0xFF),
                             static_cast<std::uint8_t>(rgb & 0xFF), 255});
        }
    }
    source.Fail("\"" + text + "\" is no colour of the form #rrggbb");
}

double Luminance(std::uint16_t rgb565) {
    const auto linear = [](std::uint8_t part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    const Image::Pixel pixel = FromRgb565(rgb565);
    return 0.2126 * linear(pixel.red) + 0.7152 * linear(pixel.green) + 0.0722 * linear(pixel.blue);
}

}  // namespace

Palette Palette::Read(const std::filesystem::path& path) {
    Palette palette;
    for (const JsonSource& colour : JsonSource::Read(path).At("colours").Items()) {
        Entry entry{.number = colour.At("number").Number<std::uint16_t>(),
                    .name = colour.At("name").Text(),
                    .use = colour.Has("use") ? colour.At("use").Text() : "",
                    .value = ReadColour(colour.At("value"))};
        if (palette.Find(entry.number) != nullptr) colour.Fail("this number stands twice");
        palette.m_entries.push_back(std::move(entry));
    }
    return palette;
}

const Palette::Entry* Palette::Find(std::uint32_t number) const {
    const auto found = std::ranges::find(m_entries, number, &Entry::number);
    return found == m_entries.end() ? nullptr : &*found;
}

std::vector<Colour> Palette::Colours() const {
    std::vector<Colour> colours;
    for (const Entry& entry : m_entries) colours.push_back({entry.number, entry.value});
    return colours;
}

std::string Palette::Style() const {
    std::string style;
    for (const Entry& entry : m_entries) {
        const std::string colour = HexOf(entry.value);
        style += ".fill-" + entry.name + "{fill:" + colour + "}.stroke-" + entry.name + "{stroke:" + colour + "}";
    }
    return style;
}

std::string HexOf(std::uint16_t rgb565) {
    const Image::Pixel pixel = FromRgb565(rgb565);
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", unsigned{pixel.red}, unsigned{pixel.green},
                  unsigned{pixel.blue});
    return text.data();
}

double Contrast(std::uint16_t one, std::uint16_t other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}
