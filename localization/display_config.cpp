#include "localization/display_config.h"

#include <array>
#include <atomic>

namespace {

// Written by the command server task, and by the toolkit task at the hand-over; read by the toolkit task.
std::atomic<std::uint32_t> requestedLanguage = 0;
std::atomic<std::uint32_t> requestedPhaseLabels = 0;
std::atomic<std::uint32_t> requestedMeasSymbols = 0;

struct Selection {
    std::uint32_t registerId;
    void (*store)(std::uint32_t index);
};
constexpr auto kSelections = std::to_array<Selection>({
    {1914, DISPCFG_setLanguage},
    {2062, DISPCFG_setPhaseLabels},
    {1919, DISPCFG_setMeasSymbols},
});

constexpr int kLineHeldLow = 0;
constexpr int kLineHeldHigh = 1;

}  // namespace

void DISPCFG_setLanguage(std::uint32_t index) { requestedLanguage = index; }

void DISPCFG_setPhaseLabels(std::uint32_t index) { requestedPhaseLabels = index; }

void DISPCFG_setMeasSymbols(std::uint32_t index) { requestedMeasSymbols = index; }

std::uint32_t DISPCFG_getLanguage() { return requestedLanguage; }

std::uint32_t DISPCFG_getPhaseLabels() { return requestedPhaseLabels; }

std::uint32_t DISPCFG_getMeasSymbols() { return requestedMeasSymbols; }

void DISPCFG_init(const DisplayConfigSources& sources) {
    for (const Selection& selection : kSelections) {
        std::uint32_t selected = 0;
        if (sources.readSelection(selection.registerId, selected) == 0) selection.store(selected);
    }
    sources.setOutputLine(kLineHeldLow, 0);
    sources.setOutputLine(kLineHeldHigh, 1);
}
