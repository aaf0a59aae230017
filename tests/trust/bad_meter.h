#pragma once

#include <array>
#include <string_view>

#include "tests/trust/stage.h"

/// What a meter may do to the display.
struct Misdeed {
    std::string_view name;
    std::string_view fault;         // of the simulator, while it lasts
    session::Instant grace;         // at most, from its end until a call succeeds again
    bool restarts = false;          // with another connection id when it begins
    bool swallowsConnects = false;  // attempts to connect come to nothing after their time
    bool spoilsReplies = false;     // with the right length
};

inline constexpr session::Instant kReceiveTime = 3000;  // what the display waits for a piece of a reply
inline constexpr session::Instant kReplyTime = 12'000;  // and for all pieces
inline constexpr session::Instant kHoldOff = 20'000;    // after it has connected in vain, with the attempt itself

// clang-format off
inline constexpr auto kMisdeeds = std::to_array<Misdeed>({
    {.name = "refused",          .fault = "absent",   .grace = kHoldOff},
    {.name = "silent",           .fault = "silent",   .grace = kReceiveTime},
    {.name = "half-open",        .fault = "silent",   .grace = kHoldOff,     .swallowsConnects = true},
    {.name = "slow",             .fault = "slow",     .grace = kReceiveTime},
    {.name = "late",             .fault = "late",     .grace = kReceiveTime},
    {.name = "byte by byte",     .fault = "drip",     .grace = kReplyTime},
    {.name = "half",             .fault = "half",     .grace = kReceiveTime},
    {.name = "cut",              .fault = "cut",      .grace = 0},
    {.name = "reset",            .fault = "reset",    .grace = 0},
    {.name = "garbage",          .fault = "garbage",  .grace = 0,            .spoilsReplies = true},
    {.name = "flood",            .fault = "flood",    .grace = 0},
    {.name = "restart",          .fault = "absent",   .grace = kHoldOff,     .restarts = true},
    {.name = "changed identity", .fault = "none",     .grace = 0,            .restarts = true},
    {.name = "not a number",     .fault = "infinite", .grace = 0,            .spoilsReplies = true},
    {.name = "endless texts",    .fault = "endless",  .grace = 0,            .spoilsReplies = true},
    {.name = "huge counts",      .fault = "huge",     .grace = 0,            .spoilsReplies = true},
});
// clang-format on

/// A stage whose meter misbehaves from Begin to End.
class BadMeterStage : public Stage {
public:
    void Begin(const Misdeed& misdeed);
    void End();

    bool Fails(session::OsCall call, std::string_view what) override;

private:
    const Misdeed* m_misdeed = nullptr;
};
