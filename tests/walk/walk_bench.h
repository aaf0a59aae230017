#pragma once

#include <array>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "simulator/bench/panel_bench.h"
#include "tests/bench/test_on.h"
#include "tests/walk/stroke.h"
#include "tests/walk/write_watch.h"

/// What happened on a walk, in numbers.
struct WalkCounts {
    long keys = 0;
    int writes = 0;
    int refusals = 0;
    int logins = 0;
    std::size_t screensMissed = 0;
};

/// What a walk came to.
struct WalkReport {
    std::vector<Stroke> strokes;
    std::vector<std::int16_t> screens;  // on which each stroke was made
    std::string fault;                  // empty: none
    WalkCounts counts;
};

/// The application as it came up, on which walks are tried out: each in a process of its own that begins there.
///
/// Strokes reach the display as key records and commands do, through its queue, with the toolkit between busy and idle.
/// All is drawn, but the pixels are left out. The meter lives a second in a second of ticks.
class WalkBench : public TestOn<PanelBench> {
protected:
    WalkBench();

    /// A walk that invents its strokes until so many keys were pressed, or something goes wrong.
    WalkReport Walk(unsigned seed, long keys, bool withFaults);

    /// The fault that a list of strokes shows, or nothing.
    std::string FaultOf(std::span<const Stroke> strokes);

    /// The shortest list of strokes that shows the fault of a walk; a command of the meter may stand for the way to the
    /// screen where it begins.
    std::vector<Stroke> ShortestOf(const WalkReport& report);

    /// The same with the seed, for a person to read.
    std::string Explain(const WalkReport& report, unsigned seed);

    /// Called after each stroke of a walk, to plant a fault.
    std::function<void(const Stroke&)> afterStroke;

private:
    struct Step;
    struct Shared;

    void Do(const Stroke& stroke);
    void Move(std::uint8_t key, bool down);
    void Deliver();
    void Pass(int ticks);
    bool Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response);
    void Look();
    Shared& RunInChild(std::size_t steps, const std::function<void(Shared&)>& work);
    void Tell(Shared& shared) const;

    WriteWatch m_watch;
    LinkState m_link = LinkState::Whole;
    bool m_done = false;  // whether the meter did what it was asked last
    std::uint32_t m_noise = 1;
    int m_ticks = 0;
    std::set<std::int32_t> m_unseen;
    std::string m_fault;
};
