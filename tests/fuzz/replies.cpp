#include <algorithm>
#include <numeric>

#include "tests/fuzz/panel_walk.h"
#include "tests/fuzz/target.h"

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kHead = 3;
constexpr std::size_t kMostActs = 15;
constexpr unsigned kPixelsOnceIn = 16;  // inputs: most of the time goes into them, and they depend on replies the least

/// What the meter has yet to answer: to each call the next bytes, and zeros once they are used up.
struct Answers {
    Bytes rest;
    unsigned untilBreak;  // calls until one breaks off half-way; 0: none does

    bool Give(std::span<std::byte> response) {
        const bool breaks = untilBreak != 0 && --untilBreak == 0;
        const std::size_t whole = std::min(response.size(), rest.size());
        const Bytes part = rest.first(breaks ? whole / 2 : whole);
        std::ranges::copy(std::as_bytes(part), response.begin());
        rest = rest.subspan(part.size());
        return !breaks;
    }
};

/// Whether an input has its pixels drawn, as it falls out: a byte of its own would be what the fuzzer likes to set.
bool HasPixels(Bytes input) { return std::accumulate(input.begin(), input.end(), 0U) % kPixelsOnceIn == 0; }

PanelWalk* walk = nullptr;
Answers answers;

}  // namespace

/// Screens are there from the start; pop-ups, lists and what the bench notes of calls come with the input.
const MemoryBound kMemoryBound = {.bytes = 1024 * 1024, .perByte = 0};

void Prepare() {
    walk = new PanelWalk;
    PanelWalk::meter().TakeEveryCall([](auto, auto, std::span<std::byte> response) { return answers.Give(response); });
}

/// First byte: a screen; then which call breaks off, and how many acts follow; then these; then the replies.
void Take(Bytes input) {
    if (input.size() < kHead) return;
    const std::size_t acts = std::min(input[2] % (kMostActs + 1), input.size() - kHead);
    walk->Screen().blind = !HasPixels(input);
    PanelWalk::meter().ForgetCalls();
    answers = {input.subspan(kHead + acts), input[1]};
    walk->Enter(input[0] % (kLastCommandedScreen + 1));
    for (const std::uint8_t act : input.subspan(kHead, acts))
        walk->Do(static_cast<PanelWalk::Act>(act % PanelWalk::kActs));
    answers = {};
    walk->Leave();
}
