#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "peg/core/screen.h"
#include "peg/core/window.h"
#include "platform/message_queue.h"
#include "platform/task.h"

/// What the message loop and a dispatch return when the toolkit is to end.
inline constexpr std::int32_t kExitLoop = -22;

/// The root of the tree: top-level windows are its children. It chooses the receivers of messages without a target,
/// keeps the input focus, collects what is to be drawn and draws it in one pass when the toolkit is idle.
///
/// Toolkit task only, but for `RouteToTaskQueue`, which any sender may ask.
class PegPresentationManager : public PegWindow {
public:
    using ExitCallback = void (*)();
    using UserMessageCallback = std::int32_t (*)(const PegMessage& message);

    explicit PegPresentationManager(const PegRect& screen);
    ~PegPresentationManager() override;

    /// Runs the message loop until the toolkit is told to end. @return kExitLoop
    std::int32_t Execute() override;
    std::int32_t DispatchMessage(const PegMessage& message);

    /// Gives a message to the task that runs a modal window around its receiver. @return 1 if that took it
    int RouteToTaskQueue(const PegMessage& message);

    /// Moves the input focus to a visible thing that accepts it; nothing for any other.
    void SetFocus(PegThing& thing);
    PegThing* Focus() const { return m_focus; }

    void InvalidateArea(PegThing& thing, const PegRect& rect);
    bool HasInvalidAreas() const { return m_firstInvalid != nullptr; }

    /// Draws everything invalid in one pass, so that the frame goes to the device once.
    void DrawInvalid();

    /// Drops the focus of a thing that is being taken off the screen, and of its descendants.
    void ForgetRemoved(const PegThing& thing);

    /// Drops every reference to a thing that is being deleted.
    void ForgetDeleted(PegThing& thing);

    /// Asks for the viewports to be rebuilt before the next drawing.
    void RequestViewports() { m_viewportsPending = true; }

    /// The parts of the thing's top-level window that may be drawn. @return false when the thing is in no such window
    bool FindViewports(const PegThing& thing, const PegArea*& viewports) const;

    /// A modal window's input goes to the task that runs its loop: to `queue`, or to the toolkit's own loop when null.
    void AddTaskRoute(PegThing& window, os::TaskId task, os::MessageQueueId queue);
    void RemoveTaskRoute(const PegThing& window);
    os::MessageQueueId QueueOfTask(os::TaskId task) const;
    os::TaskId ToolkitTask() const { return m_task; }
    void SetExitCallback(ExitCallback callback) { m_exitCallback = callback; }
    void SetUserMessageCallback(UserMessageCallback callback) { m_userMessageCallback = callback; }

    void AddChild(PegThing& window, bool draw = true) override;
    void Draw(const PegRect& invalid) override;
    std::int32_t Message(const PegMessage& message) override;

private:
    struct TaskRoute {
        PegThing* window;
        os::TaskId task;
        os::MessageQueueId queue;
    };
    static constexpr std::size_t kPoolGrowth = 512;  // more than any screen needs at a time

    void GrowPool();
    PegArea& NewArea(PegThing& thing, const PegRect& rect);
    void GiveBack(PegArea*& chain);
    void RebuildViewports();
    void AddViewports(PegThing& window, const PegRect& rect, const PegThing* covering);
    void ReduceInvalid();
    bool MergeIntoLater(PegArea& area);
    bool IsDrawnByAncestor(PegArea& area);
    void DrawArea(const PegArea& area);
    void ChangeInputOwner(PegThing* thing);
    void LosePathBelow(const PegThing& ancestor);
    std::int32_t OnRefocus();
    std::int32_t OnExit(const PegMessage& message);
    void SendToTopLevel(const PegMessage& message);

    const os::TaskId m_task = os::taskIdSelf();
    PegThing* m_focus = nullptr;
    PegArea* m_firstInvalid = nullptr;
    PegArea* m_lastInvalid = nullptr;  // while there is a first
    PegArea* m_freeAreas = nullptr;
    std::vector<std::unique_ptr<std::array<PegArea, kPoolGrowth>>> m_pool;  // grows, and never shrinks
    PegThing* m_drawing = nullptr;                                          // the thing being drawn in the idle pass
    std::vector<TaskRoute> m_routes;
    std::atomic<bool> m_hasRoutes = false;  // written after the routes; senders of other tasks ask it first
    ExitCallback m_exitCallback = nullptr;
    UserMessageCallback m_userMessageCallback = nullptr;
    bool m_refocusPending = false;
    bool m_viewportsPending = false;
};
