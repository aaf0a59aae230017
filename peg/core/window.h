#pragma once

#include <cstdint>

#include "peg/core/text_thing.h"
#include "peg/resources/bitmap.h"

/// What a window returns when it closes itself.
inline constexpr std::int32_t kWindowClosed = 1000;

/// How a window shows its background bitmap.
enum class PegBitmapMode { Centred, Tiled };

/// A screen, a dialog or a box: a frame, a background and children. At the top level it owns the region it covers.
class PegWindow : public PegTextThing {
public:
    using TimerHandler = void (*)(PegWindow& window);

    explicit PegWindow(std::uint16_t id = 0, std::uint32_t style = 0);
    explicit PegWindow(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0);

    void Draw(const PegRect& invalid) override;
    std::int32_t Message(const PegMessage& message) override;

    /// Runs a message loop of its own until the window is closed; its input goes to the calling task.
    /// @return what the message that ended it returned
    virtual std::int32_t Execute();

    /// Shows a bitmap behind the children: by its number, or the caller's own; 0 and null for none.
    void SetBackground(std::uint32_t bitmapNumber, PegBitmapMode mode = PegBitmapMode::Centred);
    void SetBackground(const PegBitmap* bitmap, PegBitmapMode mode = PegBitmapMode::Centred);

    /// Names what the window's own timer runs; null stops the timer at its next expiry.
    void SetTimerHandler(TimerHandler handler) { m_timerHandler = handler; }

protected:
    /// Draws frame and background, but neither opens a pass nor draws children.
    void DrawBackground();

private:
    void DrawBackgroundBitmap(const PegBitmap& bitmap);
    std::int32_t Close(std::int32_t result);

    const PegBitmap* m_background = nullptr;
    std::uint32_t m_backgroundNumber = 0;
    PegBitmapMode m_backgroundMode = PegBitmapMode::Centred;
    TimerHandler m_timerHandler = nullptr;
};
