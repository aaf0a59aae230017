#include "tests/walk/shrinker.h"

#include <algorithm>

namespace {

constexpr std::size_t kShortestEnd = 8;
constexpr std::size_t kEndGrowth = 4;
constexpr int kMostRuns = 2000;

}  // namespace

std::vector<Stroke> Shrink(std::vector<Stroke> strokes, const ShowsFault& showsFault) {
    int runsLeft = kMostRuns;
    const auto keep = [&](std::vector<Stroke> candidate) {
        if (runsLeft-- <= 0 || !showsFault(candidate)) return false;
        strokes = std::move(candidate);
        return true;
    };
    // A display forgets most of what happened to it: a fault seldom needs more than the last strokes.
    for (std::size_t length = kShortestEnd; length < strokes.size(); length *= kEndGrowth) {
        if (keep({strokes.end() - static_cast<std::ptrdiff_t>(length), strokes.end()})) break;
    }
    // Leaves out halves, quarters and so on, down to single strokes, until none can go.
    for (bool leftOut = true; leftOut;) {
        leftOut = false;
        for (std::size_t size = std::max<std::size_t>(strokes.size() / 2, 1); size >= 1; size /= 2) {
            for (std::size_t at = 0; at < strokes.size();) {
                std::vector<Stroke> rest = strokes;
                const auto first = rest.begin() + static_cast<std::ptrdiff_t>(at);
                rest.erase(first, first + static_cast<std::ptrdiff_t>(std::min(size, rest.size() - at)));
                const bool kept = keep(std::move(rest));
                leftOut |= kept;
                if (!kept) at += size;
            }
        }
    }
    for (std::size_t at = 0; at < strokes.size(); ++at) {
        for (std::uint16_t Stroke::*const wait : {&Stroke::held, &Stroke::then}) {
            std::vector<Stroke> quicker = strokes;
            quicker[at].*wait = 0;
            keep(std::move(quicker));
        }
    }
    return strokes;
}
