#include "simulator/meter/link/script.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(Script, RefusesWhatIsNoStep) {
    for (const char* wrong : {"navigate 68", "5", "5 ", "-1 state", "nan state", "1e99 state", "2 state\n1 state"}) {
        std::istringstream text(wrong);
        EXPECT_THROW(meter::Script{text}, std::runtime_error) << wrong;
    }
}

}  // namespace
