#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "simulator/meter/wire/layouts.h"

/// How each call of the link is made and answered: the 52 operations of the meter and the 15 commands of the display.
namespace meter {

enum class ArgumentType : std::uint8_t { Number, Decimal, Text };

/// Four bytes, or a text with its terminator.
struct Argument {
    std::string_view name;
    ArgumentType type = ArgumentType::Number;
    bool secret = false;  // a text that is written down nowhere
};

enum class ReplyShape : std::uint8_t {
    None,
    Number,   // four bytes
    Record,   // one record
    Records,  // as many as an argument says
    Text      // as many bytes as an argument says
};

struct ReplyForm {
    ReplyShape shape = ReplyShape::None;
    std::string_view name = {};            // of a number or a text
    const RecordLayout* record = nullptr;  // of records
    std::size_t countArgument = 0;         // which argument says how many
};

inline constexpr std::size_t kMaxArguments = 4;

struct Signature {
    std::string_view name;
    std::string_view purpose;
    std::array<Argument, kMaxArguments> argumentList = {};
    ReplyForm reply = {};

    constexpr std::span<const Argument> Arguments() const {
        std::size_t count = 0;
        while (count < kMaxArguments && !argumentList[count].name.empty()) ++count;
        return std::span(argumentList).first(count);
    }
};

/// What the meter answers on port 31415, and what the display obeys on port 31416.
std::span<const Signature> MeterOperations();
std::span<const Signature> DisplayCommands();

/// @return the signature, or null
const Signature* FindMeterOperation(std::string_view name);
const Signature* FindDisplayCommand(std::string_view name);

}  // namespace meter
