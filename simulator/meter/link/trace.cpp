#include "simulator/meter/link/trace.h"

#include "simulator/meter/wire/codec.h"

namespace meter {

std::string TraceLine(const LinkCall& call, std::uint64_t number, Instant now) {
    const bool toMeter = call.to == Callee::Meter;
    const Signature* signature = toMeter ? FindMeterOperation(call.operation) : FindDisplayCommand(call.operation);
    const Json line = {
        {"time", now},
        {"call", number},
        {"to", toMeter ? "meter" : "display"},
        {"operation", ToUtf8(call.operation)},
        {"request", signature != nullptr ? DecodePayload(*signature, call.payload) : DecodeBytes(call.payload)},
        {"reply", signature != nullptr ? DecodeReply(*signature, call.reply) : DecodeBytes(call.reply)},
        {"bytes", call.reply.size()},
        {"us", call.taken.count()},
        {"result", call.result},
    };
    return line.dump();
}

}  // namespace meter
