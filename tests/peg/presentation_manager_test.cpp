#include "peg/core/presentation_manager.h"

#include "peg/widgets/prompt.h"
#include "tests/bench/toolkit_bench.h"
#include "tests/peg/recorder.h"

namespace {

constexpr std::uint16_t kUser = MSG_FIRST_USER + 1;

class Presentation : public ToolkitBench {};

TEST_F(Presentation, GivesANewScreenTheInputAndForgetsARemovedOne) {
    auto& first = AddNew<Recorder>(Manager());
    EXPECT_EQ(Manager().Focus(), &first);
    auto& second = AddNew<Recorder>(Manager(), RectOf(50, 50, 149, 149));
    EXPECT_EQ(Manager().Focus(), &second);
    EXPECT_EQ(first.Count(MSG_INPUT_OUT), 1);
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
    auto& window = AddNew<Recorder>(Manager());
    auto& deep = AddNew<Recorder>(window, RectOf(0, 0, 9, 9), std::uint16_t{12});
    Manager().DispatchMessage(MessageOf(kUser, 12));
    EXPECT_EQ(deep.Count(kUser), 1);
    Manager().DispatchMessage(MessageOf(kUser, 13));
    EXPECT_EQ(window.Count(kUser), 1) << "only what the deep thing passed up";
    Manager().DispatchMessage(MessageOf(0x50));
    EXPECT_EQ(window.Count(0x50), 1) << "the focus owner";
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
    control.drawn.clear();
    control.Invalidate(RectOf(20, 20, 30, 30));
    window.Invalidate();
    Pump();
    EXPECT_EQ(control.drawn.size(), 1U) << "with the window, not a second time";
    control.drawn.clear();
    control.Invalidate(RectOf(10, 10, 59, 59));
    window.Invalidate(RectOf(0, 0, 99, 29));
    Pump();
    ASSERT_EQ(control.drawn.size(), 2U);
    EXPECT_EQ(control.drawn[0], RectOf(10, 30, 59, 59)) << "less what the window covers";
}

TEST_F(Presentation, DrawsNothingOfWhatLiesBehindAnotherWindow) {
    auto& back = AddNew<Recorder>(Manager(), RectOf(0, 0, 99, 99));
    back.SetColor(kBackground, 9);                                                  // red
    AddNew<Recorder>(Manager(), RectOf(20, 20, 79, 79)).SetColor(kBackground, 10);  // green
    Pump();
    back.Invalidate();
    Pump();
    EXPECT_EQ(Pixel(19, 50), 0xF800);
    EXPECT_EQ(Pixel(20, 50), 0x07E0);
    EXPECT_EQ(Pixel(79, 79), 0x07E0);
    EXPECT_EQ(Pixel(80, 79), 0xF800);
}

TEST_F(Presentation, LetsAParentDrawItsTransparentChildren) {
    auto& window = AddNew<Recorder>(Manager());
    auto& prompt =
        AddNew<PegPrompt>(window, RectOf(10, 10, 59, 25), u"A", std::uint16_t{0}, kStyleTransparent | kStyleBorderNone);
    Pump();
    window.drawn.clear();
    prompt.SetText(u"B");
    Pump();
    ASSERT_EQ(window.drawn.size(), 1U);
    EXPECT_EQ(window.drawn[0], prompt.Real());
}

TEST_F(Presentation, EndsItsLoopWhenToldTo) {
    AddNew<Recorder>(Manager());
    PegMessage exit = MessageOf(MSG_EXIT);
    exit.target = &Manager();
    toolkit.queue->Push(exit);
    static int exits = 0;
    Manager().SetExitCallback([] { ++exits; });
    EXPECT_EQ(Manager().Execute(), kExitLoop);
    EXPECT_EQ(exits, 1);
}

TEST_F(Presentation, RunsAModalWindowUntilItIsClosed) {
    auto* dialog = new Recorder(RectOf(0, 0, 50, 50));
    Manager().AddChild(*dialog);
    PegMessage before = MessageOf(kUser, 0);
    before.target = dialog;
    PegMessage ok = MessageOf(SIGNAL_TYPE(1002, kSignalSelected));
    ok.target = dialog;
    toolkit.queue->Push(before);
    toolkit.queue->Push(ok);
    EXPECT_EQ(dialog->Execute(), 1002);
    EXPECT_EQ(dialog->Count(kUser), 1);
    Pump();
    EXPECT_EQ(Manager().FirstChild(), nullptr) << "it destroys itself";
}

}  // namespace
