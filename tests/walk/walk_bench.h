#pragma once

#include <functional>
#include <set>
#include <span>
#include <string>

#include "tests/bench/panel_bench.h"
#include "tests/walk/stroke.h"
#include "tests/walk/write_watch.h"

/// What a walk came to.
struct WalkReport {
    std::string fault;  // empty: none
    long keys = 0;
    long strokes = 0;
    std::size_t screensMissed = 0;
};

/// The application as it came up, for one walk. The same seed walks the same way again.
///
/// Strokes reach the display as key records and commands do, through its queue, with the toolkit between busy and idle.
/// All is drawn, but the pixels are left out. The meter lives a second in a second of ticks.
class WalkBench : public PanelBench {
protected:
    WalkBench();

    /// A walk that invents its strokes until so many keys were pressed, or something goes wrong. A display that hangs
    /// is ended by a signal.
    WalkReport Walk(unsigned seed, long keys, bool withFaults);

    /// What it saw of writes and logins.
    WriteWatch watch;

    /// Called after each stroke of a walk, to plant a fault.
    std::function<void(const Stroke&)> afterStroke;

private:
    void Do(const Stroke& stroke);
    void Move(std::uint8_t key, bool down);
    void Deliver();
    void Pass(int ticks);
    bool Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response);
    void Look();

    LinkState m_link = LinkState::Whole;
    bool m_done = false;  // whether the meter did what it was asked last
    std::uint32_t m_noise = 1;
    int m_ticks = 0;
    std::set<std::int32_t> m_unseen;
    std::string m_fault;
};
