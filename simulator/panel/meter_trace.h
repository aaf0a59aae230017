#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

#include "simulator/descriptor.h"
#include "simulator/panel/feed.h"

namespace panel {

/// The calls of the display as the simulated meter reports them, as long as somebody watches. A thread of its own
/// reads them.
class MeterTrace {
public:
    /// @param path  the control socket of the meter, which may come and go
    /// @param news  called on the thread of this when there are calls
    MeterTrace(std::string path, std::function<void()> news);
    ~MeterTrace();
    MeterTrace(const MeterTrace&) = delete;
    MeterTrace& operator=(const MeterTrace&) = delete;

    void Watch(bool watched);

    /// One JSON object a call, as the meter gave it.
    const Feed& Calls() const { return m_calls; }

private:
    static constexpr std::size_t kCalls = 1000;

    void Run();
    void Follow(const Descriptor& meter);
    bool TakeLine(std::string_view line);
    bool Pause(int socket, int milliseconds) const;

    std::string m_path;
    std::function<void()> m_news;
    Feed m_calls{kCalls};
    Descriptor m_wake;                    // an event: something of the following two changed
    std::atomic<bool> m_watched = false;  // written by the thread of the owner, as is m_stop
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

}  // namespace panel
