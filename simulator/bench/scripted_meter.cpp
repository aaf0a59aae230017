#include "simulator/bench/scripted_meter.h"

#include <algorithm>
#include <array>

#include "rda/client.h"
#include "rda/wire.h"
#include "simulator/bench/allocation_count.h"

namespace {
constexpr std::uint64_t kSeed = 1;
constexpr meter::Instant kStart{1'750'000'000'000};  // a summer morning
}  // namespace

ScriptedMeter& ScriptedMeter::Instance() {
    static ScriptedMeter instance;
    return instance;
}

ScriptedMeter::ScriptedMeter() : m_model(kSeed, kStart) {}

void ScriptedMeter::AnswerBytes(std::string_view operation, Bytes bytes) {
    AnswerBy(operation, [bytes = std::move(bytes)](std::span<const std::byte>, std::span<std::byte> response) {
        std::fill(response.begin(), response.end(), std::byte{0});
        std::copy_n(bytes.begin(), std::min(bytes.size(), response.size()), response.begin());
        return true;
    });
}

void ScriptedMeter::Fail(std::string_view operation) { m_failing.emplace(operation); }

void ScriptedMeter::Recover() {
    m_failing.clear();
    m_silent = false;
}

int ScriptedMeter::Calls(std::string_view operation) const {
    return static_cast<int>(std::ranges::count(m_calls, operation, &CallRecord::operation));
}

ScriptedMeter::Bytes ScriptedMeter::LastPayload(std::string_view operation) const {
    const auto last = std::find_if(m_calls.rbegin(), m_calls.rend(),
                                   [operation](const CallRecord& call) { return call.operation == operation; });
    return last != m_calls.rend() ? last->payload : Bytes{};
}

std::uint32_t ScriptedMeter::LastArgument(std::string_view operation) const {
    const Bytes payload = LastPayload(operation);
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < sizeof value && i < payload.size(); ++i) {
        value |= std::to_integer<std::uint32_t>(payload[i]) << 8 * i;
    }
    return value;
}

bool ScriptedMeter::Call(std::string_view operation, std::span<const std::byte> payload,
                         std::span<std::byte> response) {
    const AllocationPause theMetersOwn;
    m_calls.push_back({std::string(operation), Bytes(payload.begin(), payload.end())});
    std::fill(response.begin(), response.end(), std::byte{0});
    if (m_callee) return m_callee(operation, payload, response);
    if (m_silent || m_failing.contains(operation)) return false;
    const auto reply = m_replies.find(operation);
    return reply != m_replies.end() ? reply->second(payload, response) : m_model.Answer(operation, payload, response);
}

int ScriptedMeter::Connect() {
    ++m_attempts;
    return m_refuses ? -1 : 0;
}

// The display's link, as far as it is called: in this process it is the scripted meter.

RdaClient& RdaClient::instance() {
    static RdaClient client;
    return client;
}

int RdaClient::call(const char* name, std::uint32_t payloadSize, const std::uint8_t* payload,
                    std::uint32_t responseSize, std::uint8_t* response) {
    const auto asked = std::as_bytes(std::span(payload, payloadSize));
    const auto answered = std::as_writable_bytes(std::span(response, responseSize));
    return ScriptedMeter::Instance().Call(name, asked, answered) ? 1 : 0;
}

int RdaClient::reconnect() { return -1; }

std::uint8_t* rdaTaskBuffer() {
    static std::array<std::uint8_t, kRdaTaskBufferBytes> buffer;
    return buffer.data();
}

int connectToServer(const char*, std::uint16_t) { return ScriptedMeter::Instance().Connect(); }
