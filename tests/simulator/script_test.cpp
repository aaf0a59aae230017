#include "simulator/meter/link/script.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Lines = std::vector<std::string>;

TEST(Script, GivesEachLineOnceWhenItIsDue) {
    std::istringstream text("# a sag\n\n0 navigate 68\n1.5   scenario sag\n1.5 set 1914 German\n");
    meter::Script script(text);
    EXPECT_EQ(script.TakeDue(0), Lines{"navigate 68"});
    EXPECT_EQ(script.TakeDue(1499), Lines{});
    EXPECT_EQ(script.TakeDue(9000), (Lines{"scenario sag", "set 1914 German"}));
    EXPECT_EQ(script.TakeDue(9000), Lines{});
}

TEST(Script, RefusesWhatIsNoStep) {
    for (const char* wrong : {"navigate 68", "5", "5 ", "-1 state", "nan state", "1e99 state", "2 state\n1 state"}) {
        std::istringstream text(wrong);
        EXPECT_THROW(meter::Script{text}, std::runtime_error) << wrong;
    }
}

}  // namespace
