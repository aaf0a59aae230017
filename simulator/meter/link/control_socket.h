#pragma once

#include <poll.h>

#include <filesystem>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/descriptor.h"

namespace meter {

/// Takes lines on a Unix-domain socket and answers each with one line.
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

private:
    struct Client {
        Descriptor socket;
        std::string pending;
    };

    bool Read(Client& client);

    static constexpr std::size_t kMaxClients = 16;
    static constexpr std::size_t kMaxLine = 1024;

    std::filesystem::path m_path;
    Execute m_execute;
    Descriptor m_listener;
    std::list<Client> m_clients;
};

}  // namespace meter
