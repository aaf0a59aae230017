#include "peg/core/presentation_manager.h"

#include <algorithm>

#include "peg/core/message_queue.h"
#include "peg/core/toolkit.h"

namespace {

void Tell(PegThing* thing, std::uint16_t type) {
    if (thing == nullptr) return;
    PegMessage message;
    message.target = thing;
    message.type = type;
    thing->Message(message);
}

bool IsInside(const PegThing* thing, const PegThing& outer) {
    return thing != nullptr && (thing == &outer || thing->IsAncestor(outer));
}

}  // namespace

PegPresentationManager::PegPresentationManager(const PegRect& screen) : PegWindow(screen) {
    // The root has no window around it and is always on the screen.
    ClearStatusBits(STAT_VIEWPORT | STAT_FRONT_ON_FOCUS);
    SetStatusBits(STAT_VISIBLE);
    GrowPool();
}

PegPresentationManager::~PegPresentationManager() {
    while (FirstChild() != nullptr) delete FirstChild();
    toolkit.manager = nullptr;
}

std::int32_t PegPresentationManager::Execute() {
    for (;;) {
        PegMessage message;
        toolkit.queue->Pop(message);
        if (RouteToTaskQueue(message) != 0) continue;
        if (DispatchMessage(message) == kExitLoop) break;
    }
    if (m_exitCallback != nullptr) m_exitCallback();
    return kExitLoop;
}

std::int32_t PegPresentationManager::DispatchMessage(const PegMessage& message) {
    if (message.target != nullptr) return message.target->Message(message);
    if (message.type >= MSG_KEY_DOWN && message.type <= MSG_KEY_LAST) {
        return m_focus != nullptr ? m_focus->Message(message) : 0;
    }
    if (message.type >= MSG_FIRST_USER && message.param != 0) {
        if (PegThing* named = FindById(static_cast<std::uint16_t>(message.param), true)) return named->Message(message);
        return 0;
    }
    PegThing* receiver = m_focus != nullptr ? m_focus : FirstChild();
    return receiver != nullptr ? receiver->Message(message) : 0;
}

std::int32_t PegPresentationManager::Message(const PegMessage& message) {
    if (message.type >= MSG_FIRST_SIGNAL) return 0;
    if (message.type >= MSG_FIRST_USER) {
        return m_userMessageCallback != nullptr ? m_userMessageCallback(message) : 0;
    }
    switch (message.type) {
        case MSG_CLOSE: SendToTopLevel(message); return 0;
        case MSG_REFOCUS: return OnRefocus();
        case MSG_EXIT: return OnExit(message);
    }
    return PegWindow::Message(message);
}

void PegPresentationManager::SendToTopLevel(const PegMessage& message) {
    for (PegThing* window = FirstChild(); window != nullptr;) {
        PegThing* next = window->Next();
        window->Message(message);
        window = next;
    }
}

std::int32_t PegPresentationManager::OnRefocus() {
    if (!m_refocusPending) return 0;
    m_refocusPending = false;
    PegThing* window = FirstChild();
    while (window != nullptr && !window->HasStatus(STAT_ACCEPTS_FOCUS)) window = window->Next();
    if (window == nullptr) return 0;
    ChangeInputOwner(window);
    Tell(window, MSG_FOCUS_IN);
    return 0;
}

std::int32_t PegPresentationManager::OnExit(const PegMessage& message) {
    if (message.source == this) {
        if (FirstChild() != nullptr) return 0;
        if (message.param == 0) {
            PegMessage again = message;
            again.param = 1;
            toolkit.queue->Push(again);
            return 0;
        }
        SetFocus(*this);
        return kExitLoop;
    }
    SetFocus(*this);
    SendToTopLevel(message);
    return kExitLoop;
}

