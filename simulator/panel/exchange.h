#pragma once

#include <cstdint>
#include <optional>

#include "simulator/panel/service.h"

struct lws;

namespace panel {

/// One HTTP request and its answer on a connection of its own.
class Exchange {
public:
    /// Reads the request line and the headers that matter.
    explicit Exchange(lws* connection);

    const Request& GetRequest() const { return m_request; }

    /// Body bytes that the request announces; nothing when it does not say.
    std::optional<std::uint64_t> ContentLength() const { return m_contentLength; }

    /// @return false when that is more than a body may have
    bool TakeBody(const void* bytes, std::size_t size);

    /// Answers, which ends the exchange and the connection. Only from an event of the connection itself.
    /// @return -1, as such an event has the connection closed
    [[nodiscard]] int Send(const Response& response);

    /// Has `Continue` called when there is room, and answers then.
    void SendLater(Response response);
    [[nodiscard]] int Continue();

    bool Answered() const { return m_answered; }

    /// Whether the request has not come to its own end yet.
    bool Unfinished() const { return !m_answered && awaitedLine == 0; }

    /// The number of the meter's line that is to be the answer, or 0.
    std::uint64_t awaitedLine = 0;

private:
    lws* m_connection;
    Request m_request;
    std::optional<std::uint64_t> m_contentLength;
    std::optional<Response> m_response;  // to be sent later
    bool m_answered = false;
};

}  // namespace panel
