#pragma once

#include <poll.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/descriptor.h"

namespace meter {

/// Takes lines on a Unix-domain socket and answers each with one line.
///
/// "trace on" and "trace off" it carries out itself: a traced connection gets every line of the trace besides the
/// answers. A reader that falls behind loses lines of the trace, and is told how many by {"lost": 12} where they are
/// missing; one that lets answers pile up is disconnected.
class ControlSocket {
public:
    using Execute = std::function<std::string(std::string_view line)>;

    /// Takes the place of a socket that an earlier run left behind.
    /// @throws std::system_error when the path cannot be bound
    ControlSocket(std::filesystem::path path, Execute execute);
    ~ControlSocket();
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    void Watch(std::vector<pollfd>& polled) const;
    void Serve();

    bool IsTraced() const;
    /// Passes a line of the trace on to those who want it.
    void Trace(std::string_view line);

private:
    struct Client {
        Descriptor socket;
        std::string pending;   // of a line that has not come whole
        std::string outgoing;  // what the socket did not take yet
        bool traced = false;
        std::uint64_t lost = 0;  // lines of the trace, since the last that was passed on
    };

    bool Read(Client& client);
    std::string Answer(Client& client, std::string_view line);
    static bool Write(Client& client);

    static constexpr std::size_t kMaxClients = 16;
    static constexpr std::size_t kMaxLine = 1024;
    static constexpr std::size_t kMaxOutgoing = std::size_t{256} * 1024;

    std::filesystem::path m_path;
    Execute m_execute;
    Descriptor m_listener;
    std::list<Client> m_clients;
};

}  // namespace meter
