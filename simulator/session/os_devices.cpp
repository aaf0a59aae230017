#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/device.h"
#include "platform/shown_screen.h"
#include "platform/task.h"
#include "simulator/session/descriptors.h"
#include "simulator/session/world.h"

// Files and devices of the display in a session: /romfs are files of the host, the rest is the session's world.

namespace os {
namespace {

using namespace session;

constexpr std::string_view kRomfs = "/romfs/";
constexpr auto kControlled = std::to_array<std::string_view>({"/db9000_bl", "/rasGpio1/0", "/rasGpio1/1"});
constexpr Instant kMicrosecondsPerTick = 1000;

}  // namespace

int open(const char* path, int mode) {
    const std::string_view name(path);
    if (IsRefused(OsCall::Open, name)) return -1;
    Descriptors& descriptors = Descriptors::Instance();
    if (name.starts_with(kRomfs))
        return ::open((TheWorld().Romfs() / name.substr(kRomfs.size())).c_str(), mode | O_CLOEXEC);
    if (name == "/buttons") return descriptors.Add(descriptors.Keys());
    if (name == "/db9000_fb") return descriptors.Add(std::make_shared<Endpoint>(Endpoint{.role = Role::FrameBuffer}));
    for (const std::string_view device : kControlled)
        if (name == device)
            return descriptors.Add(
                std::make_shared<Endpoint>(Endpoint{.role = Role::Device, .device = std::string(device)}));
    errno = ENOENT;
    return -1;
}

ssize_t read(int descriptor, void* buffer, std::size_t bytes) {
    if (IsRefused(OsCall::Read)) return -1;
    const auto endpoint = Descriptors::Instance().Find(descriptor);
    return endpoint != nullptr ? ReadFrom(*endpoint, buffer, bytes) : ::read(descriptor, buffer, bytes);
}

ssize_t write(int descriptor, const void* buffer, std::size_t bytes) {
    if (IsRefused(OsCall::Write)) return -1;
    const auto endpoint = Descriptors::Instance().Find(descriptor);
    if (endpoint == nullptr || endpoint->role != Role::FrameBuffer) return -1;
    TheWorld().TakeFrame({static_cast<const std::byte*>(buffer), bytes});
    return static_cast<ssize_t>(bytes);
}

int ioctl(int descriptor, int request, int argument) {
    if (IsRefused(OsCall::Control)) return -1;
    const auto endpoint = Descriptors::Instance().Find(descriptor);
    if (endpoint == nullptr || endpoint->role != Role::Device) return -1;
    return TheWorld().Control(endpoint->device, static_cast<std::uint32_t>(request), argument);
}

off_t seek(int descriptor, off_t offset) {
    return IsRefused(OsCall::Seek) ? -1 : ::lseek(descriptor, offset, SEEK_CUR);
}

int select(int width, fd_set* readable, timeval* timeout) {
    if (IsRefused(OsCall::Select)) return -1;
    Scheduler& scheduler = Scheduler::Instance();
    std::vector<std::pair<int, std::shared_ptr<Endpoint>>> watched;
    for (int i = 0; i < width; ++i)
        if (FD_ISSET(i, readable))
            if (auto endpoint = Descriptors::Instance().Find(i)) watched.emplace_back(i, std::move(endpoint));
    const auto isReady = [&] {
        return std::ranges::any_of(watched, [&](const auto& one) { return one.second->IsReadable(scheduler.Now()); });
    };
    Instant deadline = kNever;
    if (timeout != nullptr)
        deadline = scheduler.Now() + timeout->tv_sec * sysClkRateGet() + timeout->tv_usec / kMicrosecondsPerTick;
    for (;;) {
        Instant until = deadline;
        for (const auto& one : watched) until = std::min(until, one.second->NextDue());
        if (scheduler.Wait(isReady, until) || scheduler.Now() >= deadline) break;
    }
    FD_ZERO(readable);
    int count = 0;
    for (const auto& [descriptor, endpoint] : watched) {
        if (!endpoint->IsReadable(scheduler.Now())) continue;
        FD_SET(descriptor, readable);
        ++count;
    }
    return count;
}

void tellShownScreen(std::int32_t id) { TheWorld().TellShownScreen(id); }

int close(int descriptor) { return Descriptors::Instance().Close(descriptor); }

}  // namespace os
