#include "tests/walk/stroke.h"

#include <array>

namespace {

constexpr std::array<const char*, 6> kKeyNames = {"home", "soft1", "soft2", "soft3", "soft4", "soft23"};
constexpr std::array<const char*, kLinkStates> kLinkNames = {"whole",           "silent",  "losing replies",
                                                             "cutting replies", "garbage", "refusing writes"};

std::string WordsOf(const Stroke& stroke) {
    const auto target = static_cast<std::size_t>(stroke.target);
    switch (stroke.kind) {
        case Stroke::Kind::Press: return kKeyNames[stroke.key];
        case Stroke::Kind::Chord: return std::string(kKeyNames[stroke.key]).append("+").append(kKeyNames[stroke.other]);
        case Stroke::Kind::Bounce:
            return std::string(kKeyNames[stroke.key]).append(" bouncing ").append(std::to_string(stroke.times));
        case Stroke::Kind::Go: return std::string("meter: screen ").append(std::to_string(stroke.target));
        case Stroke::Kind::Mode: return std::string("meter: mode ").append(std::to_string(stroke.target));
        case Stroke::Kind::Link: return std::string("link ").append(kLinkNames[target]);
    }
    return {};
}

}  // namespace

int Stroke::Keys() const {
    switch (kind) {
        case Kind::Press: return 1;
        case Kind::Chord: return 2;
        case Kind::Bounce: return times;
        case Kind::Go:
        case Kind::Mode:
        case Kind::Link: break;
    }
    return 0;
}

std::string TextOf(std::span<const Stroke> strokes) {
    std::string text;
    for (const Stroke& stroke : strokes) {
        text += "  " + WordsOf(stroke);
        if (stroke.held != 0) text += ", held " + std::to_string(stroke.held) + " ticks";
        if (stroke.then != 0) text += ", then " + std::to_string(stroke.then) + " ticks";
        text += '\n';
    }
    return text;
}
