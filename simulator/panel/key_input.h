#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>

#include "simulator/panel/keys.h"

namespace panel {

/// Turns what fingers do into the records of the keys device.
///
/// Soft keys 2 and 3 are reported together, as code 6, when they go down within kChordWindow of each other. Therefore
/// the first of the two waits that long before it is reported, unless it goes up or another key moves first. A key that
/// is held does not go down again, and one that is not held does not go up.
/// Time is what the caller says it is. Single-threaded.
class KeyInput {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Report = std::function<void(KeyRecord record)>;

    static constexpr std::chrono::milliseconds kChordWindow{80};

    explicit KeyInput(Report report) : m_report(std::move(report)) {}

    void Press(Key key, Time now);
    void Release(Key key);

    /// Reports the key that waited for its partner in vain.
    void Tick(Time now);

    /// @return when Tick has something to do, if ever
    std::optional<Time> NextTick() const;

private:
    struct Waiting {
        Key key;
        Time until;
    };

    bool& Held(Key key) { return m_held[static_cast<std::size_t>(key) - 1]; }
    void ReportWaiting();

    Report m_report;
    std::array<bool, kKeyCodes> m_held{};  // by fingers; of Soft23, that the pair was reported as one
    std::optional<Waiting> m_waiting;
};

}  // namespace panel
