#include <array>
#include <map>
#include <set>
#include <thread>

#include "platform/shown_screen.h"
#include "tests/simulator/panel/fake_meter.h"
#include "tests/simulator/panel/panel_server.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kFramePause{50};  // the display draws at every tick at most
constexpr int kFrames = 50;

/// Several looking on, as browsers do.
class Viewers : public PanelServer {
protected:
    /// Frames a second that the display wrote, and that the least of the viewers saw.
    struct Rates {
        double written;
        double seen;
    };

    HttpClient Look(std::string_view subscription = {}) {
        HttpClient viewer = Client();
        EXPECT_EQ(viewer.Upgrade("/live").status, 101);
        if (!subscription.empty()) viewer.SendMessage(subscription);
        return viewer;
    }

    /// Writes frames as the display does while some read what they get, each on a thread.
    /// @param last  the frame that ends it, unlike all before it
    Rates Measure(int readers, char last) {
        std::vector<int> counts(static_cast<std::size_t>(readers));
        std::vector<std::thread> threads;
        for (int& count : counts)
            threads.emplace_back([&count, last, viewer = Look()]() mutable { count = FramesUntil(last, viewer); });
        const auto start = steady_clock::now();
        for (int i = 0; i < kFrames; ++i) {
            WriteFrame(static_cast<char>(1 + i));
            std::this_thread::sleep_until(start + (i + 1) * kFramePause);
        }
        const std::chrono::duration<double> passed = steady_clock::now() - start;
        WriteFrame(last);
        for (std::thread& thread : threads) thread.join();
        return {kFrames / passed.count(), *std::ranges::min_element(counts) / passed.count()};
    }

    static int FramesUntil(char last, HttpClient& viewer) {
        std::set<char> frames;
        while (!frames.contains(last)) {
            const HttpClient::Message message = viewer.ReadMessage();
            if (message.opcode == -1) return 0;
            if (message.opcode == 2) frames.insert(message.payload.front());
        }
        return static_cast<int>(frames.size()) - 1;
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

TEST_F(Viewers, EightOfWhichTwoStallLeaveEveryRateAsItWas) {
    bool kept = false;
    // A busy moment of the machine spoils one comparison, a viewer that delays the others all.
    for (char last = 100; last < 106 && !kept; last += 2) {
        const Rates alone = Measure(1, last);
        std::array<HttpClient, 2> stalled{Look(), Look()};
        for (HttpClient& viewer : stalled) viewer.Stall();
        const char end = static_cast<char>(last + 1);
        const Rates together = Measure(6, end);
        std::printf("written %.1f, then %.1f a second; seen %.1f, then %.1f\n", alone.written, together.written,
                    alone.seen, together.seen);
        kept = together.written > 0.9 * alone.written && together.seen > 0.9 * alone.seen;
        for (HttpClient& viewer : stalled) EXPECT_LT(FramesUntil(end, viewer), kFrames) << "it did stall";
    }
    EXPECT_TRUE(kept);
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

TEST_F(Viewers, FollowTheCallsOfTheMeter) {
    const std::string path = (m_root / "meter").string();
    m_server.reset();
    Serve(path);
    HttpClient viewer = Look("trace on");
    const FakeMeter meter(path);
    const std::string calls = Until(viewer, "\"call\":2");
    EXPECT_NE(calls.find("{\"call\":1}"), std::string::npos);
    EXPECT_EQ(calls.find("broken"), std::string::npos);
}

TEST_F(Viewers, SeeWhichScreenTheDisplayShows) {
    const auto shows = [this](const nlohmann::json& screen) {
        return Eventually([this, screen] { return State()["screen"] == screen; });
    };
    os::tellShownScreen(os::kNoScreen);
    WriteFrame(1);
    EXPECT_TRUE(shows(nullptr)) << "while the display comes up";
    for (const int screen : {200, 68, -3}) {
        os::tellShownScreen(screen);
        WriteFrame(2);
        EXPECT_TRUE(shows(screen)) << screen;
    }
}

}  // namespace
