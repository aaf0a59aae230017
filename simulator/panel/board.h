#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "simulator/descriptor.h"
#include "simulator/panel/activity.h"
#include "simulator/panel/device_socket.h"
#include "simulator/panel/devices.h"
#include "simulator/panel/frame.h"
#include "simulator/panel/keys.h"

namespace panel {

inline constexpr std::int32_t kNoScreen = 0;

/// What the display did to its board.
struct BoardState {
    std::uint64_t frames = 0;  // written since the board was set up
    Backlight backlight;
    std::int32_t screen = kNoScreen;  // that the newest frame shows, as the display says
    std::array<bool, 3> lineHigh{};   // output lines 0 to 2
    bool displayUp = false;           // waits for keys, or used a device within the last seconds

    /// The alarm lamp is lit while its line is low.
    bool AlarmLamp() const { return !lineHigh[2]; }
};

/// The board of the display under a folder: frame buffer, keys, backlight and output ports. A thread of its own serves
/// the devices, so that the display never waits for a viewer. Any thread may ask and press keys.
class Board {
public:
    /// Makes the folder and what is missing in it; what an earlier run left is taken over.
    /// @throws std::system_error when that cannot be, or when another process plays the same board
    explicit Board(const std::filesystem::path& folder);
    ~Board();
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    /// Has `changed` called on the board's thread after every frame and request; nothing with an empty function. After
    /// the return the function set before is not running any more.
    void OnChange(std::function<void()> changed);

    const std::filesystem::path& Folder() const { return m_path; }
    BoardState State() const;

    /// The newest whole frame; never null.
    std::shared_ptr<const Frame> NewestFrame() const;

    /// Puts a record into the keys device. @return false when the display has left so many there that none fits
    bool Send(KeyRecord record);

private:
    using Clock = std::chrono::steady_clock;

    void Run();
    bool FrameWaits() const;
    void TakeFrame();
    DeviceSocket Device(const char* name, DeviceSocket::Control control);

    std::filesystem::path m_path;
    Descriptor m_folder;
    Descriptor m_frameBuffer;
    Descriptor m_screenFile;
    Descriptor m_keys;
    Descriptor m_stop;  // readable when the thread shall end
    Activity m_activity;

    mutable std::mutex m_mutex;  // guards what follows, up to the thread
    Backlight m_backlight;
    std::array<OutputPort, 2> m_ports;
    std::shared_ptr<const Frame> m_frame;
    std::uint64_t m_frames = 0;
    std::int32_t m_screen = kNoScreen;
    bool m_keysOpen = false;
    Clock::time_point m_lastUse{};

    std::mutex m_changedMutex;  // held while m_changed runs
    std::function<void()> m_changed;
    std::array<DeviceSocket, 3> m_devices;
    std::uint64_t m_framesTaken = 0;  // the thread's own
    std::thread m_thread;
};

}  // namespace panel
