#pragma once

#include <string_view>

#include "tests/simulator/bench.h"

namespace bench {

/// The bytes of one call.
inline Bytes Call(std::string_view name, const Bytes& payload, std::uint32_t responseSize) {
    Bytes frame = Words({0x52522525, static_cast<std::uint32_t>(name.size() + 1)});
    Append(frame, name);
    for (const Bytes& part : {Words({static_cast<std::uint32_t>(payload.size())}), payload, Words({responseSize})})
        frame.insert(frame.end(), part.begin(), part.end());
    return frame;
}

}  // namespace bench
