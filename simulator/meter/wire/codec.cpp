#include "simulator/meter/wire/codec.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "rda/wire.h"

namespace meter {
namespace {

using Bytes = std::span<const std::byte>;

constexpr std::uint64_t kMaxReply = std::uint64_t{256} * 1024;
constexpr std::size_t kMaxHex = 64;
constexpr std::string_view kInsteadOfSecret = "********";

template <typename Number>
auto NumberIn(Bytes bytes) {
    Number number{};
    std::memcpy(&number, bytes.data(), sizeof(number));
    return number.Get();
}

std::string TextOf(Bytes bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return ToUtf8(text.substr(0, text.find('\0')));
}

/// JSON has no word for what is no number.
template <typename Value>
Json Decimal(Value value) {
    return std::isfinite(value) ? Json(value) : Json(nullptr);
}

Json DecodeRecord(const RecordLayout& record, Bytes bytes);

Json DecodeElement(const Field& field, Bytes bytes) {
    switch (field.type) {
        case FieldType::U8: return NumberIn<WireU8>(bytes);
        case FieldType::U16: return NumberIn<WireU16>(bytes);
        case FieldType::U32: return NumberIn<WireU32>(bytes);
        case FieldType::I32: return NumberIn<WireI32>(bytes);
        case FieldType::U64: return NumberIn<WireU64>(bytes);
        case FieldType::F32: return Decimal(NumberIn<WireF32>(bytes));
        case FieldType::F64: return Decimal(NumberIn<WireF64>(bytes));
        case FieldType::Text: return TextOf(bytes);
        case FieldType::Record: return DecodeRecord(*field.record, bytes);
    }
    return nullptr;
}

Json DecodeRecord(const RecordLayout& record, Bytes bytes) {
    Json object = Json::object();
    for (const Field& field : record.fields) {
        if (field.End() > bytes.size()) break;
        if (field.IsUnused()) continue;
        if (field.count == 1) {
            object[field.name] = DecodeElement(field, bytes.subspan(field.offset, field.size));
            continue;
        }
        Json& elements = object[field.name] = Json::array();
        for (std::size_t i = 0; i < field.count; ++i)
            elements.push_back(DecodeElement(field, bytes.subspan(field.offset + i * field.size, field.size)));
    }
    return object;
}

std::uint32_t ParseWord(const Argument& argument, std::string_view text) {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const std::string_view digits = hexadecimal ? text.substr(2) : text;
    std::uint32_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
    if (digits.empty() || error != std::errc{} || end != digits.data() + digits.size())
        throw std::invalid_argument(std::string(argument.name) + " is a number from 0 to 4294967295, not \"" +
                                    std::string(text) + "\"");
    return value;
}

float ParseDecimal(const Argument& argument, std::string_view text) {
    float value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size())
        throw std::invalid_argument(std::string(argument.name) + " is a number, not \"" + std::string(text) + "\"");
    return value;
}

template <typename Number, typename Value>
void Append(std::vector<std::byte>& payload, Value value) {
    Number number{};
    number.Set(value);
    const auto bytes = std::as_bytes(std::span(&number, 1));
    payload.insert(payload.end(), bytes.begin(), bytes.end());
}

/// The place of a number among the arguments, or nothing when the payload is too short.
const std::byte* WordAt(const Signature& signature, Bytes payload, std::size_t argument) {
    std::size_t offset = 0;
    for (std::size_t i = 0; i < argument; ++i)
        if (signature.Arguments()[i].type != ArgumentType::Text) offset += sizeof(WireU32);
    return offset + sizeof(WireU32) <= payload.size() ? payload.data() + offset : nullptr;
}

}  // namespace

std::vector<std::byte> EncodeArguments(const Signature& signature, std::span<const std::string> arguments) {
    const auto expected = signature.Arguments();
    if (arguments.size() < expected.size())
        throw std::invalid_argument(std::string(signature.name) + ": the argument " +
                                    std::string(expected[arguments.size()].name) + " is missing");
    if (arguments.size() > expected.size())
        throw std::invalid_argument(std::string(signature.name) + " takes " + std::to_string(expected.size()) +
                                    (expected.size() == 1 ? " argument" : " arguments") + "; \"" +
                                    arguments[expected.size()] + "\" is too many");
    std::vector<std::byte> payload;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        switch (expected[i].type) {
            case ArgumentType::Number: Append<WireU32>(payload, ParseWord(expected[i], arguments[i])); break;
            case ArgumentType::Decimal: Append<WireF32>(payload, ParseDecimal(expected[i], arguments[i])); break;
            case ArgumentType::Text: {
                const std::string text = FromUtf8(arguments[i]);
                const auto bytes = std::as_bytes(std::span(text.c_str(), text.size() + 1));
                payload.insert(payload.end(), bytes.begin(), bytes.end());
            } break;
        }
    }
    return payload;
}

