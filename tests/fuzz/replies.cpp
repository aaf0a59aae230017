#include <algorithm>
#include <array>

#include "app/application.h"
#include "tests/bench/panel_bench.h"
#include "tests/fuzz/target.h"

namespace {

constexpr std::int32_t kNeutral = 1;
constexpr int kTicks = 21;  // a refresh
constexpr std::array<KeyCode, 6> kKeys = {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_4, KEY_SOFT_2_3, KEY_HOME};

/// The whole application with a meter whose answers are the input: to each call the next bytes of it, and zeros once
/// they are used up.
class Panel : public PanelBench {
public:
    Panel() { BuildApplication(Manager()); }

    void Walk(std::span<const std::uint8_t> bytes) {
        if (bytes.size() < kHead) return;
        const std::int32_t screen = bytes[0] % (kLastCommandedScreen + 1);
        const std::span keys = bytes.subspan(1, kHead - 1);
        m_rest = bytes.subspan(kHead);
        meter().AnswerEveryCallBy([this](auto, std::span<std::byte> response) { return Answer(response); });
        meter().ForgetCalls();
        Show(screen);
        Ticks(kTicks);
        for (const std::uint8_t key : keys) {
            Press(kKeys[key % kKeys.size()]);
            Ticks(1);
        }
        m_rest = {};
        Show(kNeutral);
    }

private:
    static constexpr std::size_t kHead = 4;  // a screen and three keys

    bool Answer(std::span<std::byte> response) {
        const auto part = m_rest.first(std::min(response.size(), m_rest.size()));
        std::ranges::copy(std::as_bytes(part), response.begin());
        m_rest = m_rest.subspan(part.size());
        return true;
    }
    void TestBody() override {}

    std::span<const std::uint8_t> m_rest;
};

Panel* panel = nullptr;

}  // namespace

/// What a screen needs for its data it has from the start; beside that there are pop-ups and lists.
const MemoryBound kMemoryBound = {.bytes = 1024 * 1024, .perByte = 0};

void Prepare() { panel = new Panel; }

void Take(std::span<const std::uint8_t> input) { panel->Walk(input); }
