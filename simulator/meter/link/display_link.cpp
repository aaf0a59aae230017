#include "simulator/meter/link/display_link.h"

#include "rda/frame.h"
#include "rda/wire.h"
#include "simulator/meter/wire/link_client.h"

namespace meter {
namespace {

constexpr std::chrono::milliseconds kPatience{1000};

}  // namespace

DisplayLink::DisplayLink(std::uint16_t port)
    : m_carry([port](std::string_view operation, std::span<const std::byte> payload,
                     std::uint32_t responseSize) -> std::optional<std::vector<std::byte>> {
          try {
              return CallOnce(rda::kLocalAddress, port, operation, payload, responseSize, kPatience);
          } catch (const CallFailed&) {
              return std::nullopt;
          }
      }) {}

std::optional<std::vector<std::byte>> DisplayLink::Call(std::string_view operation, std::span<const std::byte> payload,
                                                        std::uint32_t responseSize) const {
    const auto start = std::chrono::steady_clock::now();
    auto reply = m_carry(operation, payload, responseSize);
    if (m_observer) {
        const auto taken = std::chrono::steady_clock::now() - start;
        m_observer({.to = Callee::Display,
                    .operation = operation,
                    .payload = payload,
                    .reply = reply ? std::span<const std::byte>(*reply) : std::span<const std::byte>(),
                    .taken = std::chrono::duration_cast<std::chrono::microseconds>(taken),
                    .result = reply ? "ok" : "failed"});
    }
    return reply;
}

bool DisplayLink::Send(std::string_view operation, std::uint32_t value) const {
    WireU32 word{};
    word.Set(value);
    return Call(operation, std::as_bytes(std::span(&word, 1)), 0).has_value();
}

}  // namespace meter
