#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "rda/wire.h"

/// One call to the meter while it is put together: the payload piece by piece, then what the reply goes into.
///
/// The payload grows in the calling task's buffer. Where that is missing or full, the call fails with -1 and the meter
/// hears nothing. Nothing of a payload stays in the buffer, for it may be a password. Used in one expression:
/// `MeterCall("NAME").With(id).Into(record)`.
class MeterCall {
public:
    explicit MeterCall(const char* name);
    MeterCall(const MeterCall&) = delete;
    MeterCall& operator=(const MeterCall&) = delete;
    ~MeterCall();

    MeterCall& With(std::uint32_t value);
    MeterCall& With(float value);
    MeterCall& With(const char* text);  // sent with its terminator

    /// Sends the request; there is no reply. @return 0 or -1
    [[nodiscard]] int Send() { return Exchange({}); }

    /// Sends the request and fills a number with the reply. @return 0 or -1
    [[nodiscard]] int Into(std::uint32_t& value);

    /// Sends the request and fills a record with the reply. @return 0 or -1
    template <typename Record>
    [[nodiscard]] int Into(Record& record) {
        return Into(std::span<Record>(&record, 1));
    }

    /// Sends the request and fills records, or characters, with the reply. @return 0 or -1
    template <typename Record>
    [[nodiscard]] int Into(std::span<Record> records) {
        static_assert(kIsWireRecord<Record>);
        return Exchange(std::as_writable_bytes(records));
    }

private:
    void Append(const void* bytes, std::size_t count);
    [[nodiscard]] int Exchange(std::span<std::byte> reply);

    const char* m_name;
    std::uint8_t* const m_buffer;  // the task's, or null
    std::size_t m_size = 0;
    bool m_fits = true;
};
