#include "simulator/session/replay.h"

#include <algorithm>
#include <cstring>

namespace session {
namespace {

constexpr std::size_t kReach = 64;  // recorded calls among which the one that was made is looked for

bool IsSame(const meter::Frame& one, const meter::Frame& other) {
    return one.name == other.name && one.payload == other.payload && one.responseSize == other.responseSize;
}

bool IsInput(const Event& event) {
    return !std::holds_alternative<CallEvent>(event.what) && !std::holds_alternative<FrameEvent>(event.what);
}

}  // namespace

Replay::Replay(const Recording& recording, std::filesystem::path romfs, BoardPort& board)
    : m_recording(recording), m_romfs(std::move(romfs)), m_board(board) {
    for (const Event& event : recording.events) {
        if (const auto* call = std::get_if<CallEvent>(&event.what)) m_calls.push_back(call);
        if (std::holds_alternative<FrameEvent>(event.what)) m_recordedFrames.push_back(&event);
    }
    SetWorld(*this);
}

std::optional<Difference> Replay::Run(const std::function<bool(Instant)>& mayGo) {
    constexpr Instant kStep = 50;
    Scheduler& scheduler = Scheduler::Instance();
    StartDisplay();
    for (const Event& event : m_recording.events) {
        if (!IsInput(event)) continue;
        while (scheduler.Now() < event.time && !m_difference) {
            const Instant next = std::min({event.time, scheduler.Now() + kStep, NextFrame()});
            if (!mayGo(next)) return std::nullopt;
            scheduler.RunUntil(next);
        }
        if (m_difference) return m_difference;
        Deliver(event);
    }
    m_whole = true;
    if (!m_difference && m_frames < m_recordedFrames.size()) {
        const Event& missing = *m_recordedFrames[m_frames];
        m_difference = {m_frames, missing.time, std::get<FrameEvent>(missing.what).frame, std::nullopt};
    }
    return m_difference;
}

/// When the next frame was recorded, so that no step leads past two of them; kNever when it should be there already.
Instant Replay::NextFrame() const {
    if (m_frames >= m_recordedFrames.size()) return kNever;
    const Instant time = m_recordedFrames[m_frames]->time;
    return time > Scheduler::Instance().Now() ? time : kNever;
}

void Replay::Deliver(const Event& event) {
    if (const auto* key = std::get_if<KeyEvent>(&event.what)) PressKey(key->code, key->state);
    if (const auto* command = std::get_if<CommandEvent>(&event.what)) Command(*command);
    if (const auto* listening = std::get_if<ListenEvent>(&event.what)) m_listens = listening->listens;
}

void Replay::Command(const CommandEvent& command) const {
    const auto reply = CommandDisplay(command.operation, command.payload, command.size);
    if (!m_observer) return;
    m_observer({.to = meter::Callee::Display,
                .operation = command.operation,
                .payload = command.payload,
                .reply = reply ? std::span<const std::byte>(*reply) : std::span<const std::byte>(),
                .result = reply ? "ok" : "failed"});
}

void Replay::TakeFrame(std::span<const std::byte> pixels) {
    panel::Frame frame{};
    std::memcpy(frame.data(), pixels.data(), std::min(pixels.size(), frame.size()));
    if (m_difference) return;
    m_board.TakeFrame(frame);
    const std::size_t index = m_frames++;
    const Instant now = Scheduler::Instance().Now();
    if (index >= m_recordedFrames.size()) {
        m_difference = {index, now, std::nullopt, frame};
        return;
    }
    const panel::Frame& recorded = std::get<FrameEvent>(m_recordedFrames[index]->what).frame;
    if (recorded != frame) m_difference = {index, now, recorded, frame};
}

std::int32_t Replay::Control(std::string_view device, std::uint32_t request, std::int32_t argument) {
    return m_board.Control(device, request, argument);
}

meter::CallOutcome Replay::TakeCall(const meter::Frame& call) {
    meter::CallOutcome outcome = Answer(call);
    const bool whole = !outcome.reset && outcome.reply.size() == call.responseSize;
    if (m_observer)
        m_observer({.operation = call.name,
                    .payload = call.payload,
                    .reply = outcome.reply,
                    .taken = outcome.held,
                    .result = whole ? "ok" : "failed"});
    return outcome;
}

meter::CallOutcome Replay::Answer(const meter::Frame& call) {
    const std::size_t end = std::min(m_nextCall + kReach, m_calls.size());
    std::size_t place = m_nextCall;
    while (place < end && !IsSame(m_calls[place]->call, call)) ++place;
    if (place != m_nextCall && m_stray.empty())
        m_stray = "call " + std::to_string(m_nextCall) + " at " +
                  std::to_string(static_cast<double>(Scheduler::Instance().Now()) / 1000.0) + " s is " + call.name +
                  ", recorded was " + (m_nextCall < m_calls.size() ? m_calls[m_nextCall]->call.name : "none");
    if (place < end) {
        m_nextCall = place + 1;
        return m_calls[place]->outcome;
    }
    while (place > 0 && !IsSame(m_calls[place - 1]->call, call)) --place;
    return place > 0 ? m_calls[place - 1]->outcome : meter::CallOutcome{};
}

}  // namespace session
