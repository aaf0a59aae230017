// What a call to the meter costs beyond a bare exchange of the same bytes, and a message through the queue beyond a
// bare wake-up.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>

#include "benchmarks/ratio.h"
#include "platform/message_queue.h"
#include "platform/task.h"
#include "rda/client.h"

namespace {

constexpr double kCallGoal = 1.1;
constexpr double kHopGoal = 1.5;
constexpr int kRepeats = 500;
constexpr std::size_t kFrameOverhead = 17;

void Check(bool holds) {
    if (!holds) std::abort();
}

void ReceiveAll(int socket, std::uint8_t* bytes, std::size_t size) {
    for (std::size_t received = 0; received < size;) {
        const ssize_t count = ::recv(socket, bytes + received, size - received, 0);
        if (count < 1) return;
        received += static_cast<std::size_t>(count);
    }
}

/// Answers every `requestSize` bytes with `replySize` bytes, without looking at them, to each of its two clients.
class Answerer {
public:
    Answerer(std::size_t requestSize, std::size_t replySize) : m_listener(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        Check(::bind(m_listener, reinterpret_cast<sockaddr*>(&address), length) == 0);
        Check(::listen(m_listener, 2) == 0);
        Check(::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length) == 0);
        m_port = ntohs(address.sin_port);
        for (auto& thread : m_threads) {
            thread = std::thread([this, requestSize, replySize] { Answer(requestSize, replySize); });
        }
    }
    ~Answerer() {
        ::shutdown(m_listener, SHUT_RDWR);
        for (auto& thread : m_threads) thread.join();
        ::close(m_listener);
    }
    std::uint16_t port() const { return m_port; }

private:
    void Answer(std::size_t requestSize, std::size_t replySize) const {
        const int client = ::accept(m_listener, nullptr, nullptr);
        std::array<std::uint8_t, 8192> bytes{};
        while (true) {
            std::size_t received = 0;
            while (received < requestSize) {
                const ssize_t count = ::recv(client, bytes.data() + received, requestSize - received, 0);
                if (count < 1) {
                    ::close(client);
                    return;
                }
                received += static_cast<std::size_t>(count);
            }
            if (replySize != 0) Check(::send(client, bytes.data(), replySize, MSG_NOSIGNAL) > 0);
        }
    }

    int m_listener;
    std::uint16_t m_port = 0;
    std::array<std::thread, 2> m_threads;
};

void CompareCall(benchmark::State& state, std::size_t requestSize, std::size_t replySize) {
    Answerer meter(requestSize, replySize);
    Check(connectToServer("127.0.0.1", meter.port()) == 0);
    const std::string operation(requestSize - kFrameOverhead - 8, 'n');
    const std::array<std::uint8_t, 8> payload{};
    std::array<std::uint8_t, 8192> reply{};
    const auto call = [&] {
        Check(RdaClient::instance().call(operation.c_str(), payload.size(), payload.data(),
                                         static_cast<std::uint32_t>(replySize), reply.data()) == 1);
    };

    const int bare = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(meter.port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    Check(::connect(bare, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0);
    std::array<std::uint8_t, 4096> request{};
    const auto exchange = [&] {
        Check(::send(bare, request.data(), requestSize, MSG_NOSIGNAL) == static_cast<ssize_t>(requestSize));
        ReceiveAll(bare, reply.data(), replySize);
    };

    bench::Compare(state, {.goal = kCallGoal}, kRepeats, call, exchange);
    ::close(bare);
    (void)connectToServer("127.0.0.1", 1);  // hangs up
}

/// A ball between two tasks, with nothing but a mutex and a condition variable for each direction.
struct BareHop {
    pthread_mutex_t lock = PTHREAD_MUTEX_INITIALIZER;
    pthread_cond_t arrived = PTHREAD_COND_INITIALIZER;
    bool isThere = false;

    void Throw() {
        pthread_mutex_lock(&lock);
        isThere = true;
        pthread_mutex_unlock(&lock);
        pthread_cond_signal(&arrived);
    }
    void Catch() {
        pthread_mutex_lock(&lock);
        while (!isThere) pthread_cond_wait(&arrived, &lock);
        isThere = false;
        pthread_mutex_unlock(&lock);
    }
};

constexpr std::size_t kMessageBytes = 40;
std::array<BareHop, 2> hops;
std::array<os::MessageQueueId, 2> queues;

void Send(os::MessageQueueId queue) {
    const std::array<std::uint8_t, kMessageBytes> message{};
    Check(os::msgQSend(queue, message.data(), message.size(), os::kNoWait, os::kMessagePriorityNormal) == 0);
}

void Receive(os::MessageQueueId queue) {
    std::array<std::uint8_t, kMessageBytes> message{};
    Check(os::msgQReceive(queue, message.data(), message.size(), os::kWaitForever) == kMessageBytes);
}

int ReturnMessages(os::TaskArgument /*argument*/) {
    while (true) {
        Receive(queues[0]);
        Send(queues[1]);
    }
}

int ReturnBare(os::TaskArgument /*argument*/) {
    while (true) {
        hops[0].Catch();
        hops[1].Throw();
    }
}

struct HopComparison {
    benchmark::State& state;
    BareHop done;
};

/// Both kinds of hop between tasks of the same priority.
int CompareHops(os::TaskArgument argument) {
    auto& comparison = *reinterpret_cast<HopComparison*>(argument);
    const auto message = [] {
        Send(queues[0]);
        Receive(queues[1]);
    };
    const auto bare = [] {
        hops[0].Throw();
        hops[1].Catch();
    };
    bench::Compare(comparison.state, {.goal = kHopGoal}, 4 * kRepeats, message, bare);
    comparison.done.Throw();
    return 0;
}

void MessageThereAndBack(benchmark::State& state) {
    for (auto& queue : queues) queue = os::msgQCreate(42, kMessageBytes, os::kQueueFifo);
    HopComparison comparison{state, {}};
    constexpr int kPriority = 194;
    Check(os::taskSpawn("tMessages", kPriority, 0, 4096, ReturnMessages, 0) != os::kTaskError);
    Check(os::taskSpawn("tBare", kPriority, 0, 4096, ReturnBare, 0) != os::kTaskError);
    Check(os::taskSpawn("tCompare", kPriority, 0, 4096, CompareHops, reinterpret_cast<os::TaskArgument>(&comparison)) !=
          os::kTaskError);
    comparison.done.Catch();
}

void Call29Reply4(benchmark::State& state) { CompareCall(state, 29, 4); }
void Call46Reply1720(benchmark::State& state) { CompareCall(state, 46, 1720); }
void Call50Reply264(benchmark::State& state) { CompareCall(state, 50, 264); }

}  // namespace

int main(int argc, char** argv) {
    bench::Register("link call of 29 / 4 bytes", Call29Reply4);
    bench::Register("link call of 46 / 1,720 bytes", Call46Reply1720);
    bench::Register("link call of 50 / 264 bytes", Call50Reply264);
    bench::Register("message through the queue and back", MessageThereAndBack);
    return bench::RunAll(argc, argv);
}
