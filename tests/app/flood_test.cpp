#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <thread>

#include "app/application.h"
#include "app/button_task.h"
#include "peg/core/timer_list.h"
#include "peg/port/vxpeg.h"
#include "rda/command_server.h"
#include "rda/server.h"
#include "tests/bench/test_on.h"
#include "tests/rda/loopback.h"

namespace {

// Ten thousand commands and as many key records a second, sent as fast as they go. The meter waits for an answer twenty
// times a second.
constexpr int kSeconds = 5;  // unless FLOOD_SECONDS says otherwise
constexpr int kEachSecond = 10'000;
constexpr int kCommandsPerTick = kEachSecond / kTicksPerSecond;
constexpr std::uint8_t kHomeKey = 0;

/// The application with its command server, which the meter floods through a socket, while somebody floods the keys.
/// The toolkit runs in the test's own task and gets a tick for every twentieth of a second that is over.
class Flood : public PanelTest {
protected:
    Flood() {
        Screen().blind = true;
        BuildApplication(Manager());
        Pump();
        registerDisplayCommands(m_server, TheDisplayCommands());
        const std::uint16_t port = UnusedPort();
        m_serving = std::jthread([this, port] { m_server.serve(port, "127.0.0.1", 0, 0); });
        m_meter.emplace_back(Peer::ConnectTo(port));
    }

    /// The meter waits for an answer, so that all it sent before has been carried out.
    bool IsInStep() {
        m_meter[0].Send(Request("MISCINT_getVekDisplayAppVariant", "", 4));
        return m_meter[0].Receive(4) == Word(2);
    }

    /// Half of the commands name screens, the others are numbered inputs.
    void SendCommands() {
        for (int sent = 0; sent < count; sent += 2) {
            const auto number = static_cast<std::uint32_t>(sent);
            m_meter[0].Send(Request("NAVCMDINT_navigateTo", Word(number % 202), 0));
            m_meter[0].Send(Request("BUTTON_simulate_input", Word(1) + Word(1) + Word(number) + Word(~number), 0));
            if (sent % kCommandsPerTick != 0) continue;
            EXPECT_TRUE(IsInStep());
            m_sent = sent;
        }
        EXPECT_TRUE(IsInStep());
    }
    void SendKeys() {
        for (int i = 0; i < count; ++i) {
            const ButtonEvent event{kPanelKey, i % 2 == 0 ? 1U : 0U, static_cast<std::uint32_t>(i / 2 % 6), 0};
            keysRefused += handleButtonEvent(event) == 0 ? 1 : 0;
            while (i > m_sent + kCommandsPerTick) std::this_thread::yield();
        }
    }

    /// What the toolkit task does, until both floods are over.
    void Run() {
        std::atomic<int> running = 2;
        std::jthread sendingCommands([&] { SendCommands(), --running; });
        std::jthread sendingKeys([&] { SendKeys(), --running; });
        for (bool last = false; !last;) {
            last = running == 0;
            if (m_sent >= m_ticks * kCommandsPerTick) {
                postToolkitTick();
                ++m_ticks;
            }
            Deliver();
        }
    }

    const char* const seconds = std::getenv("FLOOD_SECONDS");
    const int count = kEachSecond * (seconds != nullptr ? std::atoi(seconds) : kSeconds);
    int navigations = 0;
    int keys = 0;
    int keysRefused = 0;
    std::vector<std::uint32_t> inputs;  // numbers that both words of an input agree on, in their order

private:
    void Deliver() {
        PegMessage message;
        while (toolkit.queue->Poll(message)) {
            const bool isKey = message.type == MSG_KEY_DOWN || message.type == MSG_KEY_UP;
            if (message.type == NAV_MSG_NAVIGATE) ++navigations;
            if (isKey && message.param != KEY_SIMULATED) ++keys;
            if (isKey && message.param == KEY_SIMULATED) inputs.push_back(message.data[0] & ~message.data[1]);
            if (Manager().RouteToTaskQueue(message) == 0) Manager().DispatchMessage(message);
            meter().ForgetCalls();
        }
    }

    RdaServer m_server;
    std::jthread m_serving;  // ends when the meter hangs up
    std::vector<Peer> m_meter;
    std::atomic<int> m_sent = 0;  // written by the flood of commands
    int m_ticks = 0;
};

TEST_F(Flood, LosesNothingButWhatTheFullQueueSaysAndLeavesAllAtWork) {
    testing::internal::CaptureStdout();
    Run();
    const std::string console = testing::internal::GetCapturedStdout();
    const std::string line = "EnqueueTaskMessage: msgQSend failed\n";
    int said = 0;
    for (std::size_t at = console.find(line); at != console.npos; at = console.find(line, at + line.size())) ++said;

    const int arrived = navigations + static_cast<int>(inputs.size());
    std::printf("%d of %d commands and %d of %d keys arrived, %d refusals were said\n", arrived, count, keys, count,
                said);
    EXPECT_EQ(keys + keysRefused, count) << "a key is delivered or its sender told";
    EXPECT_LE(count - arrived + keysRefused, said) << "something was lost in silence";
    EXPECT_GT(arrived, 0);
    EXPECT_TRUE(std::ranges::is_sorted(inputs, std::less_equal{})) << "out of order, or twice";

    for (const std::int32_t screen : {25, 100, 4}) {
        navigationHandlerClass::postNavigateTo(static_cast<std::uint32_t>(screen));
        Pump();
        ASSERT_EQ(Shown(), screen);
        meter().ForgetCalls();
        Ticks(2 * kTicksPerSecond);
        EXPECT_GE(meter().Calls(), 2) << "screen " << screen << " does not refresh itself";
    }
    for (const bool down : {true, false}) EXPECT_EQ(handleButtonEvent({kPanelKey, down ? 1U : 0U, kHomeKey, 0}), 1);
    Pump();
    EXPECT_NE(Shown(), 4);
}

}  // namespace
