#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "peg/core/message.h"

/// Watches from outside that nothing is written which nobody confirmed: it sees what the toolkit delivers and what the
/// meter is asked, and knows nothing of the screens but their numbers and kinds.
///
/// A write needs soft key 4 released twice on one edit screen, at most ten seconds after the last key, with nothing in
/// between that leaves the question. And it needs a password that the meter accepted and that was not given back since,
/// unless the meter itself sent the display to that screen; without, as when going back leads to an edit screen that
/// was left long ago, the meter has to refuse it.
class WriteWatch {
public:
    /// A message is about to be delivered, and was.
    void Before(const PegMessage& message);
    void After(const PegMessage& message);

    /// The meter was asked.
    /// @param seen  the reply as the display has it; empty when the call failed
    /// @param done  whether the meter did what it was asked, be its reply lost; nothing when it was not reached
    void OnCall(std::string_view operation, std::span<const std::byte> seen, std::optional<bool> done);

    /// Whether a reply says that it was done.
    static bool IsAccepted(std::span<const std::byte> reply);

    std::string fault;  // what went wrong first; empty: nothing
    int writes = 0;
    int refusals = 0;  // writes that the meter did not accept
    int logins = 0;

private:
    void Note(const char* fault);
    void AfterKey(int key);
    std::int64_t TicksSinceKey() const;

    bool m_loggedIn = false;
    bool m_sentHere = false;  // by the meter, to an edit screen
    bool m_isConfirming = false;
    bool m_saysWhyNot = false;  // a box over the edit screen
    std::int32_t m_asked = 0;   // the edit screen that asks whether to write; 0: none
    std::int32_t m_shownBefore = 0;
    int m_writesBefore = 0;
    std::uint32_t m_lastKey = 0;  // tick
};
