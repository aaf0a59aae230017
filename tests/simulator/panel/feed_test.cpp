#include "simulator/panel/feed.h"

#include <gtest/gtest.h>

namespace {

TEST(Feed, TellsAReaderWhatWasDroppedBeforeHeCame) {
    panel::Feed feed(3);
    EXPECT_TRUE(feed.Since(0).entries.empty());
    for (const char* entry : {"1", "2"}) feed.Append(entry);
    const auto first = feed.Since(0);
    EXPECT_EQ(first.entries, "[1,2]");
    EXPECT_EQ(first.lost, 0U);
    EXPECT_TRUE(feed.Since(first.next).entries.empty());
    for (const char* entry : {"3", "4", "5", "6"}) feed.Append(entry);
    const auto late = feed.Since(first.next);
    EXPECT_EQ(late.entries, "[4,5,6]");
    EXPECT_EQ(late.lost, 1U);
    EXPECT_EQ(feed.Since(0).lost, 3U);
}

}  // namespace
