#include "rda/meter_call.h"

#include <cstring>

#include "platform/wipe.h"
#include "rda/client.h"

MeterCall::MeterCall(const char* name) : m_name(name), m_buffer(rdaTaskBuffer()) {}

MeterCall::~MeterCall() {
    if (m_buffer != nullptr) Wipe(std::span(m_buffer, m_size));
}

MeterCall& MeterCall::With(std::uint32_t value) {
    WireU32 field{};
    field.Set(value);
    Append(field.bytes.data(), field.bytes.size());
    return *this;
}

MeterCall& MeterCall::With(float value) {
    WireF32 field{};
    field.Set(value);
    Append(field.bytes.data(), field.bytes.size());
    return *this;
}

MeterCall& MeterCall::With(const char* text) {
    Append(text, std::strlen(text) + 1);
    return *this;
}

int MeterCall::Into(std::uint32_t& value) {
    WireU32 reply{};
    reply.Set(value);
    const int result = Into(reply);
    value = reply.Get();
    return result;
}

void MeterCall::Append(const void* bytes, std::size_t count) {
    m_fits &= count <= kRdaTaskBufferBytes - m_size;
    if (m_buffer == nullptr || !m_fits) return;
    std::memcpy(m_buffer + m_size, bytes, count);
    m_size += count;
}

int MeterCall::Exchange(std::span<std::byte> reply) {
    if (m_buffer == nullptr || !m_fits) return -1;
    const int done = RdaClient::instance().call(m_name, static_cast<std::uint32_t>(m_size), m_buffer,
                                                static_cast<std::uint32_t>(reply.size()),
                                                reinterpret_cast<std::uint8_t*>(reply.data()));
    return done == 1 ? 0 : -1;
}
