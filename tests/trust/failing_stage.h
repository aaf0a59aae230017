#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/trust/stage.h"

/// A stage whose operating system fails one call of the display, or all of a kind, and counts them all.
class FailingStage : public Stage {
public:
    explicit FailingStage(const session::Setting& setting = Usual());
    ~FailingStage() override;

    /// From now on calls are counted from 0, and the one of that number fails.
    void FailCall(std::optional<std::size_t> number);

    /// From now on all calls of a kind fail, or none.
    void FailKind(std::optional<session::OsCall> kind) { m_failingKind = kind; }

    /// The calls since the last FailCall, each by its name and what it was about: "open /buttons", "taskCreate
    /// tDispButtons".
    const std::vector<std::string>& Calls() const { return m_calls; }

    bool Fails(session::OsCall call, std::string_view what) override;

private:
    std::string_view Subject(session::OsCall call, std::string_view what);

    std::optional<std::size_t> m_failing;
    std::optional<session::OsCall> m_failingKind;
    std::vector<std::string> m_calls;
    std::string m_opened;       // what was opened last
    std::string m_createdTask;  // the task that was created last
};
