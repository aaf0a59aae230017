#pragma once

#include <sys/select.h>
#include <sys/types.h>

#include <cstddef>

/// Files and device files, named by the absolute path they have on the board.
namespace os {

inline constexpr int kReadOnly = 0;
inline constexpr int kReadWrite = 2;

/// Opens a file or device that exists. @return a descriptor, or -1
[[nodiscard]] int open(const char* path, int mode);
[[nodiscard]] ssize_t read(int descriptor, void* buffer, std::size_t bytes);
[[nodiscard]] ssize_t write(int descriptor, const void* buffer, std::size_t bytes);

/// Sends a control request to a device driver. @return the driver's result, or -1
int ioctl(int descriptor, int request, int argument);

/// Moves the read position by `offset` bytes from where it is. @return the new position, or -1
off_t seek(int descriptor, off_t offset);

/// Waits until a descriptor of the set is readable; no `timeout` waits for ever.
/// @return the number of ready descriptors, 0 when the time is over, -1 on an error
[[nodiscard]] int select(int width, fd_set* readable, timeval* timeout);

int close(int descriptor);

}  // namespace os
