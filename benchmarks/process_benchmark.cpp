// What the display costs as a process: its start, its memory, its share of a processor, and how soon it obeys a key.
// Prints a line of JSON for each figure. The board is two files; the meter is the simulator.

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <thread>

#include "benchmarks/processor.h"
#include "simulator/descriptor.h"
#include "simulator/own_folder.h"
#include "simulator/panel/keys.h"
#include "tools/soak/programs.h"

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr int kStarts = 21;
constexpr int kKeys = 100;
constexpr seconds kWatched{10};

void Print(const char* name, double value, const char* unit, double goal) {
    std::cout << nlohmann::json{{"name", name}, {"value", value}, {"unit", unit}, {"goal", goal}} << std::endl;
}

/// A frame buffer that tells when a frame was written, and keys that can be pressed.
class Board {
public:
    Board() {
        std::filesystem::create_directory_symlink(ROMFS_DIR, m_folder / "romfs");
        const auto frame = m_folder / "db9000_fb";
        std::ofstream(frame) << std::string(153'600, '\0');
        mkfifo((m_folder / "buttons").c_str(), 0600);
        m_keys = Descriptor(::open((m_folder / "buttons").c_str(), O_RDWR));
        m_events = Descriptor(inotify_init1(IN_NONBLOCK));
        inotify_add_watch(m_events.Get(), frame.c_str(), IN_CLOSE_WRITE);
    }

    std::string Root() const { return "BOARD_ROOT=" + m_folder.Path().string(); }

    /// Forgets the frames so far.
    void Forget() {
        std::array<char, 4096> events;
        while (::read(m_events.Get(), events.data(), events.size()) > 0) continue;
    }
    /// Waits for a frame. @return when it was there
    std::optional<Clock::time_point> NextFrame(milliseconds within) {
        pollfd events{m_events.Get(), POLLIN, 0};
        if (poll(&events, 1, static_cast<int>(within.count())) != 1) return std::nullopt;
        const auto now = Clock::now();
        Forget();
        return now;
    }
    void Send(panel::Key key, std::int32_t state) {
        const panel::KeyRecord record{static_cast<std::int32_t>(key), state};
        if (::write(m_keys.Get(), &record, sizeof record) != sizeof record) std::exit(1);
    }

private:
    OwnFolder m_folder{"bench-process"};
    Descriptor m_keys;
    Descriptor m_events;
};

std::unique_ptr<Program> StartDisplay(const Board& board) {
    return std::make_unique<Program>(DISPLAY_PROGRAM, std::vector<std::string>{},
                                     std::vector<std::string>{board.Root()});
}

double ResidentMegabytes(const Program& display) {
    std::ifstream status("/proc/" + std::to_string(display.Process()) + "/status");
    for (std::string word; status >> word;) {
        if (word != "VmRSS:") continue;
        double kilobytes = 0;
        status >> kilobytes;
        return kilobytes / 1024;
    }
    return 0;
}

/// Seconds of processor time that all tasks have taken.
double ProcessorTime(const Program& display) {
    constexpr double kNanosecond = 1e-9;
    double sum = 0;
    const auto tasks = "/proc/" + std::to_string(display.Process()) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks)) {
        double running = 0;
        std::ifstream(task.path() / "schedstat") >> running;
        sum += running * kNanosecond;
    }
    return sum;
}

double Percentile(std::vector<double> values, int percent) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() * static_cast<std::size_t>(percent) / 100);
}

void MeasureStart(Board& board) {
    std::vector<double> times;
    double resident = 0;
    for (int i = 0; i < kStarts; ++i) {
        board.Forget();
        const auto start = Clock::now();
        const auto display = StartDisplay(board);
        if (const auto shown = board.NextFrame(seconds(10))) times.push_back(Milliseconds(*shown - start).count());
        resident = ResidentMegabytes(*display);
    }
    Print("process start until the splash is on the device", Percentile(times, 50), "ms", 5);
    Print("resident memory at the splash", resident, "MB", 8);
}

/// Presses a key that changes the screen. @return how long its release took to reach the device
std::optional<double> MeasureKey(Board& board) {
    board.Send(panel::Key::Home, 0);
    std::this_thread::sleep_for(milliseconds(60));
    board.Forget();
    const auto start = Clock::now();
    board.Send(panel::Key::Home, 1);
    const auto shown = board.NextFrame(seconds(1));
    if (!shown) return std::nullopt;
    return Milliseconds(*shown - start).count();
}

bool MeasureLive(Board& board) {
    const Program meter(METER_PROGRAM, {"--seed", "1"});
    const auto display = StartDisplay(board);
    if (!Eventually([&] { return display->Printed("Starting Display Server"); })) return false;
    std::this_thread::sleep_for(seconds(2));
    const double before = ProcessorTime(*display);
    std::this_thread::sleep_for(kWatched);
    const double share = (ProcessorTime(*display) - before) / std::chrono::duration<double>(kWatched).count();
    Print("processor time on a live screen", 100 * share, "%", 0.2);
    std::vector<double> keys;
    while (keys.size() < kKeys) {
        const auto time = MeasureKey(board);
        if (!time) return false;
        keys.push_back(*time);
    }
    Print("key until the changed frame is on the device, median", Percentile(keys, 50), "ms", 3);
    Print("key until the changed frame is on the device, 99th of 100", Percentile(keys, 99), "ms", 3);
    Print("resident memory with all screens", ResidentMegabytes(*display), "MB", 8);
    return true;
}

}  // namespace

int main() {
    if (!EnterOwnNetwork()) {
        std::cerr << "bench-process: no network namespace can be made here\n";
        return 1;
    }
    bench::StayOnOneProcessor();
    Board board;
    MeasureStart(board);
    if (MeasureLive(board)) return 0;
    std::cerr << "bench-process: the display did not come up\n";
    return 1;
}
