#include "peg/core/presentation_manager.h"

#include <atomic>
#include <random>
#include <thread>

#include "peg/resources/resources.h"
#include "peg/widgets/prompt.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

constexpr std::uint16_t kUser = MSG_FIRST_USER + 1;

class Presentation : public ToolkitTest {};

TEST_F(Presentation, GivesANewScreenTheInputAndForgetsARemovedOne) {
    auto& first = AddNew<Recorder>(Manager());
    EXPECT_EQ(Manager().Focus(), &first);
    auto& second = AddNew<Recorder>(Manager(), RectOf(50, 50, 149, 149));
    EXPECT_EQ(Manager().Focus(), &second);
    EXPECT_EQ(first.Count(MSG_INPUT_OUT), 1);
    EXPECT_EQ(first.Count(MSG_FOCUS_OUT), 1);
    EXPECT_FALSE(first.HasStatus(STAT_CURRENT));
    EXPECT_EQ(second.Count(MSG_INPUT_IN), 1);

    Manager().RemoveChild(second);
    EXPECT_EQ(Manager().Focus(), nullptr);
    Manager().DispatchMessage(MessageOf(MSG_KEY_DOWN, 65));
    EXPECT_EQ(first.Count(MSG_KEY_DOWN), 0) << "without a focus keys are dropped";
    Pump();
    EXPECT_EQ(Manager().Focus(), &first) << "the next idle moment picks a new owner";
    delete &second;
}

TEST_F(Presentation, ChoosesReceiversOfMessagesWithoutATarget) {
    EXPECT_EQ(Manager().DispatchMessage(MessageOf(0x50)), 0) << "nobody is there";
    auto& window = AddNew<Recorder>(Manager());
    auto& deep = AddNew<Recorder>(window, RectOf(0, 0, 9, 9), std::uint16_t{12});
    Manager().DispatchMessage(MessageOf(kUser, 12));
    EXPECT_EQ(deep.Count(kUser), 1);
    Manager().DispatchMessage(MessageOf(kUser, 13));
    EXPECT_EQ(window.Count(kUser), 1) << "only what the deep thing passed up";
    Manager().DispatchMessage(MessageOf(0x50));
    EXPECT_EQ(window.Count(0x50), 1) << "the focus owner";
    Manager().SetFocus(Manager());
    Manager().DispatchMessage(MessageOf(0x50));
    EXPECT_EQ(window.Count(0x50), 2) << "the first window, as nobody has the focus";
    for (const std::uint16_t type : {kUser, SIGNAL_TYPE(1, 4), std::uint16_t{MSG_REFOCUS}})
        EXPECT_EQ(Manager().Message(MessageOf(type)), 0);
    EXPECT_EQ(Manager().Focus(), nullptr);
}

TEST_F(Presentation, LeavesTheFocusWithNobodyWhenNoWindowTakesIt) {
    auto* deaf = new Recorder;
    deaf->ClearStatusBits(STAT_ACCEPTS_FOCUS);
    Manager().AddChild(*deaf);
    EXPECT_TRUE(deaf->IsVisible());
    EXPECT_EQ(Manager().Focus(), nullptr);
    delete &AddNew<Recorder>(Manager());
    delete &AddNew<Recorder>(Manager());
    Pump();
    EXPECT_EQ(Manager().Focus(), nullptr);
    AddNew<Recorder>(Manager(), RectOf(20, 20, 99, 99));
    Manager().Message(MessageOf(MSG_CLOSE));
    Pump();
    EXPECT_EQ(Manager().FirstChild(), nullptr) << "every window is closed";
}

