#include "tests/simulator/panel/panel_server.h"

namespace {

/// Several looking on, as browsers do.
class Viewers : public PanelServer {
protected:
    HttpClient Look(std::string_view subscription = {}) {
        HttpClient viewer = Client();
        EXPECT_EQ(viewer.Upgrade("/live").status, 101);
        if (!subscription.empty()) viewer.SendMessage(subscription);
        return viewer;
    }

    /// How many frames a viewer gets before one of a value.
    static int FramesUntil(char last, HttpClient& viewer) {
        for (int frames = 0;;) {
            const HttpClient::Message message = viewer.ReadMessage();
            if (message.opcode == -1) return -1;
            if (message.opcode != 2) continue;
            if (message.payload.front() == last) return frames;
            ++frames;
        }
    }

    /// The entries of a feed that a viewer gets until one of them contains the text.
    static std::string Until(HttpClient& viewer, const std::string& text) {
        std::string all;
        while (all.find(text) == std::string::npos) {
            const HttpClient::Message message = viewer.ReadMessage();
            if (message.opcode == -1) return "ended: " + all;
            if (message.opcode == 1 && !message.payload.starts_with("{\"alarmLamp\"")) all += message.payload;
        }
        return all;
    }
};

TEST_F(Viewers, WhoStallLeaveTheOthersTheirFramesAndGetTheNewest) {
    constexpr char kFrames = 50;
    HttpClient stalled = Look();
    stalled.Stall();
    HttpClient reader = Look();
    for (char value = 1; value <= kFrames; ++value) {
        WriteFrame(value);
        EXPECT_GE(FramesUntil(value, reader), 0) << "each frame comes before the next is written";
    }
    const int seen = FramesUntil(kFrames, stalled);
    EXPECT_GE(seen, 0);
    EXPECT_LT(seen, kFrames - 1) << "it did stall";
}

TEST_F(Viewers, SeeWhatTheProgramsPrintAndWhatWasRefused) {
    std::ofstream(m_root / "display.log") << "first\n\n\tsecond \"quoted\" \xFF\nhalf";
    std::ofstream(m_root / "notes.txt") << "no console\n";
    HttpClient viewer = Look("console on");
    const std::string lines = Until(viewer, "second");
    EXPECT_NE(lines.find("\"source\":\"display\""), std::string::npos) << lines;
    EXPECT_NE(lines.find("\\tsecond \\\"quoted\\\" \xEF\xBF\xBD"), std::string::npos) << lines;
    EXPECT_EQ(lines.find("half"), std::string::npos);
    EXPECT_EQ(lines.find("no console"), std::string::npos);
    std::ofstream(m_root / "display.log", std::ios::app) << " and whole\n";
    EXPECT_NE(Until(viewer, "whole").find("half and whole"), std::string::npos);
    std::ofstream(m_root / "display.log") << "anew\n";
    EXPECT_NE(Until(viewer, "anew").find("\"text\":\"anew\""), std::string::npos);
    Ask("GET", "/nothing");
    EXPECT_NE(Until(viewer, "nothing").find("404"), std::string::npos);
}

}  // namespace
