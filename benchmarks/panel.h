#pragma once

#include <memory>

#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/toolkit.h"
#include "peg/port/vxpeg.h"
#include "platform/panel.h"
#include "simulator/own_folder.h"

inline constexpr std::size_t kFrameBytes = kPanelWidth * kPanelHeight * 2;
inline constexpr PegRect kPanel = RectOf(0, 0, kPanelWidth - 1, kPanelHeight - 1);

/// The toolkit with the real resources on a board in a folder of its own; the frame stays in memory and the meter is a
/// scripted one. One in a process.
class Panel {
public:
    static Panel& Instance();

    /// Whether frames go to the board's frame buffer or stay in memory, as they do at first.
    static void WriteFrames(bool toTheDevice);

    /// Delivers every waiting message and draws what is invalid.
    static void Pump();

    static constexpr std::int32_t kEmptyScreen = 200;

    /// Puts a data screen on the panel, by way of an empty one.
    static PegThing& Show(std::int32_t screen);

    const std::filesystem::path& Board() const { return m_board.Path(); }

    /// Removes the board; the last thing that is done.
    static void RemoveBoard();

private:
    Panel();

    OwnBoard m_board{"bench-board"};
    os::MessageQueueId m_queue;
    PegToolkitObjects m_objects;
};
