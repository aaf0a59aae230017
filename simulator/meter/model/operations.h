#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// The operations that the meter answers.
namespace meter {

class Meter;

/// A payload whose shape was checked: up to three words and two texts.
struct Request {
    std::array<std::uint32_t, 3> words{};
    std::array<std::string_view, 2> texts{};
};

/// Writes the whole reply. Replies come zeroed and in the size that the table states.
using Handler = void (*)(Meter& meter, const Request& request, std::span<std::byte> reply);

inline constexpr int kFixedSize = -1;

struct Operation {
    std::string_view name;
    std::size_t words;      // numbers of four bytes in the payload
    std::size_t texts;      // terminated texts after them
    std::size_t replySize;  // bytes of the reply, or of one of its entries
    int countWord;          // which word counts the entries, or kFixedSize
    Handler handler;
};

/// All operations, in no particular order.
std::span<const Operation> Operations();

/// See Meter::Answer.
bool AnswerOperation(Meter& meter, std::string_view name, std::span<const std::byte> payload,
                     std::span<std::byte> response);

}  // namespace meter
