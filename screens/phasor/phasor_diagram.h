#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "navigation/power_quality_display.h"
#include "peg/core/thing.h"

/// Draws voltages and currents as arrows from the centre of a circle, at their angles and as long as their magnitudes:
/// the longest reaches the circle. Phasors that are not shown leave no trace.
class PhasorDiagram : public PegThing {
public:
    static constexpr std::size_t kArrows = 6;

    explicit PhasorDiagram(const PegRect& rect);

    void Draw(const PegRect& invalid) override;

    /// Takes the phasors as the meter lists them; the same again change nothing on the panel.
    void Show(std::span<const PhasorDisplay> phasors);

private:
    struct Phasor {
        bool shown = false;
        std::int32_t magnitude = 0;
        std::int32_t angle = 0;

        friend bool operator==(const Phasor&, const Phasor&) = default;
    };

    std::int32_t LongestMagnitude() const;

    std::array<Phasor, kArrows> m_phasors{};
};
