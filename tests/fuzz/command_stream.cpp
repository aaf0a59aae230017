#include <algorithm>
#include <span>

#include "tests/fuzz/target.h"
#include "rda/command_server.h"
#include "rda/server.h"
#include "rda/tcp_acceptor.h"

// The command server on a connection that brings the input and nothing else. The stream and its acceptor stand in for
// those of the link.

namespace {

std::span<const std::uint8_t> input;  // what the client has yet to send
std::uint32_t sum = 0;                // of what was commanded, so that every argument is read

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
    const auto part = input.first(std::min<std::size_t>(length, input.size()));
    std::ranges::copy(part, data);
    input = input.subspan(part.size());
    return part.empty() ? -1 : static_cast<std::int32_t>(part.size());
}
void vxTCPStream::close() {}

vxTCPAcceptor::~vxTCPAcceptor() = default;
void vxTCPAcceptor::init(std::uint16_t) {}
void vxTCPAcceptor::init(std::uint16_t, const char*) {}
std::int32_t vxTCPAcceptor::start() { return 0; }
void vxTCPAcceptor::stop() {}
vxTCPStream* vxTCPAcceptor::accept(std::uint32_t) { return &m_stream; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static RdaServer& server = []() -> RdaServer& {
        auto& made = *new RdaServer;
        registerDisplayCommands(made, kCommands);
        return made;
    }();
    input = {data, size};
    server.serve(0, nullptr, 0, 0);
    return 0;
}
