#include "simulator/panel/board.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <fstream>
#include <latch>
#include <thread>
#include <vector>

#include "platform/device.h"
#include "tests/simulator/panel/emulated_board.h"

namespace {

namespace fs = std::filesystem;
using panel::kFrameBytes;

/// Writes a frame of one value as the display does, with a rest in the middle of it.
void WriteFrame(std::uint8_t value, std::chrono::microseconds rest = {}) {
    const std::vector<std::uint8_t> half(kFrameBytes / 2, value);
    const int device = os::open("/db9000_fb", os::kReadWrite);
    EXPECT_EQ(os::write(device, half.data(), half.size()), std::ssize(half));
    std::this_thread::sleep_for(rest);
    EXPECT_EQ(os::write(device, half.data(), half.size()), std::ssize(half));
    os::close(device);
}

int Request(const char* device, int request, int argument) {
    const int descriptor = os::open(device, os::kReadWrite);
    EXPECT_GE(descriptor, 0) << device;
    const int result = os::ioctl(descriptor, request, argument);
    os::close(descriptor);
    return result;
}

TEST_F(EmulatedBoard, CountsEveryFrameAndShowsTheNewest) {
    constexpr unsigned kBursts = 50;
    constexpr unsigned kFrames = 5;
    for (unsigned burst = 1; burst <= kBursts; ++burst) {
        for (unsigned frame = 1; frame <= kFrames; ++frame)
            WriteFrame(static_cast<std::uint8_t>(burst * kFrames + frame));
        const auto newest = static_cast<std::uint8_t>(burst * kFrames + kFrames);
        ASSERT_TRUE(Eventually([&] { return m_board->NewestFrame()->front() == newest; })) << burst;
        ASSERT_EQ(m_board->State().frames, burst * kFrames);
    }
    EXPECT_TRUE(m_board->State().displayUp);
}

TEST_F(EmulatedBoard, NeverShowsHalfAFrame) {
    std::atomic<bool> stop = false;
    std::thread display([&stop] {
        for (std::uint8_t value = 1; !stop; ++value) {
            WriteFrame(value, std::chrono::microseconds(100));
            // Rests of all lengths, so that the next frame begins at every moment of the reading.
            const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(value);
            while (std::chrono::steady_clock::now() < end) std::this_thread::yield();
        }
    });
    std::shared_ptr<const panel::Frame> last;
    int seen = 0;
    EXPECT_TRUE(Eventually([&] {
        const auto frame = m_board->NewestFrame();
        if (frame != last) ++seen;
        last = frame;
        if (std::ranges::adjacent_find(*frame, std::ranges::not_equal_to()) == frame->end()) return seen >= 250;
        ADD_FAILURE() << "two frames in one after " << seen;
        return true;
    })) << seen;
    stop = true;
    display.join();
}

TEST_F(EmulatedBoard, LosesNoKeyBetweenTwoOpenings) {
    constexpr int kCount = 2000;
    std::thread fingers([this] {
        for (int i = 0; i < kCount; ++i)
            while (!m_board->Send({i, i % 2})) std::this_thread::yield();
    });
    for (int i = 0; i < kCount; ++i) {
        const auto low = static_cast<std::uint8_t>(i);
        const auto high = static_cast<std::uint8_t>(i >> 8);
        const auto state = static_cast<std::uint8_t>(i % 2);
        std::array<std::uint8_t, 8> record{};
        const int keys = os::open("/buttons", os::kReadOnly);  // for each record, as the display does
        ASSERT_EQ(os::read(keys, record.data(), record.size()), 8);
        os::close(keys);
        ASSERT_EQ(record, (std::array<std::uint8_t, 8>{low, high, 0, 0, state, 0, 0, 0}));
    }
    fingers.join();
}

TEST_F(EmulatedBoard, SaysWhenNobodyReadsTheKeys) {
    int sent = 0;
    while (sent < 100'000 && m_board->Send({1, 0})) ++sent;
    EXPECT_EQ(sent, 512);
}

TEST_F(EmulatedBoard, RefusesRequestsThatItsDevicesDoNotHaveAndEndsNoOtherConnection) {
    const int good = os::open("/db9000_bl", os::kReadWrite);
    for (const std::size_t size : {1U, 7U, 9U, 64U}) {
        const int bad = os::open("/db9000_bl", os::kReadWrite);
        const std::array<char, 64> packet{};
        ASSERT_EQ(os::write(bad, packet.data(), size), static_cast<ssize_t>(size));
        std::int32_t result = 0;
        EXPECT_EQ(os::read(bad, &result, sizeof result), 0) << size;
        os::close(bad);
    }
    for (const int level : {-1, 256}) EXPECT_EQ(os::ioctl(good, 0x20047A2D, level), -1);
    EXPECT_EQ(os::ioctl(good, 0x20047A27, 1), -1) << "not a request of this device";
    EXPECT_EQ(Request("/rasGpio1/1", 0x20047A20, 1), -1);
    EXPECT_EQ(os::ioctl(good, 0x20047A36, 0), 255);
    os::close(good);
}

TEST_F(EmulatedBoard, WaitsForTheWriterThatFollowsAFrameAtOnce) {
    // The board's thread stands still until a frame and half of the next are there.
    std::atomic<bool> standing = false;
    std::latch goOn(1);
    m_board->OnChange([&] {
        standing = true;
        goOn.wait();
    });
    Request("/db9000_bl", 0x20047A36, 0);
    ASSERT_TRUE(Eventually([&] { return standing.load(); }));
    WriteFrame(1);
    const std::vector<std::uint8_t> half(kFrameBytes / 2, 2);
    const int device = os::open("/db9000_fb", os::kReadWrite);
    ASSERT_EQ(os::write(device, half.data(), half.size()), ssize_t{kFrameBytes / 2});
    goOn.count_down();
    EXPECT_TRUE(Eventually([this] { return m_board->State().frames == 1; }));
    EXPECT_EQ(m_board->NewestFrame()->front(), 0) << "the first frame is gone, the second is not whole";
    ASSERT_EQ(os::write(device, half.data(), half.size()), ssize_t{kFrameBytes / 2});
    os::close(device);
    EXPECT_TRUE(Eventually([this] { return m_board->NewestFrame()->front() == 2; }));
    EXPECT_EQ(m_board->State().frames, 2U);
    m_board->OnChange({});
}

TEST_F(EmulatedBoard, SeesThatTheDisplayWaitsForKeysAndThatItLeft) {
    const int keys = os::open("/buttons", os::kReadOnly);
    EXPECT_TRUE(Eventually([this] { return m_board->State().displayUp; }));
    os::close(keys);
    EXPECT_TRUE(Eventually([this] { return !m_board->State().displayUp; }));
}

TEST_F(EmulatedBoard, TakesOverWhatAnEarlierRunLeftAndRefusesWhatIsNoBoard) {
    WriteFrame(9);
    m_board.reset();
    // A run that was killed leaves its sockets.
    const fs::path stale = m_root / "db9000_bl";
    ASSERT_EQ(::mknod(stale.c_str(), S_IFSOCK | 0600, 0), 0);
    m_board.emplace(m_root);
    EXPECT_EQ(m_board->NewestFrame()->back(), 9) << "the picture stays on the glass";
    EXPECT_EQ(Request("/db9000_bl", 0x20047A36, 0), 255);
    EXPECT_THROW(panel::Board{m_root}, std::system_error) << "a board is played by one";
    m_board.reset();
    fs::resize_file(m_root / "db9000_fb", 10);
    m_board.emplace(m_root);
    EXPECT_EQ(fs::file_size(m_root / "db9000_fb"), kFrameBytes);
    m_board.reset();
    fs::remove(m_root / "buttons");
    std::ofstream(m_root / "buttons") << "no keys";
    EXPECT_THROW(panel::Board{m_root}, std::system_error);
}

TEST_F(EmulatedBoard, LiesInAFolderOfAnyDepth) {
    fs::path deep = m_root;
    for (int i = 0; i < 10; ++i) deep /= "a-folder-with-a-long-name";
    const panel::Board other(deep);
    setenv("BOARD_ROOT", deep.c_str(), 1);
    EXPECT_EQ(Request("/rasGpio1/1", 0x20047A28, 0x08), 0);
    EXPECT_TRUE(other.State().AlarmLamp());
}

}  // namespace