TEST_F(Presentation, PaintsEachPixelForTheWindowInFront) {
    std::mt19937 random(3);
    const auto any = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    const auto place = [&] { return RectOf(any(0, 200), any(0, 150), any(100, 319), any(80, 239)); };
    std::vector<Recorder*> windows;
    for (std::uint32_t color = 1; color < 9; ++color) {
        windows.push_back(new Recorder(place()));
        windows.back()->SetColor(kBackground, color);
    }
    Manager().Invalidate();
    for (int round = 0; round < 60; ++round) {
        Recorder& window = *windows[static_cast<std::size_t>(any(0, 7))];
        const bool isThere = window.Parent() != nullptr;
        switch (any(0, 5)) {
            case 0: Manager().AddChild(window); break;
            case 1: Manager().AddChild(window, isThere); break;
            case 2: isThere ? Manager().MoveToFront(window) : Manager().AddChildAtEnd(window); break;
            case 3: Manager().RemoveChild(window); break;
            case 4: Manager().SetFocus(window); break;
            case 5: window.Resize(place()); break;
        }
        if (any(0, 2) == 0) continue;  // several changes in one pass
        Pump();
        windows[static_cast<std::size_t>(any(0, 7))]->Invalidate();  // which may lie behind others
        Pump();
        for (int y = 0; y < 240; ++y) {
            for (int x = 0; x < 320; ++x) {
                const PegThing* front = Manager().FirstChild();
                while (front != nullptr && !(front->IsVisible() && front->Real().Contains(PointOf(x, y))))
                    front = front->Next();
                const PegThing& shown = front != nullptr ? *front : Manager();
                ASSERT_EQ(Pixel(x, y), PegResources::GetColor(shown.GetColor(kBackground)))
                    << x << ", " << y << " in round " << round;
            }
        }
    }
    for (Recorder* window : windows) delete window;
}

TEST_F(Presentation, DrawsABurstOnceAndWritesTheFrameOnce) {
    auto& window = AddNew<Recorder>(Manager());
    auto& control = AddNew<Recorder>(window, RectOf(10, 10, 59, 59));
    Pump();
    window.drawn.clear();
    control.drawn.clear();
    Screen().flushes = 0;

    control.Invalidate(RectOf(10, 10, 20, 20));
    control.Invalidate(RectOf(15, 15, 30, 30));
    control.Invalidate(RectOf(12, 12, 40, 18));
    Pump();
    ASSERT_EQ(control.drawn.size(), 1U);
    EXPECT_EQ(control.drawn[0], RectOf(10, 10, 40, 30));
    EXPECT_TRUE(window.drawn.empty());
    EXPECT_EQ(Screen().flushes, 1);

    Pump();
    EXPECT_EQ(Screen().flushes, 1) << "nothing invalid, nothing written";
}

TEST_F(Presentation, LeavesToAnAncestorWhatItDrawsAnyway) {
    auto& window = AddNew<Recorder>(Manager());
    auto& control = AddNew<Recorder>(window, RectOf(10, 10, 59, 59));
    Pump();
    struct Case {
        PegRect window;
        std::vector<PegRect> control;  // what is left for it, and what the window draws of it
    };
    for (const Case& one : {Case{RectOf(0, 0, 99, 99), {RectOf(0, 0, 99, 99)}},
                            {RectOf(0, 0, 99, 29), {RectOf(10, 30, 59, 59), RectOf(0, 0, 99, 29)}},
                            {RectOf(0, 40, 99, 99), {RectOf(10, 10, 59, 39), RectOf(0, 40, 99, 99)}},
                            {RectOf(0, 0, 29, 99), {RectOf(30, 10, 59, 59), RectOf(0, 0, 29, 99)}},
                            {RectOf(40, 0, 99, 99), {RectOf(10, 10, 39, 59), RectOf(40, 0, 99, 99)}},
                            {RectOf(0, 20, 99, 40), {RectOf(10, 10, 59, 59), RectOf(0, 20, 99, 40)}},
                            {RectOf(30, 30, 99, 99), {RectOf(10, 10, 59, 59), RectOf(30, 30, 99, 99)}},
                            {RectOf(70, 0, 99, 99), {RectOf(10, 10, 59, 59)}}}) {
        control.drawn.clear();
        control.Invalidate();
        window.Invalidate(one.window);
        Pump();
        EXPECT_EQ(control.drawn, one.control);
    }
}

/// A window that is never content with what it drew.
class Restless : public Recorder {
public:
    using Recorder::Recorder;
    void Draw(const PegRect& invalid) override {
        Recorder::Draw(invalid);
        Invalidate();
        if (other != nullptr) other->Invalidate();
    }
    PegThing* other = nullptr;
};

