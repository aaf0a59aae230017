#pragma once

#include <memory>
#include <string>
#include <vector>

#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/timer_list.h"
#include "peg/core/toolkit.h"
#include "peg/port/l16_screen.h"
#include "peg/port/vxpeg.h"

/// What a bench screen tells of the pixels that it paints.
class PaintObserver {
public:
    virtual void OnCovered(const PegRect& area) = 0;
    virtual void OnBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) = 0;
    virtual void OnTextPainted(const PegRect& area) = 0;  // of the text that the screen's text observer heard of last

protected:
    ~PaintObserver() = default;
};

/// A screen whose frame goes nowhere; it counts how often it would have gone to the device. A blind one is drawn on
/// like any other, but leaves the pixels out, which are most of the work.
class BenchScreen : public L16Screen {
public:
    using L16Screen::L16Screen;
    void FlushToDevice() override { ++flushes; }

    int flushes = 0;
    bool blind = false;
    PaintObserver* observer = nullptr;

protected:
    void FillArea(const PegRect& area, std::uint16_t color) override {
        if (blind) return;
        L16Screen::FillArea(area, color);
        if (observer != nullptr) observer->OnCovered(area);
    }
    void PaintBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) override {
        if (blind) return;
        L16Screen::PaintBitmap(area, topLeft, bitmap);
        if (observer != nullptr) observer->OnBitmap(area, topLeft, bitmap);
    }
    void PaintText(const PegRect& area, PegPoint topLeft, std::u16string_view text, const PegBrush& brush,
                   const PegFont& font) override {
        if (blind) return;
        L16Screen::PaintText(area, topLeft, text, brush, font);
        if (observer != nullptr) observer->OnTextPainted(area);
    }
};

/// The toolkit without its task: messages are delivered and ticks pass when its owner says so, and time is ticks.
///
/// One toolkit in a process.
class ToolkitBench {
protected:
    ToolkitBench();
    ToolkitBench(const ToolkitBench&) = delete;
    ToolkitBench& operator=(const ToolkitBench&) = delete;
    ~ToolkitBench();

    /// Delivers every waiting message and draws what is invalid.
    void Pump();

    /// Lets ticks pass, one by one.
    void Ticks(int count);
    static PegPresentationManager& Manager() { return *toolkit.manager; }
    BenchScreen& Screen() { return *m_screen; }
    std::uint16_t Pixel(int x, int y) const { return m_screen->Row(y)[x]; }

    /// The frame's rectangle as text, one letter a pixel: the letter that `colors` gives it, or '?'.
    struct ColorLetter {
        std::uint16_t color;
        char letter;
    };
    std::vector<std::string> Picture(const PegRect& rect, std::initializer_list<ColorLetter> colors) const;

private:
    BenchScreen* m_screen;
    os::MessageQueueId m_queue;
    std::unique_ptr<PegToolkitObjects> m_objects;
};

/// A message without source and target.
PegMessage MessageOf(std::uint16_t type, std::int16_t param = 0);
