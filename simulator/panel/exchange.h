#pragma once

#include <cstdint>
#include <optional>

#include "simulator/panel/service.h"

struct lws;

namespace panel {

/// One HTTP request and its answer on a connection.
class Exchange {
public:
    /// Reads the request line and the headers that matter.
    explicit Exchange(lws* connection);

    const Request& GetRequest() const { return m_request; }

    /// Body bytes that the request announces; nothing when it does not say.
    std::optional<std::uint64_t> ContentLength() const { return m_contentLength; }

    /// @return false when that is more than a body may have
    bool TakeBody(const void* bytes, std::size_t size);

    /// Sends the headers, and has the body sent when there is room.
    /// @return -1 when the connection is to be closed
    [[nodiscard]] int Begin(Response response);

    /// Sends what Begin left. @return -1 when the connection is to be closed
    [[nodiscard]] int Continue();

    bool Answered() const { return m_answered; }

    /// The number of the meter's line that is to be the answer, or 0.
    std::uint64_t awaitedLine = 0;

private:
    lws* m_connection;
    Request m_request;
    std::optional<std::uint64_t> m_contentLength;
    Response m_response;
    bool m_answered = false;
    bool m_toSend = false;
};

}  // namespace panel