TEST_F(Presentation, LeavesForTheNextPassWhatIsInvalidatedMeanwhile) {
    auto& window = AddNew<Recorder>(Manager());
    auto& restless = AddNew<Restless>(Manager(), RectOf(200, 0, 299, 99));
    auto& inside = AddNew<Recorder>(restless, RectOf(210, 10, 219, 19));
    Pump();
    window.drawn.clear();
    restless.drawn.clear();
    restless.other = &window;
    restless.Invalidate();
    for (std::int16_t i = 0; i < 600; ++i) inside.Invalidate(RectOf(210 + i % 10, 10, 210 + i % 10, 19));
    Manager().DrawInvalid();
    EXPECT_EQ(restless.drawn.size(), 1U) << "what it asked for itself is being drawn";
    EXPECT_TRUE(window.drawn.empty());
    EXPECT_TRUE(Manager().HasInvalidAreas());
    Pump();
    EXPECT_EQ(window.drawn.size(), 1U);
}

TEST_F(Presentation, EndsItsLoopWhenToldToOrWhenItsOwnRequestFindsNoWindowAndNothingWaiting) {
    static int exits = 0;
    Manager().SetExitCallback([] { ++exits; });
    auto& window = AddNew<Recorder>(Manager());
    PegMessage exit = MessageTo(Manager(), MSG_EXIT);
    toolkit.queue->Push(exit);
    EXPECT_EQ(Manager().Execute(), kExitLoop);
    EXPECT_EQ(exits, 1);

    exit.source = &Manager();
    EXPECT_EQ(Manager().Message(exit), 0);
    delete &window;
    static int waiting = 0;
    Manager().SetUserMessageCallback([](const PegMessage&) { return ++waiting; });
    toolkit.queue->Push(exit);
    toolkit.queue->Push(MessageTo(Manager(), kUser));
    EXPECT_EQ(Manager().Execute(), kExitLoop);
    EXPECT_EQ(waiting, 1);
}

TEST_F(Presentation, LeadsAModalWindowsInputToTheTaskThatRunsIt) {
    auto& elsewhere = AddNew<Recorder>(Manager(), RectOf(200, 0, 299, 99));
    static std::atomic<int> heard = 0;
    Manager().SetUserMessageCallback([](const PegMessage&) { return heard++; });
    for (const bool hasQueue : {false, true}) {
        auto& dialog = AddNew<Recorder>(Manager(), RectOf(0, 0, 50, 50));
        auto& control = AddNew<PegThing>(dialog, RectOf(0, 0, 9, 9));
        PegWindow before;
        const os::MessageQueueId own = os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo);
        const PegMessage toControl = MessageTo(control, kUser);
        if (hasQueue) {
            EXPECT_EQ(PegMessageQueue::EnqueueTaskMessage(toControl, own), 1);
        }
        std::thread task([&] {
            if (hasQueue) Manager().AddTaskRoute(before, os::taskIdSelf(), own);
            EXPECT_EQ(dialog.Execute(), 1002);
        });
        while (hasQueue ? heard == 1 : Manager().RouteToTaskQueue(toControl) == 0) os::taskDelay(1);
        EXPECT_EQ(Manager().RouteToTaskQueue(MessageOf(MSG_KEY_DOWN, 65)), 1) << "the dialog has the focus";
        EXPECT_EQ(Manager().RouteToTaskQueue(MessageOf(0x50)), 0);
        EXPECT_EQ(Manager().RouteToTaskQueue(MessageTo(elsewhere, kUser)), 0);
        const PegMessage ok = MessageTo(dialog, SIGNAL_TYPE(1002, kSignalSelected));
        EXPECT_EQ(toolkit.queue->Push(ok), 1);
        task.join();
        EXPECT_EQ(dialog.Count(kUser), 1);
        EXPECT_EQ(dialog.Count(MSG_KEY_DOWN), 1);
        EXPECT_EQ(Manager().RouteToTaskQueue(ok), 0) << "nobody runs it any more";
        Pump();
        EXPECT_EQ(Manager().FirstChild(), &elsewhere);
        PegMessageQueue::DeleteQueue(own);
    }
}

TEST_F(Presentation, RunsAModalWindowUntilItIsClosed) {
    auto& dialog = AddNew<Recorder>(Manager(), RectOf(0, 0, 50, 50));
    for (const std::uint16_t type : {kUser, SIGNAL_TYPE(1002, kSignalSelected)})
        toolkit.queue->Push(MessageTo(dialog, type));
    EXPECT_EQ(dialog.Execute(), 1002);
    EXPECT_EQ(dialog.Count(kUser), 1);
    Pump();
    EXPECT_EQ(Manager().FirstChild(), nullptr) << "it destroys itself";
}

}  // namespace
