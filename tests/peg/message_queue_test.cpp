#include "peg/core/message_queue.h"

#include "peg/core/timer_list.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

constexpr std::uint16_t kUser = MSG_FIRST_USER + 7;
constexpr std::int16_t kRoom = kQueueMessages;

class Queue : public ToolkitTest {
protected:
    Recorder& window = AddNew<Recorder>(Manager());

    PegMessage ToWindow(std::int16_t param) { return MessageTo(window, kUser, param); }
};

TEST_F(Queue, LosesWhatIsTooMuchAndDeliversTheRestInOrder) {
    Pump();
    for (std::int16_t i = 0; i < kRoom; ++i) EXPECT_EQ(toolkit.queue->Push(ToWindow(i)), 1);
    testing::internal::CaptureStdout();
    EXPECT_EQ(toolkit.queue->Push(ToWindow(99)), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "EnqueueTaskMessage: msgQSend failed\n");
    Pump();
    ASSERT_EQ(window.Count(kUser), kRoom);
    EXPECT_EQ(window.received.back().param, kRoom - 1);
    EXPECT_EQ(toolkit.queue->Push(ToWindow(1)), 1) << "later messages are delivered again";
}

TEST_F(Queue, NeverDeliversAnEmptyMessageAndCarriesOneTickAtMost) {
    EXPECT_EQ(toolkit.queue->PushDirect(MessageOf(0)), 1);
    for (int i = 0; i < 100; ++i) postToolkitTick();
    const std::uint32_t before = timerTickCount();
    Pump();
    EXPECT_EQ(timerTickCount(), before + 1);
    EXPECT_EQ(window.Count(0), 0);
    EXPECT_EQ(window.Count(MSG_TIMER), 0);
    postToolkitTick();
    Pump();
    EXPECT_EQ(timerTickCount(), before + 2);
}

TEST_F(Queue, KeepsTheRestWhenAThingIsPurgedFromAFullQueue) {
    Recorder other;
    for (std::int16_t i = 0; i < kRoom; ++i)
        EXPECT_EQ(toolkit.queue->PushDirect(MessageTo(i % 2 == 0 ? other : window, kUser, i)), 1);
    toolkit.queue->Purge(other);
    for (std::int16_t i = 100; i < 140; ++i) EXPECT_EQ(toolkit.queue->Push(ToWindow(i)), 1);
    toolkit.queue->Purge(other);
    Pump();
    EXPECT_EQ(window.Count(kUser), kRoom / 2 + 40);
    EXPECT_TRUE(other.received.empty());
    EXPECT_EQ(window.received.back().param, 139);
}

class Timers : public Queue {
protected:
    std::ptrdiff_t Fired(std::int16_t id) const {
        return std::ranges::count_if(window.received, [id](const PegMessage& message) {
            return message.type == MSG_TIMER && message.param == id;
        });
    }
};

TEST_F(Timers, FireOnceOrAgainAndAgainAndStartAnewWhenSetTwice) {
    SetTimer(window, 1, 20, 0);
    SetTimer(window, 2, 1, 5);
    SetTimer(window, 3, 5, 0);
    Ticks(4);
    SetTimer(window, 3, 5, 0);
    Ticks(4);
    EXPECT_EQ(Fired(3), 0);
    Ticks(11);
    EXPECT_EQ(Fired(1), 0);
    EXPECT_EQ(Fired(2), 4);  // at 1, 6, 11 and 16
    EXPECT_EQ(Fired(3), 1);
    Ticks(1);
    EXPECT_EQ(Fired(1), 1);
    Ticks(40);
    EXPECT_EQ(Fired(1), 1);
}

TEST_F(Timers, ThatFireOnceDoSoLaterWhenTheQueueIsFull) {
    SetTimer(window, 1, 1, 0);
    SetTimer(window, 2, 1, 0);
    postToolkitTick();
    while (toolkit.queue->Push(ToWindow(0)) != 0) {
    }
    Pump();
    EXPECT_EQ(Fired(1) + Fired(2), 1) << "the tick left room for one";
    Ticks(3);
    EXPECT_EQ(Fired(1), 1);
    EXPECT_EQ(Fired(2), 1);
}

TEST_F(Timers, AreKilledOneByOneOrWithAllInside) {
    auto& control = AddNew<Recorder>(window, RectOf(0, 0, 9, 9));
    auto& other = AddNew<Recorder>(Manager());
    SetTimer(other, 1, 1, 1);
    SetTimer(window, 1, 1, 1);
    SetTimer(window, 2, 1, 1);
    SetTimer(control, 7, 1, 1);
    KillTimer(window, 2);
    Ticks(1);
    EXPECT_EQ(Fired(1), 1);
    EXPECT_EQ(Fired(2), 0);
    EXPECT_EQ(control.Count(MSG_TIMER), 1);
    KillTimer(window, 0, true);
    Ticks(3);
    EXPECT_EQ(Fired(1), 1);
    EXPECT_EQ(control.Count(MSG_TIMER), 1);
    EXPECT_EQ(other.Count(MSG_TIMER), 4);
}

TEST_F(Timers, RunInAnyNumberAndNeverFireWithACountBelowOne) {
    for (std::uint16_t id = 1; id <= 40; ++id) SetTimer(window, id, 1, 0);
    SetTimer(window, 41, 0, 1);
    SetTimer(window, 42, -3, 1);
    Ticks(50);
    for (std::int16_t id = 1; id <= 42; ++id) EXPECT_EQ(Fired(id), id <= 40 ? 1 : 0) << id;
}

}  // namespace
