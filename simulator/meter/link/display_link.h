#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "simulator/meter/link/trace.h"

namespace meter {

/// Commands the display on 127.0.0.1.
///
/// Each command has a connection of its own: the display serves one at a time and drops a silent one. Waits at most a
/// second, and never for a display that is not there.
class DisplayLink {
public:
    explicit DisplayLink(std::uint16_t port);
    /// Reaches the display in another way.
    using Carry = std::function<std::optional<std::vector<std::byte>>(
        std::string_view operation, std::span<const std::byte> payload, std::uint32_t responseSize)>;
    explicit DisplayLink(Carry carry) : m_carry(std::move(carry)) {}

    /// Has every command reported when it ended.
    void OnCall(CallObserver observer) { m_observer = std::move(observer); }

    /// Sends a command. @return the reply of exactly `responseSize` bytes, or nothing when the display did not take it
    std::optional<std::vector<std::byte>> Call(std::string_view operation, std::span<const std::byte> payload,
                                               std::uint32_t responseSize) const;

    /// Sends a command of one number that is not answered. @return whether the display took it
    bool Send(std::string_view operation, std::uint32_t value) const;

private:
    Carry m_carry;
    CallObserver m_observer;
};

}  // namespace meter
