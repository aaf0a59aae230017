#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/toolkit.h"
#include "peg/core/window.h"

// A window that runs a message loop of its own.

namespace {

/// Where the calling task receives a modal window's messages: in the toolkit's own loop, or in a queue of its own.
class ModalQueue {
public:
    explicit ModalQueue(PegWindow& window) : m_window(window) {
        const os::TaskId self = os::taskIdSelf();
        if (self != toolkit.manager->ToolkitTask()) {
            m_queue = toolkit.manager->QueueOfTask(self);
            if (m_queue == nullptr) {
                m_queue = os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo);
                m_owned = true;
            }
        }
        toolkit.manager->AddTaskRoute(m_window, self, m_queue);
    }
    ModalQueue(const ModalQueue&) = delete;
    ModalQueue& operator=(const ModalQueue&) = delete;
    ~ModalQueue() {
        toolkit.manager->RemoveTaskRoute(m_window);
        if (m_owned) PegMessageQueue::DeleteQueue(m_queue);
    }

    bool Receive(PegMessage& message) {
        if (m_queue == nullptr) {
            toolkit.queue->Pop(message);
            return true;
        }
        return os::msgQReceive(m_queue, &message, sizeof message, os::kWaitForever) == static_cast<int>(sizeof message);
    }

private:
    PegWindow& m_window;
    os::MessageQueueId m_queue = nullptr;
    bool m_owned = false;
};

}  // namespace

std::int32_t PegWindow::Execute() {
    if (Parent() == nullptr) toolkit.manager->AddChild(*this);
    ModalQueue queue(*this);
    for (;;) {
        PegMessage message;
        if (!queue.Receive(message)) continue;
        if (toolkit.manager->RouteToTaskQueue(message) != 0) continue;
        const std::int32_t result = toolkit.manager->DispatchMessage(message);
        if (result >= kWindowClosed || result == kExitLoop) return result;
    }
}
