#include "platform/device.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "platform/shown_screen.h"
#include "simulator/own_folder.h"

namespace {

namespace fs = std::filesystem;

/// A board under a directory of its own.
class Board : public testing::Test {
protected:
    void WriteFile(const std::string& name, const std::string& text) { std::ofstream(m_root / name) << text; }

    const OwnBoard m_root{"board"};
};

std::string ReadAll(int descriptor) {
    std::array<char, 100> bytes{};
    const ssize_t count = os::read(descriptor, bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(count < 0 ? 0 : count)};
}

TEST_F(Board, FindsItsFilesUnderTheBoardRoot) {
    fs::create_directory(m_root / "romfs");
    WriteFile("romfs/resources.pbr", "0123456789");
    const int file = os::open("/romfs/resources.pbr", os::kReadOnly);
    ASSERT_GE(file, 0);
    EXPECT_EQ(os::seek(file, 4), 4);
    EXPECT_EQ(ReadAll(file), "456789");
    EXPECT_EQ(os::close(file), 0);
    EXPECT_EQ(os::open("/romfs/nothing", os::kReadOnly), -1);

    for (const char* root : {"", static_cast<const char*>(nullptr)}) {
        root != nullptr ? setenv("BOARD_ROOT", root, 1) : unsetenv("BOARD_ROOT");
        const int asItIs = os::open((m_root / "romfs/resources.pbr").c_str(), os::kReadOnly);
        EXPECT_GE(asItIs, 0);
        os::close(asItIs);
    }
}

TEST_F(Board, WritesAFrameOverTheOldOneAndCreatesNothing) {
    EXPECT_EQ(os::open("/db9000_fb", os::kReadWrite), -1);
    EXPECT_FALSE(fs::exists(m_root / "db9000_fb"));
    WriteFile("db9000_fb", "old frame");
    const int frame = os::open("/db9000_fb", os::kReadWrite);
    ASSERT_GE(frame, 0);
    EXPECT_EQ(os::write(frame, "new", 3), 3);
    os::close(frame);
    const int again = os::open("/db9000_fb", os::kReadWrite);
    EXPECT_EQ(ReadAll(again), "new frame");
    os::close(again);
}

TEST_F(Board, KeysWaitForAWriterAndComeThroughTheFifo) {
    ASSERT_EQ(mkfifo((m_root / "buttons").c_str(), 0600), 0);
    const int alone = os::open("/buttons", os::kReadOnly);
    ASSERT_GE(alone, 0) << "opening must not wait for a writer";
    fd_set readable;
    const auto isReadable = [&readable](int fifo) {
        FD_ZERO(&readable);
        FD_SET(fifo, &readable);
        timeval soon{0, 20'000};
        return os::select(fifo + 1, &readable, &soon);
    };
    EXPECT_EQ(isReadable(alone), 0);
    EXPECT_EQ(ReadAll(alone), "") << "with no writer a read ends at once";

    const int board = ::open((m_root / "buttons").c_str(), O_RDWR);
    ASSERT_EQ(::write(board, "8 bytes!", 8), 8);
    EXPECT_EQ(isReadable(alone), 1);
    EXPECT_EQ(ReadAll(alone), "8 bytes!");
    const std::jthread lateKey([board] {
        ::usleep(30'000);
        EXPECT_EQ(::write(board, "late key", 8), 8);
    });
    EXPECT_EQ(ReadAll(alone), "late key") << "with a writer a read waits";
    os::close(alone);
    ::close(board);
}

TEST_F(Board, ControlsADeviceThatAnotherProcessPlaysUntilThatIsGone) {
    const fs::path deep = m_root / std::string(90, 'd');  // longer than a socket address may be
    fs::create_directory(deep);
    fs::current_path(deep);
    setenv("BOARD_ROOT", deep.c_str(), 1);
    const int listener = ::socket(AF_UNIX, SOCK_SEQPACKET, 0);
    const sockaddr_un address{AF_UNIX, "db9000_bl"};
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 1), 0);
    using Packet = std::array<std::int32_t, 2>;
    Packet packet{};
    std::thread player([&] {
        const int display = ::accept(listener, nullptr, nullptr);
        for (int answers = 2; ::recv(display, packet.data(), sizeof packet, 0) == sizeof packet; --answers) {
            const std::int32_t result = packet[1] + 1;
            if (answers > 0) ::send(display, &result, sizeof result, 0);
        }
        ::close(display);
        ::close(listener);
    });
    const int backlight = os::open("/db9000_bl", os::kReadWrite);
    EXPECT_EQ(os::ioctl(backlight, 0x20047A2D, 63), 64);
    EXPECT_EQ(packet, (Packet{0x20047A2D, 63}));
    EXPECT_EQ(os::ioctl(backlight, 0x20047A36, -2), -1) << "results are signed";
    EXPECT_EQ(os::ioctl(backlight, 0x20047A36, 0), -1) << "a device that does not answer is given up";
    EXPECT_EQ(::send(backlight, "?", 1, 0), 1) << "the player ends on what is no request";
    player.join();
    EXPECT_EQ(os::ioctl(backlight, 0x20047A20, 1), -1);
    os::close(backlight);
    EXPECT_EQ(os::ioctl(backlight, 0x20047A20, 1), -1);
    EXPECT_EQ(os::open("/db9000_bl", os::kReadWrite), -1) << "the socket file is there, its owner is gone";
}

TEST_F(Board, HasNoDeviceInAFileOrWhereAPathIsTooLong) {
    WriteFile("plain", "");
    const int plain = os::open("/plain", os::kReadWrite);
    EXPECT_EQ(os::ioctl(plain, 0x20047A20, 1), -1);
    os::close(plain);
    setenv("BOARD_ROOT", std::string(5000, 'x').c_str(), 1);
    EXPECT_EQ(os::open("/plain", os::kReadWrite), -1) << "a path longer than the host's";
}

TEST_F(Board, IsToldTheShownScreenWhereSomebodyWantsToKnow) {
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    os::tellShownScreen(68);
    EXPECT_FALSE(fs::exists(m_root / "screen"));
    WriteFile("screen", "");
    const auto before = openFiles();
    os::tellShownScreen(68);
    EXPECT_EQ(openFiles(), before);
    const int screen = os::open("/screen", os::kReadOnly);
    EXPECT_EQ(ReadAll(screen), std::string("\104\0\0\0", 4));
    os::close(screen);
}

}  // namespace
