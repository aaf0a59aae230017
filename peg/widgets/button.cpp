#include "peg/widgets/button.h"

#include "peg/core/timer_list.h"

namespace {
constexpr std::uint16_t kRepeatTimer = 1;
constexpr int kTicksToFirstRepeat = 20;
constexpr int kTicksBetweenRepeats = 5;
}  // namespace

PegButton::PegButton(const PegRect& rect, std::uint16_t id, std::uint32_t style) : PegTextThing(rect, id, style) {
    EnableSignal(kSignalSelected);
}

std::int32_t PegButton::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_BUTTON_DOWN: Press(message.type); return 0;
        case MSG_BUTTON_UP: Release(message); return 0;
        case MSG_TIMER:
            if (message.param != kRepeatTimer || !IsPressed()) break;
            Signal(kSignalSelected);
            return 0;
        case MSG_HIDE: KillTimer(*this, kRepeatTimer); break;
    }
    return PegTextThing::Message(message);
}

void PegButton::Press(int /*reason*/) {
    if (IsPressed()) return;
    SetStyleBits(kStyleButtonPressed);
    Invalidate(Clip());
    if (!HasStyle(kStyleButtonOnPress)) return;
    Signal(kSignalSelected);
    if (HasStyle(kStyleButtonRepeat)) SetTimer(*this, kRepeatTimer, kTicksToFirstRepeat, kTicksBetweenRepeats);
}

void PegButton::Release(const PegMessage& /*message*/) {
    if (HasStyle(kStyleButtonRepeat)) KillTimer(*this, kRepeatTimer);
    if (!IsPressed()) return;
    Invalidate(Clip());
    ClearStyleBits(kStyleButtonPressed);
    if (!HasStyle(kStyleButtonOnPress)) Signal(kSignalSelected);
}
