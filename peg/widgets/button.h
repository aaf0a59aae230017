#pragma once

#include "peg/core/text_thing.h"

inline constexpr std::uint32_t kStyleButtonRepeat = 0x10000;   // with OnPress: again and again while held
inline constexpr std::uint32_t kStyleButtonPressed = 0x20000;  // held down
inline constexpr std::uint32_t kStyleButtonOnPress = 0x40000;  // tells on press instead of on release

/// Something to press. It tells its parent by signal 4, on release or, as its style asks, on press.
class PegButton : public PegTextThing {
public:
    explicit PegButton(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0);

    std::int32_t Message(const PegMessage& message) override;

    /// Takes the pressed look. `reason` is the message type or key code that caused it.
    virtual void Press(int reason);

    /// Takes the normal look again; nothing for a button that is not pressed.
    virtual void Release(const PegMessage& message);

    bool IsPressed() const { return HasStyle(kStyleButtonPressed); }
    bool IsActive() const { return HasStyle(kStyleActive); }
};
