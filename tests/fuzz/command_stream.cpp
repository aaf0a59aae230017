#include <algorithm>
#include <span>

#include "rda/command_server.h"
#include "rda/server.h"
#include "rda/tcp_acceptor.h"
#include "tests/fuzz/target.h"

// The command server on a connection that brings the input, in pieces, and nothing else. The stream and its acceptor
// stand in for those of the link.

namespace {

using Bytes = std::span<const std::uint8_t>;

Bytes toCome;               // what the client has yet to send
Bytes pieces;               // how long each of its pieces is; the last brings the rest
std::size_t pieceLeft = 0;  // of the piece that is read
std::uint32_t sum = 0;      // of what was commanded, so that every argument is read
RdaServer* server = nullptr;

void Note(std::uint32_t word) { sum += word; }

constexpr DisplayCommands kCommands = {
    .hardwareId = [] { return sum; },
    .changeAltModeState = Note,
    .navigateTo = Note,
    .navigateToDispTest = [] {},
    .setLanguage = Note,
    .setPhaseLabels = Note,
    .setMeasSymbols = Note,
    .changeTestModeState = Note,
    .kernelVersion =
        [](std::uint32_t* word) {
            *word = 0xFFFFFFFF;
            return 0;
        },
    .osPackageVersion = [](std::uint32_t*) { return -1; },
    .serialNumber =
        [](std::span<char> text) {
            std::ranges::fill(text, 'S');
            return 0;
        },
    .setBacklightTimeout = Note,
    .handleButtonEvent = [](const ButtonEvent& event) { Note(event.kind + event.pressed + event.value + event.extra); },
};

}  // namespace

vxTCPStream::~vxTCPStream() = default;
bool vxTCPStream::isConnected() const { return true; }
void vxTCPStream::attach(std::int32_t, const sockaddr_in*) {}
std::int32_t vxTCPStream::send(const std::uint8_t* data, std::uint32_t length) {
    for (const std::uint8_t byte : std::span(data, length)) Note(byte);
    return static_cast<std::int32_t>(length);
}
std::int32_t vxTCPStream::receive(std::uint8_t* data, std::uint32_t length) { return receive(data, length, 0); }
std::int32_t vxTCPStream::receive(std::uint8_t* data, std::uint32_t length, std::uint32_t) {
    if (pieceLeft == 0) {
        pieceLeft = pieces.empty() ? toCome.size() : pieces.front();
        pieces = pieces.subspan(pieces.empty() ? 0 : 1);
    }
    const Bytes part = toCome.first(std::min({std::size_t{length}, pieceLeft, toCome.size()}));
    std::ranges::copy(part, data);
    toCome = toCome.subspan(part.size());
    pieceLeft -= part.size();
    return part.empty() ? -1 : static_cast<std::int32_t>(part.size());
}
void vxTCPStream::close() {}

vxTCPAcceptor::~vxTCPAcceptor() = default;
void vxTCPAcceptor::init(std::uint16_t) {}
void vxTCPAcceptor::init(std::uint16_t, const char*) {}
std::int32_t vxTCPAcceptor::start() { return 0; }
void vxTCPAcceptor::stop() {}
vxTCPStream* vxTCPAcceptor::accept(std::uint32_t) { return &m_stream; }

/// The server works in buffers of its own; the console takes one with its first line.
const MemoryBound kMemoryBound = {.bytes = 4096, .perByte = 0};

void Prepare() {
    server = new RdaServer;
    registerDisplayCommands(*server, kCommands);
}

/// First byte: the number of cuts; then the length of the piece before each; then the stream.
void Take(Bytes input) {
    if (input.empty()) return;
    const std::size_t cuts = std::min<std::size_t>(input.front(), input.size() - 1);
    pieces = input.subspan(1, cuts);
    toCome = input.subspan(1 + cuts);
    pieceLeft = 0;
    server->serve(0, nullptr, 0, 0);
}
