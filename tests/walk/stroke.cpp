#include "tests/walk/stroke.h"

#include <array>

std::string TextOf(std::span<const Stroke> strokes) {
    constexpr std::array kKindNames = {"Press", "Chord", "Go", "Mode", "Link"};
    std::string text;
    const auto add = [&text](const char* field, int value, int usual) {
        if (value != usual) text += std::string(", .") + field + " = " + std::to_string(value);
    };
    for (const Stroke& stroke : strokes) {
        text += std::string("{.kind = Stroke::Kind::") + kKindNames[static_cast<std::size_t>(stroke.kind)];
        add("key", stroke.key, 0);
        add("other", stroke.other, 0);
        add("times", stroke.times, 1);
        add("target", stroke.target, 0);
        add("held", stroke.held, 0);
        add("then", stroke.then, 0);
        text += "},\n";
    }
    return text;
}
