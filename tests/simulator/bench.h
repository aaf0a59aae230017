#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "rda/records.h"
#include "simulator/meter/model/meter.h"

/// What the tests of the meter share: a fixed start, and payloads and replies without a socket.
namespace bench {

inline constexpr std::uint64_t kSeed = 7;
inline constexpr meter::Instant kStart = 1'789'552'800'000;  // a Wednesday, 12:00 local time

using Bytes = std::vector<std::byte>;

inline Bytes Words(std::initializer_list<std::uint32_t> values) {
    Bytes payload;
    for (std::uint32_t value : values)
        for (unsigned shift = 0; shift < 32; shift += 8) payload.push_back(static_cast<std::byte>(value >> shift));
    return payload;
}

inline void Append(Bytes& payload, std::string_view text) {
    for (char letter : text) payload.push_back(static_cast<std::byte>(letter));
    payload.push_back(std::byte{0});
}

/// A meter at its start, with nothing around it.
class MeterAlone : public testing::Test {
protected:
    /// The answered record; zeros when the meter did not answer.
    template <typename Record>
    Record Ask(std::string_view operation, const Bytes& payload = {}) {
        Bytes reply(sizeof(Record));
        Record record{};
        if (m_meter.Answer(operation, payload, reply)) std::memcpy(&record, reply.data(), sizeof(record));
        return record;
    }
    std::uint32_t AskWord(std::string_view operation, const Bytes& payload = {}) {
        return Ask<WireU32>(operation, payload).Get();
    }
    std::uint32_t LogIn(std::string_view user, std::string_view password) {
        Bytes payload;
        Append(payload, user);
        Append(payload, password);
        return AskWord("SECURITYINTERFACE_verifyFrontPanelPassword", payload);
    }
    RegisterWriteResult Set(std::uint32_t id, std::string_view text) {
        Bytes payload = Words({id});
        Append(payload, text);
        return Ask<RegisterWriteResult>("PDMINTERFACE_setRegisterValue", payload);
    }
    RegisterValue Get(std::uint32_t id) { return Ask<RegisterValue>("PDMINTERFACE_getRegisterValue", Words({id})); }

    bool IsActive(std::string_view alarm) {
        return std::ranges::any_of(m_meter.GetAlarms().Active(), [&](const meter::Occurrence* one) {
            return meter::AlarmDefinitions()[one->definition].name == alarm;
        });
    }

    meter::Meter m_meter{kSeed, kStart};
};

}  // namespace bench
