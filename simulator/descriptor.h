#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

/// Owns a file descriptor.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~Descriptor() { Close(); }

    void Close() {
        if (m_descriptor >= 0) ::close(m_descriptor);
        m_descriptor = -1;
    }

    int Get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }

private:
    int m_descriptor = -1;
};

/// Reports why the last system call failed. @param what  what it was to do, "open /tmp/board/buttons"
[[noreturn]] inline void ThrowSystemError(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

/// Takes what a system call opened. @throws std::system_error when it opened nothing
inline Descriptor Opened(int descriptor, const std::string& what) {
    if (descriptor < 0) ThrowSystemError(what);
    return Descriptor(descriptor);
}
