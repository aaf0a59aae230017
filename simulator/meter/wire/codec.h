#pragma once

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/meter/wire/signatures.h"

/// Calls and replies as values with names, in the order in which they travel. Fields that only keep a place are left
/// out; texts become UTF-8, one letter a byte.
namespace meter {

using Json = nlohmann::ordered_json;

/// The payload of a call from its arguments as a person writes them: 26, 0x1A, 21.5, any text.
/// @throws std::invalid_argument that names the argument which is missing, too many or no number
std::vector<std::byte> EncodeArguments(const Signature& signature, std::span<const std::string> arguments);

/// Bytes of the reply to a call with that payload.
/// @throws std::invalid_argument when they are more than any reply may have
std::uint32_t ReplySize(const Signature& signature, std::span<const std::byte> payload);

/// The arguments in a payload, by name; what a short or overlong payload lacks is left out, and in the place of secrets
/// stand asterisks.
Json DecodePayload(const Signature& signature, std::span<const std::byte> payload);

/// The payload as it may be written down: asterisks, always as many, in the place of secrets.
std::vector<std::byte> WithoutSecrets(std::string_view operation, std::span<const std::byte> payload);

/// A reply: an object, or for several records an array of objects. Fields that a cut reply lacks are left out.
Json DecodeReply(const Signature& signature, std::span<const std::byte> reply);

/// What nobody can decode: {"hex": "2525..."}, at most the first 64 bytes.
Json DecodeBytes(std::span<const std::byte> bytes);

/// 8-bit text as UTF-8, and back; letters beyond the 8 bits become question marks.
std::string ToUtf8(std::string_view text);
std::string FromUtf8(std::string_view text);

}  // namespace meter
