#pragma once

#include <poll.h>

#include <cstdint>
#include <functional>
#include <list>
#include <string>
#include <vector>

#include "simulator/descriptor.h"

namespace panel {

/// A device of the board as a Unix-domain socket: each request is one packet, u32 request and i32 argument, answered by
/// one packet with the i32 result. A packet of another size ends its connection.
///
/// Single-threaded: whoever polls the descriptors of Watch calls Serve.
class DeviceSocket {
public:
    using Control = std::function<std::int32_t(std::uint32_t request, std::int32_t argument)>;

    /// Takes the place of a socket that an earlier run left behind.
    /// @param folder  an open directory, so that the length of its path does not matter
    /// @throws std::system_error when there is something else in the place
    DeviceSocket(int folder, std::string name, Control control);
    ~DeviceSocket();
    DeviceSocket(const DeviceSocket&) = delete;
    DeviceSocket& operator=(const DeviceSocket&) = delete;

    void Watch(std::vector<pollfd>& polled) const;

    /// Answers every request that waits; returns at once when there is none.
    void Serve();

private:
    bool Answer(const Descriptor& client) const;

    int m_folder;
    std::string m_name;
    Control m_control;
    Descriptor m_listener;
    std::list<Descriptor> m_clients;
};

}  // namespace panel
