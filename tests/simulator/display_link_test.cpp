#include "simulator/meter/link/display_link.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <thread>

#include "simulator/meter/link/console.h"
#include "simulator/meter/link/meter_server.h"
#include "tests/simulator/frames.h"

namespace {

using namespace meter;
using bench::Bytes;

/// Takes one command as the display would and answers it.
class FakeDisplay {
public:
    FakeDisplay() : m_listener(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof(address);
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(m_listener.Get(), generic, length), 0);
        EXPECT_EQ(::listen(m_listener.Get(), 4), 0);
        EXPECT_EQ(::getsockname(m_listener.Get(), generic, &length), 0);
        m_port = ntohs(address.sin_port);
    }
    std::uint16_t Port() const { return m_port; }

    /// One connection to its end. @return the frames that it brought
    Bytes Take(const Bytes& reply) const {
        const Descriptor socket(::accept(m_listener.Get(), nullptr, nullptr));
        std::array<std::byte, 256> buffer{};
        Bytes taken;
        for (;;) {
            const ssize_t count = ::recv(socket.Get(), buffer.data(), buffer.size(), 0);
            if (count <= 0) return taken;
            taken.insert(taken.end(), buffer.begin(), buffer.begin() + count);
            EXPECT_EQ(::send(socket.Get(), reply.data(), reply.size(), MSG_NOSIGNAL),
                      static_cast<ssize_t>(reply.size()));
        }
    }

private:
    Descriptor m_listener;
    std::uint16_t m_port = 0;
};

struct Expected {
    std::string_view line;
    std::string_view operation;
    Bytes payload;
    std::uint32_t responseSize;
    std::string_view answer;
};

TEST(DisplayLink, SendsEachOfTheFifteenCommands) {
    const FakeDisplay display;
    const DisplayLink link(display.Port());
    Meter theMeter{bench::kSeed, bench::kStart};
    MeterServer server(theMeter, 0);
    Console console(theMeter, server, link, bench::kSeed);
    Bytes text = Bytes(32);
    text[0] = std::byte{'7'};
    for (const Expected& expected : {
             Expected{"hardware-id", "VEKHWIF_getHwId", {}, 4, "ok 55"},
             {"alt-mode 1", "NAVCMDINT_changeAltModeState", bench::Words({1}), 0, "ok"},
             {"navigate 68", "NAVCMDINT_navigateTo", bench::Words({68}), 0, "ok"},
             {"display-test", "NAVCMDINT_navigateToDispTest", {}, 0, "ok"},
             {"language 5", "DISPCFG_setLanguage", bench::Words({5}), 0, "ok"},
             {"phase-labels 2", "DISPCFG_setPhaseLabels", bench::Words({2}), 0, "ok"},
             {"symbols 1", "DISPCFG_setMeasSymbols", bench::Words({1}), 0, "ok"},
             {"test-mode 1", "NAVCMDINT_changeTestModeState", bench::Words({1}), 0, "ok"},
             {"kernel-version", "MISCINT_getVekKrnlVersion", bench::Words({32}), 32, "ok 7"},
             {"app-version", "MISCINT_getVekDisplayAppVersion", bench::Words({32}), 32, "ok 7"},
             {"os-version", "MISCINT_getVekOsPkgVersion", bench::Words({32}), 32, "ok 7"},
             {"serial-number", "MISCINT_getVekSerialNumber", bench::Words({32}), 32, "ok 7"},
             {"app-variant", "MISCINT_getVekDisplayAppVariant", {}, 4, "ok 55"},
             {"backlight 30", "BACKLIGHT_setTimeout", bench::Words({30}), 0, "ok"},
             {"key 2 down", "BUTTON_simulate_input", bench::Words({0, 1, 2, 0}), 0, "ok"},
             {"key home up", "BUTTON_simulate_input", bench::Words({0, 0, 0, 0}), 0, "ok"},
         }) {
        Bytes taken;
        const Bytes reply(text.begin(), text.begin() + expected.responseSize);
        std::thread taker([&] { taken = display.Take(reply); });
        EXPECT_EQ(console.Execute(expected.line), expected.answer) << expected.line;
        taker.join();
        EXPECT_EQ(taken, bench::Call(expected.operation, expected.payload, expected.responseSize)) << expected.line;
    }
}

TEST(DisplayLink, NoticesThatTheDisplayIsSilentOrGone) {
    const FakeDisplay display;  // accepts, but nobody takes the command
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(DisplayLink(display.Port()).Call("VEKHWIF_getHwId", {}, 4).has_value());
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(3));
    EXPECT_FALSE(DisplayLink(1).Send("NAVCMDINT_navigateTo", 68));
}

}  // namespace