std::uint32_t ReplySize(const Signature& signature, std::span<const std::byte> payload) {
    const ReplyForm& reply = signature.reply;
    std::uint64_t size = 0;
    const std::byte* counted = WordAt(signature, payload, reply.countArgument);
    const std::uint64_t count = counted != nullptr ? NumberIn<WireU32>({counted, sizeof(WireU32)}) : 0;
    switch (reply.shape) {
        case ReplyShape::None: break;
        case ReplyShape::Number: size = sizeof(WireU32); break;
        case ReplyShape::Record: size = reply.record->size; break;
        case ReplyShape::Records: size = reply.record->size * count; break;
        case ReplyShape::Text: size = count; break;
    }
    if (size > kMaxReply)
        throw std::invalid_argument(std::string(signature.name) + ": a reply of " + std::to_string(size) +
                                    " bytes is too long; at most " + std::to_string(kMaxReply) + " can be asked for");
    return static_cast<std::uint32_t>(size);
}

Json DecodePayload(const Signature& signature, std::span<const std::byte> payload) {
    Json object = Json::object();
    for (const Argument& argument : signature.Arguments()) {
        if (argument.type == ArgumentType::Text) {
            const auto end = std::ranges::find(payload, std::byte{0});
            if (end == payload.end()) break;
            const auto length = static_cast<std::size_t>(end - payload.begin());
            object[argument.name] = argument.secret ? std::string(kInsteadOfSecret) : TextOf(payload.first(length));
            payload = payload.subspan(length + 1);
            continue;
        }
        if (payload.size() < sizeof(WireU32)) break;
        object[argument.name] = argument.type == ArgumentType::Decimal ? Decimal(NumberIn<WireF32>(payload))
                                                                       : Json(NumberIn<WireU32>(payload));
        payload = payload.subspan(sizeof(WireU32));
    }
    return object;
}

std::vector<std::byte> WithoutSecrets(std::string_view operation, std::span<const std::byte> payload) {
    const Signature* signature = FindMeterOperation(operation);
    const bool hasSecret = signature != nullptr && std::ranges::any_of(signature->Arguments(), &Argument::secret);
    if (!hasSecret) return {payload.begin(), payload.end()};
    // Such a call consists of texts, as the table of operations proves; one that was cut off ends with the payload.
    std::vector<std::byte> shown;
    for (const Argument& argument : signature->Arguments()) {
        const auto end = std::ranges::find(payload, std::byte{0});
        const auto text = payload.first(static_cast<std::size_t>(end - payload.begin()));
        const auto written = argument.secret ? std::as_bytes(std::span(kInsteadOfSecret)) : text;
        shown.insert(shown.end(), written.begin(), written.end());
        if (end == payload.end()) break;
        shown.push_back(std::byte{0});
        payload = payload.subspan(text.size() + 1);
    }
    return shown;
}

Json DecodeReply(const Signature& signature, std::span<const std::byte> reply) {
    const ReplyForm& form = signature.reply;
    Json object = Json::object();
    switch (form.shape) {
        case ReplyShape::None: break;
        case ReplyShape::Number:
            if (reply.size() >= sizeof(WireU32)) object[form.name] = NumberIn<WireU32>(reply);
            break;
        case ReplyShape::Text: object[form.name] = TextOf(reply); break;
        case ReplyShape::Record: return DecodeRecord(*form.record, reply);
        case ReplyShape::Records: {
            Json entries = Json::array();
            const std::size_t size = form.record->size;
            for (std::size_t at = 0; at < reply.size(); at += size)
                entries.push_back(DecodeRecord(*form.record, reply.subspan(at, std::min(size, reply.size() - at))));
            return entries;
        }
    }
    return object;
}

Json DecodeBytes(std::span<const std::byte> bytes) {
    if (bytes.empty()) return Json::object();
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    for (const std::byte one : bytes.first(std::min(bytes.size(), kMaxHex))) {
        hex += kDigits[std::to_integer<std::size_t>(one) >> 4];
        hex += kDigits[std::to_integer<std::size_t>(one) & 15];
    }
    return {{"hex", hex}};
}

std::string ToUtf8(std::string_view text) {
    std::string utf8;
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (code < 0x80) {
            utf8 += letter;
            continue;
        }
        utf8 += static_cast<char>(0xC0 | (code >> 6));
        utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
    return utf8;
}

std::string FromUtf8(std::string_view text) {
    std::string narrow;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto code = static_cast<unsigned char>(text[i]);
        const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0U;
        if (code < 0x80) {
            narrow += text[i];
        } else if ((code == 0xC2 || code == 0xC3) && (next & 0xC0) == 0x80) {
            narrow += static_cast<char>(((code & 3U) << 6) | (next & 0x3FU));
            ++i;
        } else {
            narrow += '?';
            while (i + 1 < text.size() && (static_cast<unsigned char>(text[i + 1]) & 0xC0) == 0x80) ++i;
        }
    }
    return narrow;
}

}  // namespace meter
