#include "peg/core/presentation_manager.h"
#include "tests/bench/toolkit_bench.h"
#include "tests/peg/recorder.h"

namespace {

/// A window with two things side by side, the left one with a thing in it.
class Pointer : public ToolkitBench {
protected:
    void Send(std::uint16_t type, PegPoint point) {
        PegMessage message = MessageOf(type);
        message.SetPoint(point);
        Manager().DispatchMessage(message);
    }

    Recorder& m_window = AddNew<Recorder>(Manager());
    Recorder& m_left = AddNew<Recorder>(m_window, RectOf(0, 0, 49, 99));
    Recorder& m_right = AddNew<Recorder>(m_window, RectOf(50, 0, 99, 99));
    Recorder& m_inner = AddNew<Recorder>(m_left, RectOf(10, 10, 29, 29));
};

constexpr PegPoint kInner{20, 20};
constexpr PegPoint kRight{70, 20};
constexpr PegPoint kOutside{200, 200};

TEST_F(Pointer, ReachesTheDeepestThingThatCanBeHit) {
    Send(MSG_POINTER_MOVE, kInner);
    EXPECT_EQ(m_inner.Count(MSG_POINTER_MOVE), 1);
    m_inner.ClearStatusBits(STAT_SELECTABLE);
    Send(MSG_POINTER_MOVE, kInner);
    EXPECT_EQ(m_inner.Count(MSG_POINTER_MOVE), 1);
    EXPECT_EQ(m_left.Count(MSG_POINTER_MOVE), 2) << "what the inner thing passed up, and the second";
    Send(MSG_POINTER_MOVE, kOutside);
    EXPECT_EQ(m_window.Count(MSG_POINTER_MOVE), 2) << "nothing is there";
}

TEST_F(Pointer, TellsThingsWhenItComesAndGoes) {
    Send(MSG_POINTER_MOVE, kInner);
    Send(MSG_POINTER_MOVE, kInner);
    EXPECT_EQ(m_inner.Count(MSG_POINTER_ENTER), 1);
    EXPECT_EQ(m_inner.Count(MSG_POINTER_LEAVE), 0);
    Send(MSG_POINTER_MOVE, kRight);
    EXPECT_EQ(m_inner.Count(MSG_POINTER_LEAVE), 1);
    EXPECT_EQ(m_right.Count(MSG_POINTER_ENTER), 1);
    Send(MSG_POINTER_MOVE, kOutside);
    EXPECT_EQ(m_right.Count(MSG_POINTER_LEAVE), 1);
}

TEST_F(Pointer, BringsTheFocusWhereItIsPressed) {
    Send(MSG_BUTTON_DOWN, kRight);
    EXPECT_EQ(Manager().Focus(), &m_right);
    m_inner.ClearStatusBits(STAT_ACCEPTS_FOCUS);
    Send(MSG_BUTTON_DOWN, kInner);
    EXPECT_EQ(Manager().Focus(), &m_left) << "the nearest that takes it";
    Send(MSG_BUTTON_UP, kRight);
    EXPECT_EQ(Manager().Focus(), &m_left);
}

TEST_F(Pointer, StaysWithWhoCapturedItUntilItIsReleasedOrGone) {
    Manager().CapturePointer(m_right);
    Manager().CapturePointer(m_inner);
    Manager().ReleasePointer(m_right);
    Send(MSG_POINTER_MOVE, kOutside);
    EXPECT_EQ(m_inner.Count(MSG_POINTER_MOVE), 1) << "only the last one can let go";
    Manager().ReleasePointer(m_inner);
    Send(MSG_POINTER_MOVE, kOutside);
    EXPECT_EQ(m_right.Count(MSG_POINTER_MOVE), 1);

    m_window.RemoveChild(m_right);
    Send(MSG_POINTER_MOVE, kInner);
    EXPECT_EQ(m_right.Count(MSG_POINTER_MOVE), 1);
    EXPECT_EQ(m_right.Count(MSG_POINTER_LEAVE), 0) << "who is gone hears nothing more";
    EXPECT_EQ(m_inner.Count(MSG_POINTER_MOVE), 2);
    delete &m_right;
}

}  // namespace
