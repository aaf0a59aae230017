#include "rda/server.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>

#include "platform/task.h"
#include "rda/frame.h"
#include "rda/wire.h"

namespace {

constexpr std::uint32_t kReadSeconds = 5;
constexpr int kPauseTicks = 50;

std::array<std::uint8_t, 8192> responseBuffer;  // of the one server task

/// Reads one field of a request, which the client sends in one piece. @return whether it came whole
bool Read(vxTCPStream& client, std::uint8_t* field, std::size_t size) {
    const std::int32_t count = client.receive(field, static_cast<std::uint32_t>(size), kReadSeconds);
    return count > 0 && static_cast<std::size_t>(count) == size;
}

bool Read(vxTCPStream& client, std::uint32_t& value) {
    WireU32 field{};
    if (!Read(client, field.bytes.data(), field.bytes.size())) return false;
    value = field.Get();
    return true;
}

}  // namespace

void RdaServer::registerHandler(const char* name, RdaHandler handler) {
    std::array<char, sizeof(Entry::name)> cut{};
    std::snprintf(cut.data(), cut.size(), "%s", name);
    if (Entry* known = Find(cut.data())) {
        known->handler = handler;
        return;
    }
    if (m_handlerCount == m_handlers.size()) return;
    m_handlers[m_handlerCount++] = {cut, handler};
}

void RdaServer::serve(std::uint16_t port, const char* address, std::uint32_t keepServing,
                      std::uint32_t acceptTimeoutSeconds) {
    m_acceptor.init(port, address != nullptr ? address : "");
    while (m_acceptor.start() != 0) os::taskDelay(os::sysClkRateGet());
    // Serves for as long as it was told to, or for ever. NOLINTNEXTLINE(bugprone-infinite-loop)
    do {
        TellConnected(0);
        vxTCPStream& client = *m_acceptor.accept(acceptTimeoutSeconds);
        if (client.isConnected()) {
            TellConnected(1);
            while (ServeRequest(client)) {
            }
        } else if (acceptTimeoutSeconds == 0) {
            // A wait without limit ends without a client only when it fails, and might fail again at once.
            os::taskDelay(kPauseTicks);
        }
        client.close();
    } while (keepServing != 0);
    TellConnected(0);
    m_acceptor.stop();
}

RdaServer::Entry* RdaServer::Find(const char* name) {
    const std::span<Entry> used = std::span(m_handlers).first(m_handlerCount);
    const auto found =
        std::ranges::find_if(used, [name](const Entry& entry) { return std::strcmp(entry.name.data(), name) == 0; });
    return found != used.end() ? &*found : nullptr;
}

/// Reads one request and answers it. @return whether the client kept to the form
bool RdaServer::ServeRequest(vxTCPStream& client) {
    std::uint32_t magic = 0;
    std::uint32_t payloadSize = 0;
    std::uint32_t responseSize = 0;
    if (!Read(client, magic) || magic != rda::kMagic) return false;
    if (!ReadName(client)) return false;
    if (!Read(client, payloadSize) || payloadSize > m_payload.size()) return false;
    if (payloadSize != 0 && !Read(client, m_payload.data(), payloadSize)) return false;
    if (!Read(client, responseSize)) return false;
    return Answer(client, payloadSize, responseSize);
}

/// Reads a name and its size, which must agree and fit the name buffer.
bool RdaServer::ReadName(vxTCPStream& client) {
    std::uint32_t size = 0;
    if (!Read(client, size) || size == 0 || size > m_name.size()) return false;
    std::array<std::uint8_t, sizeof m_name> bytes{};
    if (!Read(client, bytes.data(), size)) return false;
    std::memcpy(m_name.data(), bytes.data(), size);
    return std::find(m_name.begin(), m_name.begin() + size, '\0') == m_name.begin() + (size - 1);
}

bool RdaServer::Answer(vxTCPStream& client, std::uint32_t payloadSize, std::uint32_t responseSize) {
    const Entry* entry = Find(m_name.data());
    if (entry == nullptr) return true;
    if (responseSize > responseBuffer.size()) return false;
    std::fill_n(responseBuffer.data(), responseSize, std::uint8_t{0});
    std::uint8_t* response = responseBuffer.data();
    entry->handler(payloadSize, m_payload.data(), responseSize, &response);
    return responseSize == 0 || client.send(response, responseSize) >= 0;
}

void RdaServer::TellConnected(std::uint32_t connected) {
    if (m_callback != nullptr) m_callback(connected);
}
