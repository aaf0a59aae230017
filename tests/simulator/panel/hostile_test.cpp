#include <random>
#include <thread>

#include "tests/simulator/panel/panel_server.h"

namespace {

constexpr std::size_t kConnections = 64;
constexpr std::size_t kViewers = 24;

/// A server whose clients mean harm, or do not know better. Whatever they do, it goes on for the others.
class HostileClients : public PanelServer {
protected:
    void TearDown() override {
        EXPECT_TRUE(Eventually([this] { return Ask("GET", "/state").status == 200; })) << "it goes on";
        EXPECT_EQ(Keys(0).size(), 0U) << "and no key moved";
        PanelServer::TearDown();
    }

    std::string Host() { return "Host: 127.0.0.1:" + std::to_string(m_server->Port()) + "\r\n"; }

    /// Whether the server hangs up on a viewer, after what it had to show.
    static bool HangsUp(HttpClient& viewer) {
        for (;;) {
            const HttpClient::Message message = viewer.ReadMessage();
            if (message.opcode == 8) return true;
            if (message.opcode == -1) return viewer.IsEnded();
            if (message.opcode != 1 && message.opcode != 2) return false;
        }
    }
};

TEST_F(HostileClients, AreToldWhenThereAreTooMany) {
    std::vector<HttpClient> idle;
    for (std::size_t i = 0; i < kConnections; ++i) idle.push_back(Client());
    ASSERT_TRUE(Eventually([this] { return Client().Read().status == 503; }));
    idle.clear();
    EXPECT_TRUE(Eventually([this] { return Ask("GET", "/state").status == 200; })) << "when they are gone";
    std::vector<HttpClient> viewers;
    for (std::size_t i = 0; i < kViewers; ++i) {
        viewers.push_back(Client());
        EXPECT_EQ(viewers.back().Upgrade("/live").status, 101);
    }
    EXPECT_EQ(Client().Upgrade("/live").status, 503);
}

TEST_F(HostileClients, AreNotWaitedForForever) {
    std::vector<HttpClient> slow;
    for (const std::string& start : {std::string("GE"), "GET /state HTTP/1.1\r\n" + Host() + "X-Slow: ",
                                     "POST /keys/home HTTP/1.1\r\n" + Host() + "Content-Length: 5\r\n\r\nab"}) {
        slow.push_back(Client());
        slow.back().Send(start);
    }
    HttpClient viewer = Client();
    viewer.Upgrade("/live");
    viewer.Send(std::string{static_cast<char>(0x81)});
    EXPECT_EQ(Ask("GET", "/state").status, 200) << "meanwhile";
    for (HttpClient& client : slow) {
        EXPECT_EQ(client.Read().status, 408);
        EXPECT_TRUE(client.IsEnded());
    }
}

TEST_F(HostileClients, MaySendFramesThatAreNone) {
    const std::string text = "home down";
    const auto frame = [&text](int first, int second) {
        return std::string{static_cast<char>(first), static_cast<char>(second)} + std::string(4, '\0') + text;
    };
    const int masked = 0x80 | static_cast<int>(text.size());
    for (const std::string& bytes :
         {frame(0xF1, masked), frame(0x83, masked), frame(0x8F, masked), frame(0x80, masked), frame(0x09, masked),
          std::string("\x81\xFF\x7F") + std::string(100, '\xFF'),
          std::string("\x81\xFE\xFF\xFF") + std::string(70'000, 'x'), frame(0x82, 0x80 | 33) + std::string(40, 'x')}) {
        HttpClient viewer = Client();
        ASSERT_EQ(viewer.Upgrade("/live").status, 101);
        viewer.Offer(bytes);
        EXPECT_TRUE(HangsUp(viewer)) << testing::PrintToString(bytes.substr(0, 8));
    }
}

TEST_F(HostileClients, MaySendRequestsThatAreNone) {
    std::string manyHeaders = "GET /state HTTP/1.1\r\n" + Host();
    for (int i = 0; i < 500; ++i) manyHeaders += "X-" + std::to_string(i) + ": x\r\n";
    for (const std::string& request :
         {manyHeaders + "\r\n", "GET /" + std::string(50'000, 'a') + " HTTP/1.1\r\n" + Host() + "\r\n",
          "GET /state?" + std::string(5'000, '&') + " HTTP/1.1\r\n" + Host() + "\r\n",
          "POST /keys/home HTTP/1.1\r\n" + Host() + "Content-Length: -1\r\n\r\n",
          "POST /keys/home HTTP/1.1\r\n" + Host() + "Transfer-Encoding: chunked\r\n\r\nFFFFFFFFFFFFFFFF\r\n",
          "BREW /state HTTP/1.1\r\n" + Host() + "\r\n", std::string("\x16\x03\x01\x02") + std::string(600, '\0'),
          std::string(20'000, '\n'), "GET /%00%0d%0a%2e%2e/main.cpp HTTP/1.1\r\n" + Host() + "\r\n"}) {
        HttpClient client = Client();
        client.Offer(request);
        EXPECT_EQ(Ask("GET", "/state").status, 200) << request.substr(0, 40);
    }
    // What looks like a key press is one; it is taken back here.
    Keys(0);
}

TEST_F(HostileClients, MaySendAnything) {
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        std::string bytes(random() % 400, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        HttpClient client = Client();
        if (i % 2 == 1) client.Upgrade("/live");
        client.Offer(bytes);
    }
}

}  // namespace
