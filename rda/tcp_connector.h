#pragma once

#include <cstdint>

#include "rda/tcp_stream.h"

/// Opens connections to a server, one at a time, into a stream of its own.
class vxTCPConnector {
public:
    vxTCPConnector() = default;
    vxTCPConnector(const vxTCPConnector&) = delete;
    vxTCPConnector& operator=(const vxTCPConnector&) = delete;

    /// Closes the stream and connects it to a dotted IPv4 address. Receiving on it gives up after three seconds.
    /// @return 0, or -1 with the stream closed; a console line tells of a socket that could not be made
    [[nodiscard]] virtual std::int32_t connect(const char* address, std::uint16_t port, std::uint32_t timeoutSeconds);

    vxTCPStream& stream() { return m_stream; }

private:
    vxTCPStream m_stream;
};
