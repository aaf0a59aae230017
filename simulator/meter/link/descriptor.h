#pragma once

#include <unistd.h>

#include <utility>

namespace meter {

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

}  // namespace meter
