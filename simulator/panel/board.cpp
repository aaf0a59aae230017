#include "simulator/panel/board.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>

namespace panel {
namespace {

namespace fs = std::filesystem;

constexpr int kKeyQueueBytes = 4096;  // 512 records; the smallest that a FIFO can hold
constexpr std::chrono::seconds kRecentUse{5};

/// An output line by its port and the bit that drives it.
struct LineRow {
    std::size_t port;
    std::uint32_t mask;
};
constexpr auto kLines = std::to_array<LineRow>({{0, 0x10}, {0, 0x08}, {1, 0x08}});

Descriptor LockedFolder(const fs::path& path) {
    fs::create_directories(path / "rasGpio1");
    Descriptor folder = Opened(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), "open " + path.string());
    if (::flock(folder.Get(), LOCK_EX | LOCK_NB) != 0) ThrowSystemError("play the board " + path.string());
    return folder;
}

/// Keeps the picture of an earlier run when it is a whole one.
Descriptor OpenFrameBuffer(const Descriptor& folder) {
    Descriptor file = Opened(::openat(folder.Get(), "db9000_fb", O_RDWR | O_CREAT | O_CLOEXEC, 0600), "open db9000_fb");
    struct stat status {};
    if (::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
        throw std::system_error(EINVAL, std::generic_category(), "db9000_fb is no regular file");
    if (status.st_size != off_t{kFrameBytes} &&
        (::ftruncate(file.Get(), 0) != 0 || ::ftruncate(file.Get(), off_t{kFrameBytes}) != 0))
        ThrowSystemError("size db9000_fb");
    // Closing a descriptor that can write would count as a frame.
    return Opened(::openat(folder.Get(), "db9000_fb", O_RDONLY | O_CLOEXEC), "open db9000_fb");
}

/// Open in both directions, so that the records stay while the display has the keys closed.
Descriptor OpenKeys(const Descriptor& folder) {
    if (::mkfifoat(folder.Get(), "buttons", 0600) != 0 && errno != EEXIST) ThrowSystemError("make buttons");
    Descriptor keys = Opened(::openat(folder.Get(), "buttons", O_RDWR | O_NONBLOCK | O_CLOEXEC), "open buttons");
    struct stat status {};
    if (::fstat(keys.Get(), &status) != 0 || !S_ISFIFO(status.st_mode))
        throw std::system_error(EINVAL, std::generic_category(), "buttons is no FIFO");
    ::fcntl(keys.Get(), F_SETPIPE_SZ, kKeyQueueBytes);
    return keys;
}

/// Where the display says which screen it shows; what one that runs already said stays.
Descriptor OpenScreen(const Descriptor& folder) {
    return Opened(::openat(folder.Get(), "screen", O_RDONLY | O_CREAT | O_CLOEXEC, 0600), "open screen");
}

std::int32_t ReadScreen(const Descriptor& file) {
    std::int32_t screen = kNoScreen;
    return ::pread(file.Get(), &screen, sizeof screen, 0) == sizeof screen ? screen : kNoScreen;
}

std::shared_ptr<const Frame> ReadFrame(const Descriptor& frameBuffer) {
    auto frame = std::make_shared<Frame>();
    const ssize_t size = ::pread(frameBuffer.Get(), frame->data(), frame->size(), 0);
    return size == ssize_t{kFrameBytes} ? frame : nullptr;
}

}  // namespace

Board::Board(const fs::path& folder)
    : m_path(folder),
      m_folder(LockedFolder(folder)),
      m_frameBuffer(OpenFrameBuffer(m_folder)),
      m_screenFile(OpenScreen(m_folder)),
      m_keys(OpenKeys(m_folder)),
      m_stop(Opened(::eventfd(0, EFD_CLOEXEC), "make an event")),
      m_activity(folder / "db9000_fb", folder / "buttons"),
      m_ports{{{.high = 0}, {.high = kLines[2].mask}}},  // the alarm lamp is dark at power-on
      m_frame(ReadFrame(m_frameBuffer)),
      m_devices{Device("db9000_bl", [this](auto request, auto level) { return m_backlight.Control(request, level); }),
                Device("rasGpio1/0", [this](auto request, auto mask) { return m_ports[0].Control(request, mask); }),
                Device("rasGpio1/1", [this](auto request, auto mask) { return m_ports[1].Control(request, mask); })} {
    if (m_frame == nullptr) ThrowSystemError("read db9000_fb");
    m_thread = std::thread([this] { Run(); });
}

Board::~Board() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(m_stop.Get(), &one, sizeof one);
    m_thread.join();
}

void Board::OnChange(std::function<void()> changed) {
    const std::lock_guard lock(m_changedMutex);
    m_changed = std::move(changed);
}

BoardState Board::State() const {
    const std::lock_guard lock(m_mutex);
    BoardState state{.frames = m_frames, .backlight = m_backlight, .screen = m_screen};
    std::ranges::transform(kLines, state.lineHigh.begin(),
                           [this](const LineRow& line) { return (m_ports[line.port].high & line.mask) != 0; });
    state.displayUp = m_keysOpen || (m_lastUse != Clock::time_point{} && Clock::now() - m_lastUse < kRecentUse);
    return state;
}

std::shared_ptr<const Frame> Board::NewestFrame() const {
    const std::lock_guard lock(m_mutex);
    return m_frame;
}

bool Board::Send(KeyRecord record) {
    // The system never splits so short a record.
    return ::write(m_keys.Get(), &record, sizeof record) == sizeof record;
}

void Board::Run() {
    for (;;) {
        std::vector<pollfd> polled{{m_stop.Get(), POLLIN, 0}, {m_activity.Get(), POLLIN, 0}};
        for (const DeviceSocket& device : m_devices) device.Watch(polled);
        if (::poll(polled.data(), polled.size(), FrameWaits() ? 0 : -1) < 0) continue;
        if (polled[0].revents != 0) return;
        m_activity.Read();
        for (DeviceSocket& device : m_devices) device.Serve();
        TakeFrame();
        const std::lock_guard lock(m_changedMutex);
        if (m_changed) m_changed();
    }
}

/// Whether there is a frame to take that nobody is writing over.
bool Board::FrameWaits() const { return m_activity.Frames() != m_framesTaken && !m_activity.FrameBufferOpen(); }

/// Reads the frame that was written last. When the display began to write the next one meanwhile, what was read is no
/// frame: the system tells of an opening before anybody can write.
void Board::TakeFrame() {
    std::shared_ptr<const Frame> frame;
    if (FrameWaits()) {
        const std::uint64_t frames = m_activity.Frames();
        frame = ReadFrame(m_frameBuffer);
        m_activity.Read();
        if (m_activity.FrameBufferOpen() || m_activity.Frames() != frames) frame = nullptr;
        if (frame != nullptr) m_framesTaken = frames;
    }
    const std::lock_guard lock(m_mutex);
    if (m_frames != m_activity.Frames()) m_lastUse = Clock::now();
    m_frames = m_activity.Frames();
    m_keysOpen = m_activity.KeysOpen();
    m_screen = ReadScreen(m_screenFile);
    if (frame != nullptr) m_frame = std::move(frame);
}

/// A device that counts as use of the board when the display sends it a request.
DeviceSocket Board::Device(const char* name, DeviceSocket::Control control) {
    return {m_folder.Get(), name, [this, control = std::move(control)](std::uint32_t request, std::int32_t argument) {
                const std::lock_guard lock(m_mutex);
                m_lastUse = Clock::now();
                return control(request, argument);
            }};
}

}  // namespace panel
