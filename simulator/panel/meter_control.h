#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace panel {

/// Talks to the control socket of the simulated meter: one line there, one line back. A thread of its own does, since
/// the simulator may be busy; it also asks for the simulator's state once a second.
class MeterControl {
public:
    struct Answer {
        std::uint64_t number;  // what Ask gave
        std::string question;
        std::optional<std::string> line;  // nothing when the simulator did not answer
    };

    /// @param path  a Unix-domain socket, which may come and go
    /// @param news  called on the thread of this when there is an answer or another state
    MeterControl(std::string path, std::function<void()> news);
    ~MeterControl();
    MeterControl(const MeterControl&) = delete;
    MeterControl& operator=(const MeterControl&) = delete;

    /// Has one line put to the simulator; returns at once.
    /// @return the number that the answer will carry; nothing when too many lines wait already
    std::optional<std::uint64_t> Ask(std::string line);

    std::vector<Answer> TakeAnswers();

    /// The simulator's state, a JSON object; empty while it does not answer.
    std::string State() const;

private:
    void Run();

    std::string m_path;
    std::function<void()> m_news;

    mutable std::mutex m_mutex;  // guards what follows, up to the thread
    std::condition_variable m_wake;
    std::deque<std::pair<std::uint64_t, std::string>> m_questions;
    std::vector<Answer> m_answers;
    std::string m_state;
    std::uint64_t m_lastNumber = 0;
    bool m_stop = false;
    std::thread m_thread;
};

}  // namespace panel
