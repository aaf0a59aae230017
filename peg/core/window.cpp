#include "peg/core/window.h"

#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr PegRect kDefaultPlace{0, 0, 20, 20};
constexpr std::uint32_t kFocusOnArrival = 0x400;
constexpr std::uint32_t kThickFrameStatus = 0x18;
constexpr std::int16_t kOwnTimer = 1001;
constexpr std::uint32_t kCloseModifier = 0x04;

// Controls whose signal ends a dialog and becomes its result.
constexpr std::uint16_t kDialogResult = 1000;
constexpr std::uint16_t kFirstDialogControl = 1002;
constexpr std::uint16_t kLastDialogControl = 1008;
static_assert(SIGNAL_TYPE(kDialogResult, kSignalSelected) == 0xBE84);
static_assert(SIGNAL_TYPE(kFirstDialogControl, kSignalSelected) == 0xBEA4);
static_assert(SIGNAL_TYPE(kLastDialogControl, kSignalSelected) == 0xBF04);

/// The id of the dialog control whose selection a message reports, or 0.
std::uint16_t DialogControlOf(const PegMessage& message) {
    for (std::uint16_t id = kDialogResult; id <= kLastDialogControl; ++id) {
        if (id != kDialogResult + 1 && message.type == SIGNAL_TYPE(id, kSignalSelected)) return id;
    }
    return 0;
}

}  // namespace

PegWindow::PegWindow(std::uint16_t id, std::uint32_t style) : PegWindow(kDefaultPlace, id, style) {}

PegWindow::PegWindow(const PegRect& rect, std::uint16_t id, std::uint32_t style) : PegTextThing(rect, id, style) {
    SetType(TYPE_WINDOW);
    SetStatusBits(STAT_VIEWPORT | STAT_FRONT_ON_FOCUS | kFocusOnArrival);
    if (HasStyle(kStyleBorderThick)) SetStatusBits(kThickFrameStatus);
    if (HasStyle(kStyleTransparent)) ClearStatusBits(STAT_VIEWPORT);
}

void PegWindow::SetBackground(std::uint32_t bitmapNumber, PegBitmapMode mode) {
    m_background = nullptr;
    m_backgroundNumber = bitmapNumber;
    m_backgroundMode = mode;
    Invalidate();
}

void PegWindow::SetBackground(const PegBitmap* bitmap, PegBitmapMode mode) {
    m_background = bitmap;
    m_backgroundNumber = 0;
    m_backgroundMode = mode;
    Invalidate();
}

void PegWindow::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawBackground();
    DrawChildren(invalid);
}

void PegWindow::DrawBackground() {
    const PegBitmap* bitmap = m_backgroundNumber != 0 ? PegResources::GetBitmap(m_backgroundNumber) : m_background;
    const bool covered = bitmap != nullptr && m_backgroundMode == PegBitmapMode::Tiled &&
                         !bitmap->Has(PegBitmap::kTransparent) && !HasStyle(kStyleTransparent);
    if (!covered) DrawFrame(GetColor(kBackground));
    const bool framed = (GetStyle() & kStyleBorders) <= kStyleBorderRecessed && (GetStyle() & kStyleBorders) != 0;
    if (!covered && !framed && !HasStyle(kStyleTransparent)) {
        toolkit.screen->Fill(ClientRect(), PegResources::GetColor(GetColor(kBackground)));
    }
    if (bitmap != nullptr) DrawBackgroundBitmap(*bitmap);
}

void PegWindow::DrawBackgroundBitmap(const PegBitmap& bitmap) {
    const PegRect& client = ClientRect();
    if (m_backgroundMode == PegBitmapMode::Tiled) {
        PegBrush tiles(0, 0, PegBrush::kPattern, 0);
        tiles.pattern = &bitmap;
        toolkit.screen->DrawRectangle(client, tiles);
        return;
    }
    toolkit.screen->DrawBitmap(
        PointOf(client.left + (client.Width() - bitmap.width) / 2, client.top + (client.Height() - bitmap.height) / 2),
        &bitmap);
}

std::int32_t PegWindow::Message(const PegMessage& message) {
    if (message.type == MSG_CLOSE) return Close(kWindowClosed);
    if (const std::uint16_t control = DialogControlOf(message)) return Close(control);
    if (message.type == MSG_TIMER && message.param == kOwnTimer) {
        if (m_timerHandler != nullptr) {
            m_timerHandler(*this);
        } else {
            KillTimer(*this, kOwnTimer);
        }
        return 0;
    }
    const bool closeKey = message.type == MSG_KEY_DOWN && message.param == kKeyCloseWindow;
    if (closeKey && Parent() == toolkit.manager && (message.data[0] & kCloseModifier) != 0) {
        PegMessage close;
        close.target = this;
        close.type = MSG_CLOSE;
        toolkit.queue->Push(close);
        return 0;
    }
    return PegTextThing::Message(message);
}

std::int32_t PegWindow::Close(std::int32_t result) {
    Destroy(*this);
    return result;
}