int PegPresentationManager::RouteToTaskQueue(const PegMessage& message) {
    if (!m_hasRoutes.load(std::memory_order_acquire)) return 0;
    const PegThing* thing = message.target;
    if (thing == nullptr && (message.type == MSG_KEY_DOWN || message.type == MSG_KEY_UP)) thing = m_focus;
    for (; thing != nullptr && thing != this; thing = thing->Parent()) {
        const auto route = std::find_if(m_routes.begin(), m_routes.end(),
                                        [thing](const TaskRoute& candidate) { return candidate.window == thing; });
        if (route == m_routes.end()) continue;
        if (route->queue == nullptr || route->task == os::taskIdSelf()) return 0;
        return PegMessageQueue::EnqueueTaskMessage(message, route->queue);
    }
    return 0;
}

void PegPresentationManager::AddTaskRoute(PegThing& window, os::TaskId task, os::MessageQueueId queue) {
    m_routes.push_back({&window, task, queue});
    m_hasRoutes = true;
}

void PegPresentationManager::RemoveTaskRoute(const PegThing& window) {
    std::erase_if(m_routes, [&window](const TaskRoute& route) { return route.window == &window; });
    m_hasRoutes = !m_routes.empty();
}

os::MessageQueueId PegPresentationManager::QueueOfTask(os::TaskId task) const {
    for (const TaskRoute& route : m_routes) {
        if (route.task == task) return route.queue;
    }
    return nullptr;
}

void PegPresentationManager::ChangeInputOwner(PegThing* thing) {
    PegThing* before = m_focus;
    if (before == thing) return;
    m_focus = thing;
    Tell(before, MSG_INPUT_OUT);
    Tell(thing, MSG_INPUT_IN);
}

/// The children of `ancestor` that are on the focus path leave it.
void PegPresentationManager::LosePathBelow(const PegThing& ancestor) {
    PegThing* child = ancestor.FirstChild();
    while (child != nullptr && !child->HasStatus(STAT_CURRENT)) child = child->Next();
    if (child != nullptr) LoseFocus(*child);
}

void PegPresentationManager::SetFocus(PegThing& thing) {
    if (!thing.IsVisible() || !thing.HasStatus(STAT_ACCEPTS_FOCUS)) return;
    if (m_focus != nullptr && m_focus != &thing) m_focus->Signal(kSignalFocusLost);
    if (&thing == this) {
        LosePathBelow(*this);
        ChangeInputOwner(nullptr);
        return;
    }
    PegThing* current = &thing;
    while (current->Parent() != nullptr && !current->HasStatus(STAT_CURRENT)) current = current->Parent();
    LosePathBelow(*current);
    for (PegThing* step = &thing; step != current; step = step->Parent()) {
        if (step->HasStatus(STAT_FRONT_ON_FOCUS)) step->Parent()->AddChild(*step);
    }
    if (m_focus == &thing) return;
    ChangeInputOwner(&thing);
    Tell(&thing, MSG_FOCUS_IN);
}

void PegPresentationManager::AddChild(PegThing& window, bool draw) {
    if (window.HasStatus(STAT_FRONT_ON_FOCUS)) m_refocusPending = false;
    if (window.IsVisible() || !window.HasStatus(STAT_ACCEPTS_FOCUS) || !draw) {
        PegWindow::AddChild(window, draw);
        return;
    }
    LosePathBelow(*this);
    PegWindow::AddChild(window, draw);
    ChangeInputOwner(&window);
    Tell(&window, MSG_FOCUS_IN);
}

void PegPresentationManager::ForgetRemoved(const PegThing& thing) {
    if (IsInside(m_focus, thing)) m_focus = nullptr;
    if (thing.Parent() == this && thing.HasStatus(STAT_VIEWPORT)) m_viewportsPending = true;
    if (thing.Parent() != this || !thing.HasStatus(STAT_ACCEPTS_FOCUS) || m_refocusPending) return;
    m_refocusPending = true;
    PegMessage refocus;
    refocus.target = this;
    refocus.type = MSG_REFOCUS;
    toolkit.queue->Push(refocus);
}

void PegPresentationManager::ForgetDeleted(PegThing& thing) {
    for (PegArea* area = m_firstInvalid; area != nullptr; area = area->next) {
        if (IsInside(area->thing, thing)) area->thing = nullptr;
    }
    GiveBack(thing.m_viewports);
    RemoveTaskRoute(thing);
    if (m_focus == &thing) m_focus = nullptr;
}
