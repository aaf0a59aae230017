#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/panel/board.h"
#include "simulator/panel/console.h"
#include "simulator/panel/key_input.h"

namespace panel {

inline constexpr std::size_t kMaxBody = 512;

struct Request {
    std::string method;
    std::string path;
    std::map<std::string, std::string> query;
    std::optional<std::string> host;
    std::optional<std::string> origin;
    std::string body;
};

struct Response {
    int status = 200;
    std::string type = "text/plain; charset=utf-8";
    std::string body = {};
    std::string allow = {};  // of a 405: the method that the path knows
};

/// What the simulator of the meter says about itself.
struct MeterView {
    bool controlled = false;  // whether there is a control socket at all
    std::string state;        // a JSON object; empty while the meter does not answer
};

/// Answers what the page asks of the board, whatever carries the question. Single-threaded.
class Service {
public:
    Service(Board& board, Console& console);

    /// A page of another place may not look at the panel, let alone press its keys: requests whose Host is not this
    /// server, or whose Origin is another page, are refused, with a line on the console.
    /// @return whether the request comes from the page or from a program
    bool IsOwn(const Request& request, int port);

    /// Answers everything but the WebSocket and the meter's lines; `IsOwn` was asked before.
    Response Answer(const Request& request);

    /// Everything that the page shows beside the glass, as JSON.
    std::string State();

    KeyInput& Keys() { return m_keys; }
    MeterView& Meter() { return m_meter; }
    Console& GetConsole() { return m_console; }

private:
    Response FramePng();
    Response PressKey(const Request& request);

    void Report(KeyRecord record);

    Board& m_board;
    Console& m_console;
    KeyInput m_keys;
    MeterView m_meter;
    bool m_keyLost = false;  // since the last request for a key
    std::shared_ptr<const Frame> m_encoded;
    std::string m_png;  // of m_encoded
};

}  // namespace panel
