#pragma once

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <list>
#include <vector>

#include "simulator/descriptor.h"
#include "simulator/meter/link/frame_reader.h"
#include "simulator/meter/link/trace.h"
#include "simulator/meter/model/meter.h"
#include "simulator/meter/model/noise.h"

namespace meter {

/// What becomes of a call: a reply after some time, silence when it is empty, or the end of the connection, which comes
/// after the reply if there is one.
struct CallOutcome {
    bool reset = false;
    std::vector<std::byte> reply;
    std::chrono::milliseconds held{};
    std::chrono::milliseconds pace{};  // from one byte of the reply to the next; 0: all at once
};

/// Serves the meter's operations on 127.0.0.1 to several clients at once, and misbehaves as told.
///
/// Never waits: the owner polls the descriptors that `Watch` adds and then calls `Serve`.
class MeterServer {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// @throws std::system_error when nobody may listen on the port; port 0 takes a free one
    MeterServer(Meter& meter, std::uint16_t port);
    /// Listens nowhere: calls come by `Take` alone.
    explicit MeterServer(Meter& meter) : m_meter(meter), m_garbage(meter.ConnectionId()) {}

    /// Answers one call, or misbehaves.
    CallOutcome Take(const Frame& frame);

    /// Has every call reported as it is taken.
    void OnCall(CallObserver observer) { m_observer = std::move(observer); }

    void SetFault(Fault fault);
    Fault GetFault() const { return m_fault; }
    std::uint16_t Port() const { return m_port; }

    void Watch(std::vector<pollfd>& polled) const;
    /// Does what there is to do at `now`. @return milliseconds until it has to be called again, -1: when polled
    int Serve(Time now);

    std::size_t ConnectionCount() const { return m_connections.size(); }
    std::uint64_t CallCount() const { return m_calls; }
    std::uint64_t UnansweredCount() const { return m_unanswered; }

private:
    struct Reply {
        Time due;
        std::vector<std::byte> bytes;
        std::size_t sent = 0;
    };
    struct Connection {
        Descriptor socket;
        FrameReader reader;
        std::deque<Reply> replies;
        bool isEnding = false;  // with the last reply
    };

    void Listen();
    void Accept();
    /// @return false when the connection is over
    bool Read(Connection& connection, Time now);
    void Report(const Frame& frame, const CallOutcome& outcome, Time arrived, std::string_view result) const;
    bool Answer(Connection& connection, const Frame& frame, Time now);
    void Spoil(const Frame& frame, CallOutcome& outcome);
    static bool Write(Connection& connection, Time now);

    static constexpr std::size_t kMaxConnections = 16;
    static constexpr std::size_t kMaxReplies = 64;  // waiting on one connection

    Meter& m_meter;
    bool m_listens = false;  // but for a fault
    std::uint16_t m_port = 0;
    Descriptor m_listener;
    std::list<Connection> m_connections;
    Fault m_fault = Fault::None;
    Noise m_garbage;  // what replies are made of while the fault says so
    std::uint64_t m_calls = 0;
    std::uint64_t m_unanswered = 0;
    CallObserver m_observer;
};

}  // namespace meter
