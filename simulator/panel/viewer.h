#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "simulator/panel/frame.h"
#include "simulator/panel/service.h"

struct lws;

namespace panel {

/// A page that watches the panel through a WebSocket. It gets the state as text and frames as they are in the frame
/// buffer; whoever is slow gets the newest of both when there is room. It sends "NAME down" and "NAME up" for keys.
class Viewer {
public:
    Viewer(lws* connection, Service& service) : m_connection(connection), m_service(service) {}

    /// Lets go of the keys that the page held when it left.
    ~Viewer();
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    /// Sends one message, and asks to be called again while there is more. @return -1 to close the connection
    [[nodiscard]] int Continue(const std::string& state, const std::shared_ptr<const Frame>& frame);

    /// Takes a piece of a message. @return -1 to close the connection
    [[nodiscard]] int Take(std::string_view piece, bool complete);

private:
    int SendMessage(const void* bytes, std::size_t size, bool binary);
    bool PressKey(std::string_view message);

    lws* m_connection;
    Service& m_service;
    std::string m_sentState;
    std::shared_ptr<const Frame> m_sentFrame;
    std::string m_message;
    std::set<Key> m_held;
};

}  // namespace panel
