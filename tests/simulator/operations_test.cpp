#include "simulator/meter/model/operations.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using bench::Bytes;

class AllOperations : public testing::Test {
protected:
    Meter m_meter{bench::kSeed, bench::kStart};
};

TEST_F(AllOperations, TakeTheLargestNumbers) {
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    for (const Operation& operation : Operations()) {
        if (operation.texts > 0) continue;
        for (std::uint32_t last : {0U, 1U, 3U, kMost}) {
            Bytes payload;
            for (std::size_t i = 0; i < operation.words; ++i) {
                const bool counts = operation.countWord == static_cast<int>(i);
                const Bytes word = bench::Words({counts ? last : kMost});
                payload.insert(payload.end(), word.begin(), word.end());
            }
            const bool many = operation.countWord != kFixedSize;
            Bytes reply(many ? operation.replySize * (last == kMost ? 1 : last) : operation.replySize);
            EXPECT_EQ(m_meter.Answer(operation.name, payload, reply), !many || last != kMost) << operation.name;
        }
    }
}

TEST_F(AllOperations, TurnPagesAndStopAtBothEnds) {
    const auto turn = [this](std::uint32_t command) {
        return bench::Ask<CustomScreenData>(m_meter, "CUSTOMSCREENINTERFACE_getNormalModeScreenData",
                                            bench::Words({command}));
    };
    EXPECT_EQ(turn(kPagePrevious).isFirstPage.Get(), 1U);
    std::set<std::string> titles;
    CustomScreenData page = turn(kPageCurrent);
    for (int i = 0; i < 20 && page.isLastPage.Get() == 0; ++i) {
        titles.emplace(TextIn(page.title));
        ASSERT_GE(page.count.Get(), 1U);
        ASSERT_LE(page.count.Get(), kMaxPageParameters);
        EXPECT_FALSE(TextIn(page.parameters[page.count.Get() - 1].value).empty());
        page = turn(kPageNext);
    }
    EXPECT_EQ(page.isLastPage.Get(), 1U);
    EXPECT_EQ(titles.size(), PagesOf(PageSet::Normal).size() - 1);
    EXPECT_EQ(TextIn(turn(kPageNext).title), TextIn(page.title));
    EXPECT_EQ(turn(kPageFirst).isFirstPage.Get(), 1U);
}

}  // namespace
