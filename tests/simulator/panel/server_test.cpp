#include "simulator/panel/server.h"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <thread>
#include <vector>

#include "simulator/meter/link/control_socket.h"
#include "tests/simulator/panel/emulated_board.h"
#include "tests/simulator/panel/http_client.h"

namespace {

using Records = std::vector<panel::KeyRecord>;

/// A board with its server on a free port.
class PanelServer : public EmulatedBoard {
protected:
    ~PanelServer() override { m_server.reset(); }

    HttpClient Client() { return HttpClient(m_server->Port()); }
    HttpClient Viewer() {
        HttpClient viewer = Client();
        EXPECT_EQ(viewer.Upgrade("/live").status, 101);
        return viewer;
    }
    std::string Host() const { return "Host: 127.0.0.1:" + std::to_string(m_server->Port()) + "\r\n"; }

    void WriteFrame(char value) {
        std::fstream frame(m_root / "db9000_fb", std::ios::in | std::ios::out | std::ios::binary);
        frame << std::string(panel::kFrameBytes, value);
    }

    /// The key records that come, as many as expected, and then what else there is.
    Records Keys(std::size_t count) {
        Records records;
        panel::KeyRecord record{};
        Eventually([&] {
            while (::read(m_keys.Get(), &record, sizeof record) == sizeof record) records.push_back(record);
            return records.size() >= count;
        });
        return records;
    }

