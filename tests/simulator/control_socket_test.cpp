#include "simulator/meter/link/control_socket.h"

#include <filesystem>

#include "tests/simulator/link_bench.h"

namespace {

using bench::Connection;

class Control : public testing::Test {
protected:
    void Say(const Connection& connection, std::string_view lines) {
        connection.Send(lines);
        for (int i = 0; i < 3; ++i) m_control.Serve();
    }

    const std::string m_path = std::filesystem::temp_directory_path() / ("meter-control-" + std::to_string(::getpid()));
    meter::ControlSocket m_control{m_path, [](std::string_view line) { return "heard " + std::string(line); }};
};

TEST_F(Control, AnswersEachLineWithOneAndTracesToWhomAskedUntilHeHasEnough) {
    Connection endless(m_path);
    Connection watcher(m_path);
    Connection client(m_path);
    Say(endless, std::string(5000, 'x'));
    EXPECT_EQ(endless.Take(), "");
    EXPECT_TRUE(endless.IsEnded());
    EXPECT_FALSE(m_control.IsTraced());
    Say(watcher, "trace on\n");
    Say(client, "one\ntwo\nthr");
    m_control.Trace("a call");
    Say(watcher, "state\ntrace off\n");
    m_control.Trace("another");
    m_control.Serve();
    EXPECT_EQ(watcher.Take(), "ok\na call\nheard state\nok\n");
    EXPECT_EQ(client.Take(), "heard one\nheard two\n");
    EXPECT_FALSE(m_control.IsTraced());
}

TEST_F(Control, TellsAReaderThatDoesNotReadHowManyLinesHeLost) {
    Connection watcher(m_path);
    Say(watcher, "trace on\n");
    constexpr int kLines = 2000;
    for (int i = 0; i < kLines; ++i) {
        m_control.Trace(std::string(1000, 'x'));
        m_control.Serve();
    }
    std::string heard;
    for (int i = 0; i < 10; ++i) {
        if (i == 9) m_control.Trace("end");
        m_control.Serve();
        heard += watcher.Take();
    }
    const auto whole = static_cast<std::uint64_t>(std::ranges::count(heard, '\n')) - 3;  // ok, lost, end
    EXPECT_TRUE(heard.ends_with("{\"lost\":" + std::to_string(kLines - whole) + "}\nend\n"));
    EXPECT_GT(whole, 100U);
}

}  // namespace
