#include "rda/client.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <new>
#include <span>

#include "platform/semaphore.h"
#include "platform/task.h"
#include "platform/timer.h"
#include "platform/wipe.h"
#include "rda/frame.h"
#include "rda/tcp_connector.h"
#include "rda/wire.h"

namespace {

constexpr std::uint32_t kConnectSeconds = 2;
constexpr std::uint32_t kHoldOffSeconds = 15;  // over when more than this have passed
constexpr std::uint32_t kReplySeconds = 10;    // a meter that sends byte by byte must not hold up the panel
constexpr std::size_t kTaskContexts = 10;

/// The one connection to the meter and what is needed to make it anew.
struct Link {
    os::SemaphoreId lock = os::semMCreate(os::kSemPriorityQueue | os::kSemInversionSafe);
    vxTCPConnector connector;
    std::array<char, 20> serverAddress{};
    std::uint16_t serverPort = 0;
    bool configured = false;  // set by connectToServer, before other tasks call
    bool holdOff = false;     // connecting is suspended
    std::uint32_t holdOffStart = 0;
    std::array<std::uint8_t, 4096> frame{};
};

Link& TheLink() {
    static Link& link = *new Link;  // for the life of the process: tasks may call until its very end
    return link;
}

/// A task that calls the meter, and its buffer. Claimed once, never given back.
struct RdaTaskContext {
    std::atomic<os::TaskId> task{0};  // 0: free; written by its owner alone, under the lock
    std::array<std::uint8_t, kRdaTaskBufferBytes> buffer{};
};

std::array<RdaTaskContext, kTaskContexts> taskContexts;

os::SemaphoreId TaskContextLock() {
    static const os::SemaphoreId lock = os::semMCreate(os::kSemPriorityQueue | os::kSemInversionSafe);
    return lock;
}

/// Makes a free context the task's own. @return whether it was free
bool Claim(RdaTaskContext& context, os::TaskId task) {
    os::semTake(TaskContextLock());
    const bool isFree = context.task == 0;
    if (isFree) context.task = task;
    os::semGive(TaskContextLock());
    return isFree;
}

std::uint32_t SecondsNow() { return static_cast<std::uint32_t>(os::time()); }

std::uint8_t* Put(std::uint8_t* place, const void* bytes, std::size_t count) {
    if (count != 0) std::memcpy(place, bytes, count);
    return place + count;
}

std::uint8_t* Put(std::uint8_t* place, std::uint32_t value) {
    WireU32 field{};
    field.Set(value);
    return Put(place, field.bytes.data(), field.bytes.size());
}

/// Receives piece by piece, as long as the pieces come within the time of a whole reply. @return whether all of it came
bool ReceiveAll(vxTCPStream& stream, std::uint8_t* reply, std::uint32_t size) {
    const std::uint32_t start = SecondsNow();
    std::uint32_t received = 0;
    while (received < size) {
        if (received != 0 && SecondsNow() - start > kReplySeconds) return false;
        const std::int32_t count = stream.receive(reply + received, size - received);
        if (count < 1) return false;
        received += static_cast<std::uint32_t>(count);
    }
    return true;
}

/// Sends the frame, once more on a new connection when need be, and receives its reply. The calling task holds the
/// link.
bool Exchange(std::uint32_t frameSize, std::uint32_t responseSize, std::uint8_t* response) {
    Link& link = TheLink();
    RdaClient& client = RdaClient::instance();
    vxTCPStream& stream = link.connector.stream();
    const std::uint8_t* frame = link.frame.data();
    // Bytes that nobody asked for belong to no call to come; where they end, nothing tells but a new connection.
    if (stream.takeUnread()) client.reconnect();
    if (stream.send(frame, frameSize) < 0) {
        client.reconnect();
        if (stream.send(frame, frameSize) < 0) {
            client.reconnect();
            client.reconnect();
            return false;
        }
    }
    if (ReceiveAll(stream, response, responseSize)) return true;
    client.reconnect();
    return false;
}

}  // namespace

std::uint8_t* rdaTaskBuffer() {
    const os::TaskId self = os::taskIdSelf();
    for (RdaTaskContext& context : taskContexts) {
        if (context.task == self || Claim(context, self)) return context.buffer.data();
    }
    std::printf("Failed to create task context for RDA client!\n");
    return nullptr;
}

int connectToServer(const char* address, std::uint16_t port) {
    Link& link = TheLink();
    std::snprintf(link.serverAddress.data(), link.serverAddress.size(), "%s", address);
    link.serverPort = port;
    link.configured = true;
    return link.connector.connect(link.serverAddress.data(), port, kConnectSeconds) == 0 ? 0 : -1;
}

RdaClient& RdaClient::instance() {
    static RdaClient client;
    return client;
}

int RdaClient::call(const char* name, std::uint32_t payloadSize, const std::uint8_t* payload,
                    std::uint32_t responseSize, std::uint8_t* response) {
    Link& link = TheLink();
    const std::size_t nameSize = std::strlen(name) + 1;
    if (!link.configured) return 0;
    const std::size_t room = link.frame.size() - rda::kFrameNumbers;
    if (nameSize > room || payloadSize > room - nameSize) return 0;
    std::fill_n(response, responseSize, std::uint8_t{0});

    os::semTake(link.lock);
    std::uint8_t* end = Put(link.frame.data(), rda::kMagic);
    end = Put(end, static_cast<std::uint32_t>(nameSize));
    end = Put(end, name, nameSize);
    end = Put(end, payloadSize);
    end = Put(end, payload, payloadSize);
    end = Put(end, responseSize);
    const bool done = Exchange(static_cast<std::uint32_t>(end - link.frame.data()), responseSize, response);
    Wipe(std::span(link.frame.data(), end));  // it may carry a password
    os::semGive(link.lock);
    return done ? 1 : 0;
}

int RdaClient::reconnect() {
    Link& link = TheLink();
    link.connector.stream().close();
    if (link.holdOff && SecondsNow() - link.holdOffStart > kHoldOffSeconds) link.holdOff = false;
    if (link.holdOff) return -1;
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (link.connector.connect(link.serverAddress.data(), link.serverPort, kConnectSeconds) == 0) return 0;
    }
    link.holdOffStart = SecondsNow();
    link.holdOff = true;
    return -1;
}
