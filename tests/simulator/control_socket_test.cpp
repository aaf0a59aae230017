#include "simulator/meter/link/control_socket.h"

#include <filesystem>

#include "tests/simulator/link_bench.h"

namespace {

using bench::Connection;

class Control : public testing::Test {
protected:
    Connection Connect() const { return Connection(m_path.string()); }
    void Say(const Connection& connection, std::string_view lines) {
        connection.Send(lines);
        for (int i = 0; i < 3; ++i) m_control.Serve();
    }

    const std::filesystem::path m_path =
        std::filesystem::temp_directory_path() / ("meter-control-" + std::to_string(::getpid()));
    meter::ControlSocket m_control{m_path, [](std::string_view line) { return "heard " + std::string(line); }};
};

TEST_F(Control, AnswersEachLineWithOneAndDropsWhoNeverEndsHis) {
    Connection endless = Connect();
    Connection client = Connect();
    Say(endless, std::string(5000, 'x'));
    Say(client, "one\ntwo\nthr");
    EXPECT_EQ(client.Take(), "heard one\nheard two\n");
    EXPECT_EQ(endless.Take(), "");
    EXPECT_TRUE(endless.IsEnded());
}

TEST_F(Control, TracesOnlyToWhomAskedUntilHeHasEnough) {
    Connection watcher = Connect();
    Connection other = Connect();
    m_control.Serve();
    EXPECT_FALSE(m_control.IsTraced());
    Say(watcher, "trace on\n");
    Say(other, "state\n");
    m_control.Trace("one");
    Say(watcher, "state\ntrace off\n");
    m_control.Trace("two");
    m_control.Serve();
    EXPECT_EQ(watcher.Take(), "ok\none\nheard state\nok\n");
    EXPECT_EQ(other.Take(), "heard state\n");
    EXPECT_FALSE(m_control.IsTraced());
}

TEST_F(Control, TellsAReaderThatDoesNotReadHowManyLinesHeLost) {
    Connection watcher = Connect();
    Say(watcher, "trace on\n");
    constexpr int kLines = 2000;
    for (int i = 0; i < kLines; ++i) {
        m_control.Trace(std::string(1000, 'x'));
        m_control.Serve();
    }
    std::string heard = watcher.Take();
    for (int i = 0; i < 8; ++i) {
        m_control.Serve();
        heard += watcher.Take();
    }
    m_control.Trace("end");
    m_control.Serve();
    heard += watcher.Take();
    const auto whole = static_cast<std::uint64_t>(std::ranges::count(heard, '\n')) - 3;  // ok, lost, end
    EXPECT_TRUE(heard.ends_with("{\"lost\":" + std::to_string(kLines - whole) + "}\nend\n"));
    EXPECT_GT(whole, 100U);
}

}  // namespace
