#include "simulator/panel/key_input.h"

namespace panel {
namespace {

constexpr KeyRecord Down(Key key) { return {static_cast<std::int32_t>(key), 0}; }
constexpr KeyRecord Up(Key key) { return {static_cast<std::int32_t>(key), 1}; }

constexpr bool IsOfPair(Key key) { return key == Key::Soft2 || key == Key::Soft3; }
constexpr Key PartnerOf(Key key) { return key == Key::Soft2 ? Key::Soft3 : Key::Soft2; }

}  // namespace

void KeyInput::Press(Key key, Time now) {
    Tick(now);
    if (Held(key)) return;
    Held(key) = true;
    if (m_waiting && m_waiting->key == PartnerOf(key) && IsOfPair(key)) {
        m_waiting.reset();
        Held(Key::Soft2) = Held(Key::Soft3) = false;
        Held(Key::Soft23) = true;
        m_report(Down(Key::Soft23));
        return;
    }
    ReportWaiting();
    if (IsOfPair(key) && !Held(PartnerOf(key)) && !Held(Key::Soft23)) {
        m_waiting = Waiting{key, now + kChordWindow};
        return;
    }
    m_report(Down(key));
}

void KeyInput::Release(Key key) {
    // Both keys of a pair that was reported as one: the first that goes up ends it.
    if (IsOfPair(key) && !Held(key) && Held(Key::Soft23)) key = Key::Soft23;
    if (!Held(key)) return;
    Held(key) = false;
    ReportWaiting();
    m_report(Up(key));
}

void KeyInput::Tick(Time now) {
    if (m_waiting && now >= m_waiting->until) ReportWaiting();
}

std::optional<KeyInput::Time> KeyInput::NextTick() const {
    return m_waiting ? std::optional(m_waiting->until) : std::nullopt;
}

void KeyInput::ReportWaiting() {
    if (!m_waiting) return;
    const Key key = m_waiting->key;
    m_waiting.reset();
    m_report(Down(key));
}

}  // namespace panel
