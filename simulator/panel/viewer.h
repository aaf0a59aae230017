#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "simulator/panel/feed.h"
#include "simulator/panel/frame.h"
#include "simulator/panel/service.h"

struct lws;

namespace panel {

/// A page that watches the panel through a WebSocket. It gets the state as text and frames as they are in the frame
/// buffer; whoever is slow gets the newest of both when there is room. It sends "NAME down" and "NAME up" for keys, and
/// "console on" or "trace on" for what the programs print and what the display asks the meter ("off" ends that).
class Viewer {
public:
    /// What all viewers see. A feed may be absent.
    struct Scene {
        std::string state;
        std::shared_ptr<const Frame> frame;
        const Feed* console = nullptr;
        const Feed* trace = nullptr;
    };

    Viewer(lws* connection, Service& service) : m_connection(connection), m_service(service) {}

    /// Lets go of the keys that the page held when it left.
    ~Viewer();
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    /// Sends one message, and asks to be called again while there is more. @return -1 to close the connection
    [[nodiscard]] int Continue(const Scene& scene);

    /// Takes a piece of a message. @return -1 to close the connection, which was told why
    [[nodiscard]] int Take(std::string_view piece, bool complete);

private:
    struct Subscription {
        const char* name;
        bool on = false;
        std::uint64_t next = 0;
    };

    int SendMessage(const void* bytes, std::size_t size, bool binary);
    int SendPiece(const Subscription& subscription, const Feed::Piece& piece);
    bool Understand(std::string_view message);
    bool PressKey(Key key, std::string_view state);
    int HangUp(int reason, std::string_view why);

    lws* m_connection;
    Service& m_service;
    std::string m_sentState;
    std::shared_ptr<const Frame> m_sentFrame;
    std::string m_message;
    std::set<Key> m_held;
    Subscription m_console{.name = "console"};
    Subscription m_trace{.name = "trace"};
};

}  // namespace panel
