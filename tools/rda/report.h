#pragma once

#include <string>
#include <string_view>

#include "simulator/meter/wire/codec.h"

/// What the command prints: one thing a line, made for people and for grep.
namespace rda_command {

/// A decoded reply as lines "field  value"; fields of a part are named "part.field", entries of a list "[2].field".
std::string TextOf(const meter::Json& reply);

/// Every call with its arguments and its purpose, a line each.
std::string ListOf(std::span<const meter::Signature> calls);
meter::Json ListAsJson(std::span<const meter::Signature> calls);

/// A call's arguments and its reply with offsets and sizes, or a record's fields.
std::string DescriptionOf(const meter::Signature& call);
std::string DescriptionOf(const meter::RecordLayout& record);
meter::Json DescriptionAsJson(const meter::Signature& call);
meter::Json DescriptionAsJson(const meter::RecordLayout& record);

/// A script that lets bash complete the command's words.
std::string BashCompletion();

/// The call of that name, or the only one whose name ends with "_" and these letters.
/// @throws std::invalid_argument that names the nearest when there is none
const meter::Signature& Named(std::span<const meter::Signature> calls, std::string_view name);

}  // namespace rda_command
