#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "simulator/descriptor.h"
#include "simulator/own_folder.h"
#include "simulator/panel/server.h"
#include "tests/fuzz/target.h"

namespace {

constexpr timeval kPatience{7, 0};          // requests that do not end are given 5 seconds
constexpr std::uint32_t kAddresses = 4096;  // of this machine to itself
constexpr char kAuthority = 1;              // stands for this server's name and port, which differ from run to run
constexpr char kCut = 2;                    // what follows is sent by itself
constexpr char kFinalText = static_cast<char>(0x81);
constexpr char kMasked = static_cast<char>(0x80);
constexpr std::size_t kLongestMessage = 125;  // that has its length in one byte

constexpr std::string_view kUpgrade =
    "GET /live HTTP/1.1\r\nHost: \x01\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
    "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n\x02";

/// The lines of a text, each as a message of a viewer.
std::string MessagesOf(std::string_view lines) {
    std::string frames;
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, std::min(lines.find('\n'), kLongestMessage));
        lines.remove_prefix(std::min(line.size() + 1, lines.size()));
        frames += {kFinalText, static_cast<char>(kMasked | static_cast<char>(line.size())), 0, 0, 0, 0};
        frames += line;
    }
    return frames;
}

/// A board with its page on a free port, and no meter.
class Page {
public:
    Page() { m_folder.Remove(); }  // nothing is left behind

    /// Sends the text and hangs up. @return whether the server did so too
    bool Hear(std::string_view text) {
        const Descriptor connection = Connect();
        while (!text.empty()) {
            const std::string_view piece = text.substr(0, text.find(kCut));
            text.remove_prefix(std::min(piece.size() + 1, text.size()));
            Send(connection, piece);
        }
        ::shutdown(connection.Get(), SHUT_WR);
        return IsEnded(connection);
    }

private:
    [[noreturn]] static void Abort() {
        std::perror("panel_page");
        std::abort();
    }
    /// Each time from another address, as an ended connection keeps its port for a minute.
    Descriptor Connect() {
        Descriptor connection(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_in own = m_address;
        own.sin_port = 0;
        own.sin_addr.s_addr = htonl(INADDR_LOOPBACK + ++m_connections % kAddresses);
        if (::bind(connection.Get(), reinterpret_cast<const sockaddr*>(&own), sizeof own) != 0) Abort();
        const int on = 1;
        ::setsockopt(connection.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        ::setsockopt(connection.Get(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
        // The fuzzer's clock may interrupt it, and the attempt goes on.
        while (::connect(connection.Get(), reinterpret_cast<const sockaddr*>(&m_address), sizeof m_address) != 0 &&
               errno != EISCONN) {
            if (errno != EINTR) Abort();
        }
        return connection;
    }
    void Send(const Descriptor& connection, std::string_view piece) const {
        std::string bytes(piece);
        for (std::size_t at = 0; (at = bytes.find(kAuthority, at)) != bytes.npos;) bytes.replace(at, 1, m_authority);
        ::send(connection.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);  // it may have hung up
    }
    /// Whether the server hangs up in time.
    static bool IsEnded(const Descriptor& connection) {
        static std::array<char, 256 * 1024> answer;
        ssize_t size = 1;
        while (size > 0) size = ::recv(connection.Get(), answer.data(), answer.size(), 0);
        return size == 0 || errno == ECONNRESET;
    }

    std::uint32_t m_connections = 0;
    OwnFolder m_folder{"fuzz-page"};
    panel::Board m_board{m_folder.Path()};
    panel::Server m_server{m_board, 0, m_folder / "meter"};  // where nobody answers
    std::string m_authority = "127.0.0.1:" + std::to_string(m_server.Port());
    sockaddr_in m_address = {.sin_family = AF_INET,
                             .sin_port = htons(static_cast<std::uint16_t>(m_server.Port())),
                             .sin_addr = {htonl(INADDR_LOOPBACK)},
                             .sin_zero = {}};
};

Page* page = nullptr;

}  // namespace

/// A viewer is sent the panel's pixels, which wait in the server until they are on their way.
const MemoryBound kMemoryBound = {.bytes = 2 * 1024 * 1024, .perByte = 64};

void Prepare() { page = new Page; }

/// First byte: whether the rest is HTTP, frames of a viewer, or lines of a viewer's messages. Each input has a
/// connection of its own.
void Take(std::span<const std::uint8_t> input) {
    if (input.empty()) return;
    const int way = input.front() % 3;
    std::string bytes(input.begin() + 1, input.end());
    if (way == 2) bytes = MessagesOf(bytes);
    if (way != 0) bytes.insert(0, kUpgrade);
    // A busy machine may hold it up once.
    if (page->Hear(bytes) || page->Hear(bytes)) return;
    std::fprintf(stderr, "the page's server does not hang up on who has hung up\n");
    std::abort();
}
