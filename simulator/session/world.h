#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "simulator/meter/link/frame_reader.h"
#include "simulator/meter/link/meter_server.h"
#include "simulator/session/os_call.h"
#include "simulator/session/scheduler.h"

namespace session {

/// What the display meets on its board and at the other end of its link. Its tasks call, one at a time.
class World {
public:
    virtual ~World() = default;

    /// Where "/romfs" is.
    virtual std::filesystem::path Romfs() const = 0;
    /// The real-time clock at the start of the session, in seconds since 1970.
    virtual std::int64_t StartSeconds() const = 0;

    /// The display wrote a frame.
    virtual void TakeFrame(std::span<const std::byte> pixels) = 0;
    /// The display sent a request to a device of the board. @return its result
    virtual std::int32_t Control(std::string_view device, std::uint32_t request, std::int32_t argument) = 0;

    virtual void TellShownScreen(std::int32_t id) = 0;

    /// Whether somebody listens on the meter's port.
    virtual bool MeterListens() = 0;
    virtual meter::CallOutcome TakeCall(const meter::Frame& call) = 0;

    /// Whether the operating system fails that call of the display.
    /// @param what  path of what is opened, name of the task that is created or of the signal that is set; empty for
    /// every other call
    virtual bool Fails(OsCall, std::string_view /*what*/) { return false; }
};

/// The world of this process; set before the display starts.
World& TheWorld();
void SetWorld(World& world);

/// Whether the world fails a call; the reason is then in errno.
bool IsRefused(OsCall call, std::string_view what = {});

/// Puts a record into the keys device.
void PressKey(std::int32_t code, std::int32_t state);

/// One command of the meter on the display's port, over a connection of its own.
/// Lets the session run on until the reply is whole, at most a second.
/// @return the reply, or nothing when nobody listens or the reply did not come
std::optional<std::vector<std::byte>> CommandDisplay(std::string_view operation, std::span<const std::byte> payload,
                                                     std::uint32_t replySize);

/// Starts the display's own main in a task.
void StartDisplay();

}  // namespace session
