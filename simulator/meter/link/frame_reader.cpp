#include "simulator/meter/link/frame_reader.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "rda/frame.h"
#include "rda/wire.h"

namespace meter {
namespace {

constexpr std::size_t kWord = sizeof(std::uint32_t);

/// Steps through bytes that may end anywhere.
class Cursor {
public:
    explicit Cursor(std::span<const std::byte> bytes) : m_rest(bytes) {}

    std::optional<std::uint32_t> Word() {
        const auto bytes = Bytes(kWord);
        if (!bytes) return std::nullopt;
        WireU32 word{};
        std::memcpy(&word, bytes->data(), kWord);
        return word.Get();
    }
    std::optional<std::span<const std::byte>> Bytes(std::size_t count) {
        if (m_rest.size() < count) return std::nullopt;
        const auto taken = m_rest.first(count);
        m_rest = m_rest.subspan(count);
        return taken;
    }
    std::size_t Left() const { return m_rest.size(); }

private:
    std::span<const std::byte> m_rest;
};

}  // namespace

FrameReader::Result FrameReader::Next(Frame& frame) {
    Cursor cursor(m_bytes);
    const auto magic = cursor.Word();
    if (!magic) return Result::NeedMore;
    if (*magic != rda::kMagic) return Result::Broken;

    const auto nameSize = cursor.Word();
    if (!nameSize) return Result::NeedMore;
    if (*nameSize < 1 || *nameSize > kMaxName) return Result::Broken;
    const auto name = cursor.Bytes(*nameSize);
    if (!name) return Result::NeedMore;
    if (std::ranges::find(*name, std::byte{0}) != name->end() - 1) return Result::Broken;

    const auto payloadSize = cursor.Word();
    if (!payloadSize) return Result::NeedMore;
    if (*payloadSize > kMaxPayload) return Result::Broken;
    const auto payload = cursor.Bytes(*payloadSize);
    const auto responseSize = payload ? cursor.Word() : std::nullopt;
    if (!responseSize) return Result::NeedMore;
    if (*responseSize > kMaxResponse) return Result::Broken;

    frame.name.assign(reinterpret_cast<const char*>(name->data()), name->size() - 1);
    frame.payload.assign(payload->begin(), payload->end());
    frame.responseSize = *responseSize;
    m_bytes.erase(m_bytes.begin(), m_bytes.end() - static_cast<std::ptrdiff_t>(cursor.Left()));
    return Result::Ready;
}

}  // namespace meter
