#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/panel.h"
#include "simulator/bench/panel_bench.h"
#include "tests/bench/golden.h"

/// A test that works the display on a bench.
template <typename Bench>
class TestOn : public ::testing::Test, public Bench {
protected:
    /// The panel equals the golden picture of that name.
    ::testing::AssertionResult PanelShows(const std::string& golden) {
        return FrameMatchesGolden(Bench::Screen().Row(0), kPanelWidth, kPanelHeight, golden);
    }
};

using ToolkitTest = TestOn<ToolkitBench>;
using PanelTest = TestOn<PanelBench>;
