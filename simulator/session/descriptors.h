#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "simulator/meter/link/frame_reader.h"
#include "simulator/session/scheduler.h"

namespace session {

enum class Role : std::uint8_t { Device, FrameBuffer, Keys, Fresh, Listener, ToMeter, FromMeter };

/// What stands behind a descriptor of the display: a device of the board, or one end of a connection.
struct Endpoint {
    struct Chunk {
        Instant due;
        std::vector<std::byte> bytes;
        std::size_t taken = 0;
    };

    Role role = Role::Fresh;
    std::string device = {};
    std::uint16_t port = 0;

    std::deque<Chunk> inbox = {};  // what the display has still to read
    bool ended = false;            // nothing more will come
    Instant patience = kNever;     // of a read, in ticks
    meter::FrameReader calls = {};
    std::vector<std::byte> sent = {};                     // by the display to the meter's command
    std::deque<std::shared_ptr<Endpoint>> arrivals = {};  // connections that wait to be accepted

    bool IsReadable(Instant now) const {
        if (role == Role::Listener) return !arrivals.empty();
        return inbox.empty() ? ended : inbox.front().due <= now;
    }
    Instant NextDue() const { return inbox.empty() ? kNever : inbox.front().due; }
};

/// The display's descriptors. Files are the host's own; everything else is an endpoint under a number that the host
/// will not give away meanwhile.
class Descriptors {
public:
    static Descriptors& Instance();

    int Add(std::shared_ptr<Endpoint> endpoint);
    /// @return the endpoint, or null for a file of the host
    std::shared_ptr<Endpoint> Find(int descriptor) const;
    int Close(int descriptor);

    /// The keys device keeps its records while nobody has it open.
    const std::shared_ptr<Endpoint>& Keys() const { return m_keys; }
    /// The endpoint that listens on the display's port, or null.
    std::shared_ptr<Endpoint> Listener() const;

private:
    std::map<int, std::shared_ptr<Endpoint>> m_endpoints;
    std::shared_ptr<Endpoint> m_keys = std::make_shared<Endpoint>(Endpoint{.role = Role::Keys});
};

/// Takes what is due in the inbox; waits for it as long as the endpoint is patient.
/// @return the bytes read, 0 when nothing more will come, -1 with errno when the time is over
ssize_t ReadFrom(Endpoint& endpoint, void* buffer, std::size_t bytes);

}  // namespace session
