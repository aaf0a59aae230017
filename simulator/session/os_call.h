#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace session {

/// A call of the display to its operating system that may fail.
enum class OsCall : std::uint8_t {
    Open,
    Read,
    Write,
    Control,
    Seek,
    Select,
    Socket,
    Bind,
    Listen,
    Accept,
    SetOption,
    Connect,
    Send,
    Receive,
    CreateQueue,
    SendMessage,
    ReceiveMessage,
    CreateTask,
    ActivateTask,
    CreateMutex,
    CreateTimer,
    SetTimer,
    SetSignal,
    Allocate  // without the right to fail loudly
};

inline constexpr auto kOsCallNames = std::to_array<std::string_view>(
    {"open",         "read",       "write",        "ioctl",         "seek",        "select",
     "socket",       "bind",       "listen",       "accept",        "setsockopt",  "connect",
     "send",         "recv",       "msgQCreate",   "msgQSend",      "msgQReceive", "taskCreate",
     "taskActivate", "semMCreate", "timer_create", "timer_settime", "sigaction",   "new"});
static_assert(kOsCallNames.size() == static_cast<std::size_t>(OsCall::Allocate) + 1);

constexpr std::string_view NameOf(OsCall call) { return kOsCallNames[static_cast<std::size_t>(call)]; }

}  // namespace session
