#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/meter/model/meter.h"

/// The meter at the other end of the display's calls, without a socket: a simulated meter by default, which a test can
/// overrule operation by operation, or break.
///
/// One in a process; it takes the place of the link, so that calls are answered at once in the calling task.
class ScriptedMeter {
public:
    using Bytes = std::vector<std::byte>;
    using Reply = std::function<bool(std::span<const std::byte> payload, std::span<std::byte> response)>;

    static ScriptedMeter& Instance();

    /// From now on every call of an operation is answered by these bytes, cut or filled with zeros to the asked length.
    template <typename Record>
    void Answer(std::string_view operation, const Record& record) {
        const auto bytes = BytesOf(record);
        AnswerBytes(operation, Bytes(bytes.begin(), bytes.end()));
    }
    void AnswerBytes(std::string_view operation, Bytes bytes);
    void AnswerBy(std::string_view operation, Reply reply) { m_replies[std::string(operation)] = std::move(reply); }

    /// From now on a function makes the reply of an operation, a record or several, from the words of its payload.
    template <typename Maker>
    void AnswerFrom(std::string_view operation, Maker maker) {
        AnswerBy(operation, [maker](std::span<const std::byte> payload, std::span<std::byte> response) {
            std::array<std::uint32_t, 3> words{};
            std::memcpy(words.data(), payload.data(), std::min(payload.size(), sizeof words));
            const auto records = maker(words);
            const auto bytes = BytesOf(records);
            std::copy_n(bytes.begin(), std::min(bytes.size(), response.size()), response.begin());
            return true;
        });
    }

    /// From now on every call goes there instead, with the operation's name.
    using Callee = std::function<bool(std::string_view operation, std::span<const std::byte> payload,
                                      std::span<std::byte> response)>;
    void TakeEveryCall(Callee callee) { m_callee = std::move(callee); }

    /// The operation, or every operation, fails until told otherwise.
    void Fail(std::string_view operation);
    void FallSilent() { m_silent = true; }
    void Recover();

    /// How often an operation was called, failed calls included, since the last ForgetCalls.
    int Calls(std::string_view operation) const;
    int Calls() const { return static_cast<int>(m_calls.size()); }
    void ForgetCalls() { m_calls.clear(); }

    /// The payload of an operation's last call.
    Bytes LastPayload(std::string_view operation) const;
    std::uint32_t LastArgument(std::string_view operation) const;

    meter::Meter& Model() { return m_model; }

    /// What the link does for the display.
    bool Call(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response);
    int Connect();
    void RefuseConnections(bool refuse) { m_refuses = refuse; }
    int ConnectionAttempts() const { return m_attempts; }

private:
    ScriptedMeter();

    template <typename Record>
    static std::span<const std::byte> BytesOf(const Record& record) {
        return std::as_bytes(std::span(&record, 1));
    }
    template <typename Record>
    static std::span<const std::byte> BytesOf(const std::vector<Record>& records) {
        return std::as_bytes(std::span(records));
    }

    struct CallRecord {
        std::string operation;
        Bytes payload;
    };

    meter::Meter m_model;
    std::map<std::string, Reply, std::less<>> m_replies;
    Callee m_callee;
    std::set<std::string, std::less<>> m_failing;
    std::vector<CallRecord> m_calls;
    bool m_silent = false;
    bool m_refuses = false;
    int m_attempts = 0;
};