    std::unique_ptr<panel::Server> m_server = std::make_unique<panel::Server>(*m_board, 0, "");
    const Descriptor m_keys{::open((m_root / "buttons").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)};
};

TEST_F(PanelServer, ServesThePageWithItsTypesAndItsPolicy) {
    const auto page = Client().Ask("GET", "/");
    EXPECT_EQ(page.status, 200);
    EXPECT_NE(page.headers.find("content-type: text/html"), std::string::npos);
    EXPECT_NE(page.headers.find("content-security-policy: default-src 'none'"), std::string::npos);
    EXPECT_THROW(panel::Server(*m_board, m_server->Port(), ""), std::runtime_error) << "its port is taken";
    EXPECT_NE(Client().Ask("GET", "/panel.js").headers.find("text/javascript"), std::string::npos);
}

TEST_F(PanelServer, PutsKeysIntoTheBoard) {
    EXPECT_EQ(Client().Ask("POST", "/keys/soft1").status, 204);
    EXPECT_EQ(Client().Ask("POST", "/keys/home?state=down").status, 204);
    EXPECT_EQ(Client().Ask("POST", "/keys/home?state=up").status, 204);
    EXPECT_EQ(Client().Ask("POST", "/keys/soft23", "any body").status, 204);
    EXPECT_EQ(Client().Ask("POST", "/keys/soft3").status, 204);
    EXPECT_EQ(Keys(8), (Records{{1, 0}, {1, 1}, {5, 0}, {5, 1}, {6, 0}, {6, 1}, {3, 0}, {3, 1}}));
    Client().Ask("POST", "/keys/soft2?state=down");
    EXPECT_EQ(Keys(1), (Records{{2, 0}})) << "held alone, it comes when its time is over";
}

TEST_F(PanelServer, AnswersOneRequestOnAConnection) {
    const std::string key = "POST /keys/home HTTP/1.1\r\n" + Host();
    const std::string empty = key + "Content-Length: 0\r\n\r\n";
    for (const std::string& request : {empty, empty + empty, key + "\r\n" + empty}) {
        HttpClient client = Client();
        client.Send(request);
        EXPECT_EQ(client.Read().status, 204) << request;
        EXPECT_EQ(Keys(2), (Records{{5, 0}, {5, 1}})) << request;
    }
    HttpClient client = Client();
    EXPECT_EQ(client.Ask("GET", "/state", {}, "Content-Length: 0\r\n").status, 200) << "an empty body is none";
    EXPECT_TRUE(client.HangsUp());
}

TEST_F(PanelServer, RefusesWhatItDoesNotKnow) {
    for (const auto& [method, target, status] : {std::tuple{"GET", "/nothing", 404},
                                                 {"GET", "/../main.cpp", 404},
                                                 {"POST", "/keys/soft5", 404},
                                                 {"POST", "/keys/", 404},
                                                 {"POST", "/keys/home?state=sideways", 400},
                                                 {"POST", "/meter", 404},
                                                 {"GET", "/keys/home", 405},
                                                 {"POST", "/state", 405},
                                                 {"DELETE", "/", 405},
                                                 {"PUT", "/frame.png", 405}}) {
        EXPECT_EQ(Client().Ask(method, target).status, status) << method << " " << target;
    }
    EXPECT_NE(Client().Ask("POST", "/state").headers.find("allow: GET"), std::string::npos);
    EXPECT_NE(Client().Ask("GET", "/keys/home").headers.find("allow: POST"), std::string::npos);
    EXPECT_EQ(Keys(0), Records{});
}

TEST_F(PanelServer, BoundsWhatItReads) {
    EXPECT_EQ(Client().Ask("POST", "/keys/home", std::string(512, 'x')).status, 204);
    EXPECT_EQ(Keys(2), (Records{{5, 0}, {5, 1}}));
    for (const std::size_t size : {513U, 100'000U})
        EXPECT_EQ(Client().Ask("POST", "/keys/home", std::string(size, 'x')).status, 413);
    HttpClient huge = Client();
    huge.Send("POST /keys/home HTTP/1.1\r\n" + Host() + "Content-Length: 99999999999999999999\r\n\r\n");
    EXPECT_EQ(huge.Read().status, 413);
    Client().Send("GET / HTTP/1.1\r\nX: " + std::string(100'000, 'x'));
    Client().Send("no HTTP at all\r\n\r\n");
    EXPECT_EQ(Client().Ask("GET", "/state").status, 200) << "it goes on";
    EXPECT_EQ(Keys(0), Records{});
}

TEST_F(PanelServer, RefusesOtherPagesAndOtherHosts) {
    const std::string port = std::to_string(m_server->Port());
    for (const std::string& origin : {std::string("http://evil.example"), "http://127.0.0.1:1" + port,
                                      "https://localhost:" + port, std::string("null")}) {
        const std::string header = "Origin: " + origin + "\r\n";
        EXPECT_EQ(Client().Ask("POST", "/keys/home", {}, header).status, 403) << origin;
        EXPECT_EQ(Client().Ask("GET", "/frame.png", {}, header).status, 403) << origin;
        EXPECT_EQ(Client().Upgrade("/live", header).status, 403) << origin;
    }
    for (const std::string& host : {"Host: evil.example:" + port, std::string("Host: 127.0.0.1")}) {
        HttpClient client = Client();
        client.Send("GET /state HTTP/1.1\r\n" + host + "\r\n\r\n");
        EXPECT_EQ(client.Read().status, 403) << host;
    }
    EXPECT_EQ(Client().Ask("POST", "/keys/home", {}, "Origin: http://localhost:" + port + "\r\n").status, 204);
    EXPECT_EQ(Keys(2), (Records{{5, 0}, {5, 1}}));
}

TEST_F(PanelServer, AViewerSeesStateAndFramesAndHoldsKeys) {
    WriteFrame(7);
    ASSERT_TRUE(Eventually([this] { return m_board->NewestFrame()->front() == 7; }));
    {
        HttpClient viewer = Viewer();
        const auto state = nlohmann::json::parse(viewer.ReadMessage(1).value());
        EXPECT_EQ(state["frames"], 1);
        EXPECT_EQ(state["backlight"], (nlohmann::json{{"level", 255}, {"on", true}}));
        EXPECT_EQ(state["lines"], (nlohmann::json{0, 0, 1}));
        EXPECT_EQ(state["meter"], nullptr);
        EXPECT_EQ(viewer.ReadMessage(2), std::string(panel::kFrameBytes, 7));
        viewer.SendMessage("soft2 down");
        viewer.SendMessage("soft3 down");
        EXPECT_EQ(Keys(1), (Records{{6, 0}}));
        viewer.SendMessage("soft3 up");
        viewer.SendMessage("soft2 up");
        EXPECT_EQ(Keys(1), (Records{{6, 1}}));
        viewer.SendMessage("home down");
        EXPECT_EQ(Keys(1), (Records{{5, 0}}));
    }
    EXPECT_EQ(Keys(1), (Records{{5, 1}})) << "who leaves lets go";
}

TEST_F(PanelServer, TellsWhenThereAreTooMany) {
    constexpr std::size_t kConnections = 64;
    constexpr std::size_t kViewers = 24;
    std::vector<HttpClient> idle;
    for (std::size_t i = 0; i < kConnections; ++i) idle.push_back(Client());
    ASSERT_TRUE(Eventually([this] { return Client().Read().status == 503; }));
    idle.clear();
    EXPECT_TRUE(Eventually([this] { return Client().Ask("GET", "/state").status == 200; })) << "when they are gone";
    std::vector<HttpClient> viewers;
    for (std::size_t i = 0; i < kViewers; ++i) viewers.push_back(Viewer());
    EXPECT_EQ(Client().Upgrade("/live").status, 503);
}

TEST_F(PanelServer, WaitsForNobodyForever) {
    std::vector<HttpClient> slow;
    for (const std::string& start : {std::string("GE"), "GET /state HTTP/1.1\r\n" + Host() + "X-Slow: ",
                                     "POST /keys/home HTTP/1.1\r\n" + Host() + "Content-Length: 5\r\n\r\nab"}) {
        slow.push_back(Client());
        slow.back().Send(start);
    }
    HttpClient viewer = Viewer();
    viewer.Send(std::string{static_cast<char>(0x81)});
    EXPECT_EQ(Client().Ask("GET", "/state").status, 200) << "meanwhile";
    for (HttpClient& client : slow) {
        EXPECT_EQ(client.Read().status, 408);
        EXPECT_TRUE(client.HangsUp());
    }
}

/// A WebSocket frame by its first two bytes, with a mask of zeros.
std::string Frame(int first, int second, const std::string& text) {
    return std::string{static_cast<char>(first), static_cast<char>(second)} + std::string(4, '\0') + text;
}

TEST_F(PanelServer, HangsUpOnAViewerThatTalksNonsense) {
    const std::string text = "home down";
    const int masked = 0x80 | static_cast<int>(text.size());
    for (const std::string& bytes :
         {Frame(0xF1, masked, text), Frame(0x83, masked, text), Frame(0x8F, masked, text), Frame(0x80, masked, text),
          Frame(0x09, masked, text), Frame(0x81, 0x80 | 10, "soft9 down"), Frame(0x81, 0x80 | 4, "home"),
          Frame(0x81, 0x80 | 13, "home sideways"), Frame(0x81, 0x80, ""), Frame(0x81, 0x80 | 60, std::string(60, 'x')),
          Frame(0x82, 0x80 | 33, std::string(40, 'x')), std::string("\x81\xFF\x7F") + std::string(100, '\xFF'),
          std::string("\x81\xFE\xFF\xFF") + std::string(70'000, 'x')}) {
        HttpClient viewer = Viewer();
        viewer.Send(bytes);
        EXPECT_TRUE(viewer.ReadMessage(8) || viewer.HangsUp()) << testing::PrintToString(bytes.substr(0, 20));
    }
    EXPECT_EQ(Client().Upgrade("/other").status, 404);
    EXPECT_EQ(Keys(0), Records{});
}

TEST_F(PanelServer, PutsLinesToTheMeter) {
    const std::string path = (m_root / "meter").string();
    m_server = std::make_unique<panel::Server>(*m_board, 0, path);
    EXPECT_EQ(nlohmann::json::parse(Client().Ask("GET", "/state").body)["meter"], false);
    EXPECT_EQ(Client().Ask("POST", "/meter", "state").status, 502);
    meter::ControlSocket meter(path, [](std::string_view line) { return "ok " + std::string(line); });
    HttpClient client = Client();
    client.Send("POST /meter HTTP/1.1\r\n" + Host() + "Content-Length: 10\r\n\r\nnavigate 7");
    EXPECT_EQ(Client().Ask("GET", "/state").status, 200) << "a waiting line holds up nobody";
    const std::jthread serving([&meter](const std::stop_token& stop) {
        while (!stop.stop_requested()) meter.Serve();
    });
    const auto reply = client.Read();
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.body, "ok navigate 7\n");
    for (const std::string body : {"", "\n", "scenario sag\nnavigate 7", "a\rb"})
        EXPECT_EQ(Client().Ask("POST", "/meter", body).status, 400);
    EXPECT_EQ(Client().Ask("GET", "/meter").status, 405);
}

/// Several looking on, as browsers do.
class Viewers : public PanelServer {};

TEST_F(Viewers, WhoStallLeaveTheOthersTheirFramesAndGetTheNewest) {
    constexpr char kFrames = 50;
    HttpClient stalled = Viewer();
    stalled.Stall();
    HttpClient reader = Viewer();
    for (char value = 1; value <= kFrames; ++value) {
        WriteFrame(value);
        auto frame = reader.ReadMessage(2);
        while (frame && frame->front() != value) frame = reader.ReadMessage(2);
        EXPECT_TRUE(frame) << "each frame comes before the next is written";
    }
    int seen = 0;
    auto frame = stalled.ReadMessage(2);
    for (; frame && frame->front() != kFrames; frame = stalled.ReadMessage(2)) ++seen;
    EXPECT_TRUE(frame);
    EXPECT_LT(seen, kFrames - 1) << "it did stall";
}

TEST_F(Viewers, SeeWhatTheProgramsPrintAndWhatWasRefused) {
    std::ofstream(m_root / "display.log") << "first\n\n\tsecond \"quoted\" \xFF\nhalf";
    std::ofstream(m_root / "notes.txt") << "no console\n";
    HttpClient viewer = Viewer();
    viewer.SendMessage("console on");
    const auto linesUntil = [&viewer](const char* text) {
        std::string lines;
        while (lines.find(text) == std::string::npos) {
            const auto message = viewer.ReadMessage(1);
            if (!message) return "ended: " + lines;
            if (message->starts_with("{\"console\"")) lines += *message;
        }
        return lines;
    };
    const std::string lines = linesUntil("second");
    EXPECT_NE(lines.find("\"source\":\"display\""), std::string::npos) << lines;
    EXPECT_NE(lines.find("\\tsecond \\\"quoted\\\" \xEF\xBF\xBD"), std::string::npos) << lines;
    EXPECT_EQ(lines.find("half"), std::string::npos);
    EXPECT_EQ(lines.find("no console"), std::string::npos);
    std::ofstream(m_root / "display.log", std::ios::app) << " and whole\n";
    EXPECT_NE(linesUntil("whole").find("half and whole"), std::string::npos);
    std::ofstream(m_root / "display.log") << "anew\n";
    EXPECT_NE(linesUntil("anew").find("\"text\":\"anew\""), std::string::npos);
    Client().Ask("GET", "/nothing");
    EXPECT_NE(linesUntil("nothing").find("404"), std::string::npos);
}

}  // namespace
