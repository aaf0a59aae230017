#pragma once

#include <cstddef>
#include <cstdint>

inline constexpr std::size_t kRdaTaskBufferBytes = 1024;

/// The calling task's own buffer of kRdaTaskBufferBytes, in which it assembles the payload of a call.
///
/// Ten tasks may have one. A task gets its buffer on its first call and keeps it while the process lives.
/// @return the buffer, or null when all belong to other tasks; a console line says so
[[nodiscard]] std::uint8_t* rdaTaskBuffer();

/// Connects the display to the meter's server at a dotted IPv4 address; gives up after two seconds.
///
/// The address is kept for later connections even when this one fails. Called before other tasks use the link.
/// @return 0, or -1
[[nodiscard]] int connectToServer(const char* address, std::uint16_t port);

/// The display's one link to the meter: whole calls, one at a time, from any task.
///
/// The link mends itself: a call that cannot be sent connects anew and is sent once more; a call whose reply breaks off
/// fails and leaves a new connection to the next. While the meter is absent, calls fail at once and connecting is tried
/// every 16 seconds. Nothing is allocated per call. Lives as long as the process.
class RdaClient {
public:
    static RdaClient& instance();

    /// Sends one request and waits for its reply, at most three seconds for each piece.
    /// @param response  out: `responseSize` bytes; zeros, or what arrived, when the reply broke off; untouched when
    ///                  nothing could be sent because the link was never connected or the request is too long
    /// @return 1 when the request was sent and exactly `responseSize` bytes came back, else 0
    [[nodiscard]] int call(const char* name, std::uint32_t payloadSize, const std::uint8_t* payload,
                           std::uint32_t responseSize, std::uint8_t* response);

    /// Closes the connection and makes a new one, unless the meter was found absent in the last 16 seconds.
    /// The calling task holds the link. @return 0, or -1
    int reconnect();

    RdaClient(const RdaClient&) = delete;
    RdaClient& operator=(const RdaClient&) = delete;

private:
    RdaClient() = default;
};
