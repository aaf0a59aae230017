#pragma once

#include <array>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "tests/bench/test_on.h"
#include "tests/walk/stroke.h"
#include "tests/walk/write_watch.h"

/// What a walk came to.
struct WalkRecord {
    static constexpr long kMostKeys = 5'000'000;

    long keys;
    int writes;
    int refusals;
    int logins;
    std::size_t screensMissed;
    std::size_t strokes;
    std::array<Stroke, std::size_t{2 * kMostKeys}> list;
    std::array<std::int16_t, std::size_t{2 * kMostKeys}> screens;  // on which each stroke was made
};

/// The application as it came up, on which walks are tried out: each in a process of its own that begins there.
///
/// Strokes reach the display as key records and commands do, through its queue, with the toolkit between busy and idle.
/// All is drawn, but the pixels are left out. The meter lives a second in a second of ticks.
class WalkBench : public PanelTest {
protected:
    WalkBench();

    /// A walk that invents its strokes until so many keys were pressed, or something goes wrong.
    /// @return what goes wrong, or nothing
    std::string Walk(unsigned seed, long keys, bool withFaults);

    /// The shortest list of strokes that shows the fault of the last walk; a command of the meter may stand for the way
    /// to the screen where it begins.
    std::vector<Stroke> ShortestThatShows(const std::string& fault);

    /// Called after each stroke, to plant a fault.
    virtual void AfterStroke(const Stroke&) {}

    WalkRecord& record;  // of the last walk, in memory that outlives its process

private:
    std::string FaultOf(const std::function<void()>& strokes);
    void Do(const Stroke& stroke);
    void Move(std::uint8_t key, bool down);
    void Deliver();
    void Pass(int ticks);
    bool Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response);
    void Look();

    WriteWatch m_watch;
    LinkState m_link = LinkState::Whole;
    std::optional<bool> m_done;  // whether the meter did what it was asked last, if it was reached
    std::uint32_t m_noise = 1;
    int m_ticks = 0;
    long m_keys = 0;
    std::set<std::int32_t> m_unseen;
    std::string m_fault;
};
