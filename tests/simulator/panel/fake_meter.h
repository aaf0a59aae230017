#pragma once

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <string>
#include <thread>

#include "simulator/descriptor.h"

/// A control socket of a meter that answers what the test says, or is silent. Who traces it gets two calls, and a line
/// that is none.
class FakeMeter {
public:
    explicit FakeMeter(const std::string& path) : m_listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_listener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_listener.Get(), 8), 0);
        m_thread = std::thread([this] { Run(); });
    }
    ~FakeMeter() {
        ::shutdown(m_listener.Get(), SHUT_RDWR);
        m_thread.join();
    }

private:
    void Run() {
        for (;;) {
            Descriptor client(::accept(m_listener.Get(), nullptr, nullptr));
            if (!client) return;
            std::array<char, 1024> line{};
            const ssize_t size = ::recv(client.Get(), line.data(), line.size(), 0);
            const std::string text(line.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
            if (text == "silent\n") continue;  // hangs up without a word
            if (text == "trace on\n") {
                const std::string calls =
                    "ok\n{\"call\":1}\n{broken\n{\"call\":2,\"operation\":\"NAVCMDINT_navigateTo\",\"request\":{\"x\":"
                    "7},\"result\":\"ok\"}\n";
                EXPECT_EQ(::send(client.Get(), calls.data(), calls.size(), MSG_NOSIGNAL),
                          static_cast<ssize_t>(calls.size()));
                m_tracing = std::move(client);
                continue;
            }
            if (text == "slow\n") std::this_thread::sleep_for(std::chrono::milliseconds(300));
            const std::string answer = text == "state\n" ? "{\"scenario\":\"sag\"}\n" : "ok " + text;
            EXPECT_EQ(::send(client.Get(), answer.data(), answer.size(), MSG_NOSIGNAL),
                      static_cast<ssize_t>(answer.size()));
        }
    }

    Descriptor m_listener;
    Descriptor m_tracing;
    std::thread m_thread;
};
