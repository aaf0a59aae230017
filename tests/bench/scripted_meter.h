#pragma once

#include <cstddef>
#include <cstdint>
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
        const auto bytes = std::as_bytes(std::span(&record, 1));
        AnswerBytes(operation, Bytes(bytes.begin(), bytes.end()));
    }
    void AnswerBytes(std::string_view operation, Bytes bytes);
    void AnswerBy(std::string_view operation, Reply reply) { m_replies[std::string(operation)] = std::move(reply); }

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
