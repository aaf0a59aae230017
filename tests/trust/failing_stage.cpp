#include "tests/trust/failing_stage.h"

#include <new>

namespace {

FailingStage* theStage = nullptr;

}  // namespace

/// What the display takes from the heap prepared to get nothing.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    const bool isAsked = theStage != nullptr && session::Scheduler::Instance().Self() != session::Scheduler::kOutside;
    if (isAsked && theStage->Fails(session::OsCall::Allocate, {})) return nullptr;
    return ::operator new[](size);
}

FailingStage::FailingStage(const session::Setting& setting) : Stage(setting) { theStage = this; }

FailingStage::~FailingStage() { theStage = nullptr; }

void FailingStage::FailCall(std::optional<std::size_t> number) {
    m_failing = number;
    m_calls.clear();
}

bool FailingStage::Fails(session::OsCall call, std::string_view what) {
    std::string name(NameOf(call));
    if (const std::string_view subject = Subject(call, what); !subject.empty()) name += ' ' + std::string(subject);
    m_calls.push_back(std::move(name));
    return m_failing == m_calls.size() - 1 || m_failingKind == call;
}

std::string_view FailingStage::Subject(session::OsCall call, std::string_view what) {
    using enum session::OsCall;
    switch (call) {
        case Open: return m_opened = what;
        case Read:
        case Write:
        case Control:
        case Seek: return m_opened;
        case CreateTask: return m_createdTask = what;
        case ActivateTask: return m_createdTask;
        default: return what;
    }
}
