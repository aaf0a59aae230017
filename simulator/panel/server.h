#pragma once

#include <memory>
#include <string>

#include "simulator/panel/board.h"

namespace panel {

/// Serves the page of a board on 127.0.0.1, on a thread of its own, until it is destroyed.
class Server {
public:
    /// @param port          0 takes any that is free
    /// @param meterControl  the control socket of the simulated meter; empty for none
    /// @throws std::runtime_error when the port is taken
    Server(Board& board, int port, const std::string& meterControl);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int Port() const;

private:
    class Loop;
    std::unique_ptr<Loop> m_loop;
};

}  // namespace panel
