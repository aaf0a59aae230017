#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/walk/shrinker.h"

namespace {

Stroke Pressed(std::uint8_t key) { return {.key = key}; }

/// A long list of strokes with the given ones in it, in their order, at random places.
std::vector<Stroke> ListWith(std::span<const Stroke> needed, std::size_t length, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<Stroke> list;
    for (std::size_t i = 0; i < length; ++i) {
        const auto left = length - i;
        const auto missing = needed.size() - static_cast<std::size_t>(std::ranges::count_if(
                                                 list, [](const Stroke& one) { return one.key != kHomeKey; }));
        const bool isNext = missing != 0 && random() % left < missing;
        list.push_back(isNext ? needed[needed.size() - missing] : Stroke{.then = 7});
    }
    return list;
}

TEST(Shrinker, KeepsOnlyWhatIsNeeded) {
    const std::vector<Stroke> needed = {Pressed(kSoftKey4), Pressed(kSoftKey2), Pressed(kSoftKeys23),
                                        Pressed(kSoftKey1)};
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const std::vector<Stroke> list = ListWith(needed, 5000, seed);
        int runs = 0;
        const auto shrunk = Shrink(list, [&](std::span<const Stroke> strokes) {
            ++runs;
            std::size_t found = 0;
            for (const Stroke& stroke : strokes) found += found < needed.size() && stroke == needed[found] ? 1 : 0;
            return found == needed.size();
        });
        EXPECT_EQ(shrunk, needed) << "seed " << seed;
        EXPECT_LT(runs, 400) << "seed " << seed;
    }
}

TEST(Shrinker, DropsWaitsThatAreNotNeeded) {
    const std::vector<Stroke> list = {{.key = kSoftKey1, .held = 9, .then = 30}, {.key = kSoftKey2, .then = 300}};
    const auto shrunk = Shrink(list, [](std::span<const Stroke> strokes) {
        return strokes.size() == 2 && strokes[0].then + strokes[1].then >= 300;
    });
    EXPECT_EQ(shrunk, (std::vector<Stroke>{{.key = kSoftKey1}, {.key = kSoftKey2, .then = 300}}));
}

TEST(Shrinker, GivesUpWithWhatItHas) {
    const std::vector<Stroke> list(64);
    const auto shrunk = Shrink(
        list, [](std::span<const Stroke> strokes) { return strokes.size() >= 3; }, 4);
    EXPECT_GE(shrunk.size(), 3U);
    EXPECT_LT(shrunk.size(), 64U);
}

}  // namespace
