#include "simulator/meter/link/spoiled_reply.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

#include "simulator/meter/wire/signatures.h"

namespace meter {
namespace {

using Bytes = std::span<std::byte>;

constexpr std::byte kLetter{'W'};  // the widest
constexpr std::byte kAllBits{0xFF};
constexpr std::byte kAllButSign{0x7F};

template <typename Number>
void Write(Bytes element, Number number) {
    std::ranges::copy(std::bit_cast<std::array<std::byte, sizeof number>>(number), element.begin());
}

/// One after another: no number, infinite, infinite below zero.
template <typename Number>
void WriteInfinite(Bytes element, std::size_t which) {
    using Limits = std::numeric_limits<Number>;
    constexpr std::array kNumbers = {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()};
    Write(element, kNumbers[which % kNumbers.size()]);
}

/// The same as a text, for values that travel as one.
void WriteInfiniteText(Bytes element, std::size_t which) {
    constexpr std::array<std::string_view, 3> kTexts = {"nan", "inf", "-inf"};
    std::ranges::fill(element, std::byte{0});
    std::ranges::copy(std::as_bytes(std::span(kTexts[which % kTexts.size()])), element.begin());
}

void WriteHuge(Bytes element, bool isSigned) {
    std::ranges::fill(element, kAllBits);
    if (isSigned) element.back() = kAllButSign;
}

void SpoilElement(Fault fault, FieldType type, Bytes element, std::size_t which) {
    switch (type) {
        case FieldType::F32:
            if (fault == Fault::Infinite) WriteInfinite<float>(element, which);
            break;
        case FieldType::F64:
            if (fault == Fault::Infinite) WriteInfinite<double>(element, which);
            break;
        case FieldType::Text:
            if (fault == Fault::Endless) std::ranges::fill(element, kLetter);
            break;
        case FieldType::Record: break;
        default:
            if (fault == Fault::Huge) WriteHuge(element, type == FieldType::I32);
    }
}

/// @param which  counts the elements
void SpoilRecord(Fault fault, const RecordLayout& record, Bytes bytes, std::size_t& which) {
    for (const Field& field : record.fields) {
        for (std::size_t i = 0; i < field.count; ++i) {
            const Bytes element = bytes.subspan(field.offset + i * field.size, field.size);
            if (field.record != nullptr) {
                SpoilRecord(fault, *field.record, element, which);
            } else {
                SpoilElement(fault, field.type, element, which++);
                if (fault == Fault::Infinite && field.type == FieldType::Text && field.name == "value")
                    WriteInfiniteText(element, which);
            }
        }
    }
}

}  // namespace

void SpoilFields(Fault fault, std::string_view operation, Bytes reply) {
    const Signature* signature = FindMeterOperation(operation);
    if (signature == nullptr) return;
    const ReplyForm& form = signature->reply;
    std::size_t which = 0;
    switch (form.shape) {
        case ReplyShape::None: break;
        case ReplyShape::Number: SpoilElement(fault, FieldType::U32, reply, 0); break;
        case ReplyShape::Text: SpoilElement(fault, FieldType::Text, reply, 0); break;
        case ReplyShape::Record:
        case ReplyShape::Records:
            for (; reply.size() >= form.record->size; reply = reply.subspan(form.record->size))
                SpoilRecord(fault, *form.record, reply.first(form.record->size), which);
    }
}

}  // namespace meter
