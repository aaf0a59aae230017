#include "peg/core/thing.h"

#include <array>

#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

constexpr std::uint16_t kUser = MSG_FIRST_USER + 7;

class Things : public ToolkitTest {};

/// The children of a thing by id, front to back.
std::vector<int> Order(const PegThing& thing) {
    std::vector<int> ids;
    for (const PegThing* child = thing.FirstChild(); child != nullptr; child = child->Next())
        ids.push_back(child->Id());
    return ids;
}

TEST_F(Things, StandInFrontOfOlderSiblingsUnlessThoseStayInFrontAndAreFoundById) {
    Recorder window;
    for (std::uint16_t id = 1; id <= 3; ++id) AddNew<PegThing>(window, RectOf(0, 0, 9, 9), id);
    EXPECT_EQ(Order(window), (std::vector{3, 2, 1}));

    auto* staying = new PegThing(RectOf(0, 0, 9, 9), 4);
    staying->SetStatusBits(STAT_STAY_FRONT);
    window.AddChild(*staying);
    AddNew<PegThing>(window, RectOf(0, 0, 9, 9), std::uint16_t{5});
    EXPECT_EQ(Order(window), (std::vector{4, 5, 3, 2, 1}));

    window.AddChildAtEnd(*window.FindById(3, false));
    window.AddChild(*window.FindById(1, false));
    EXPECT_EQ(Order(window), (std::vector{4, 1, 5, 2, 3}));
    auto* region = new PegThing(RectOf(0, 0, 9, 9), 6);
    region->SetStatusBits(STAT_VIEWPORT);
    window.AddChildAtEnd(*region);
    EXPECT_EQ(Order(window), (std::vector{6, 4, 1, 5, 2, 3})) << "in front of what has no viewports";

    auto& deep = AddNew<PegThing>(*staying, std::uint16_t{9});
    EXPECT_EQ(window.FindById(9, false), nullptr);
    EXPECT_EQ(window.FindById(9, true), &deep);
    EXPECT_EQ(window.RemoveChild(deep), &deep) << "the request goes on to the parent";
    EXPECT_EQ(deep.Parent(), nullptr);
    delete &deep;
}

TEST_F(Things, AreVisibleWhileTheirParentIsAndClippedToIt) {
    auto& window = AddNew<Recorder>(Manager(), RectOf(10, 10, 59, 59));
    auto& child = AddNew<PegThing>(window, RectOf(40, 40, 99, 99));
    auto& deep = AddNew<PegThing>(child, RectOf(45, 45, 99, 99));
    EXPECT_TRUE(child.IsVisible());
    EXPECT_EQ(child.Clip(), RectOf(40, 40, 59, 59));

    window.Resize(RectOf(20, 10, 69, 59));
    EXPECT_EQ(child.Real(), RectOf(50, 40, 109, 99)) << "children move with the corner";
    EXPECT_EQ(child.Clip(), RectOf(50, 40, 69, 59));
    window.Resize(RectOf(20, 10, 64, 54));
    EXPECT_EQ(child.Real(), RectOf(50, 40, 109, 99)) << "the corner stayed";
    EXPECT_EQ(window.Clip(), RectOf(20, 10, 64, 54));
    EXPECT_EQ(child.Clip(), RectOf(50, 40, 64, 54));
    EXPECT_EQ(deep.Clip(), RectOf(55, 45, 64, 54));

    Manager().RemoveChild(window);
    EXPECT_FALSE(child.IsVisible());
    EXPECT_EQ(window.Parent(), nullptr);
    delete &window;
}

TEST_F(Things, MoveBetweenParentsAndOnlyTheRightOneMayTakeThem) {
    auto& window = AddNew<Recorder>(Manager(), RectOf(0, 0, 99, 99));
    auto& other = AddNew<Recorder>(Manager(), RectOf(100, 0, 199, 99));
    auto& child = AddNew<Recorder>(window, RectOf(0, 0, 9, 9), std::uint16_t{1});
    other.MoveToFront(child);
    EXPECT_EQ(child.Parent(), &window) << "no child of it";
    other.AddChildAtEnd(child);
    EXPECT_EQ(child.Parent(), &other);
    window.AddChild(child);
    EXPECT_EQ(child.Parent(), &window);

    struct Case {
        std::uint16_t type;
        bool hasSource;
        bool isForIt;
        PegThing* parentAfter;
    };
    for (const Case& one : {Case{MSG_ADD, false, true, &window},
                            {MSG_ADD, true, false, &window},
                            {MSG_ADD, true, true, &other},
                            {MSG_REMOVE, false, true, &other},
                            {MSG_REMOVE, true, false, &other},
                            {MSG_REMOVE, true, true, nullptr},
                            {MSG_DESTROY, false, true, nullptr}}) {
        PegMessage message = MessageTo(one.isForIt ? other : window, one.type);
        message.source = one.hasSource ? &child : nullptr;
        other.Message(message);
        EXPECT_EQ(child.Parent(), one.parentAfter) << one.type;
    }
    EXPECT_EQ(other.RemoveChild(child), nullptr) << "it stands nowhere";

    other.AddChildAtEnd(child, false);
    EXPECT_FALSE(child.IsVisible()) << "added without drawing";
    window.AddChild(child, false);
    window.Message(MessageOf(MSG_SHOW));
    Pump();
    EXPECT_FALSE(child.IsVisible());
    EXPECT_TRUE(child.drawn.empty());
    window.RemoveChild(child);
    window.AddChild(child);
    Pump();
    EXPECT_TRUE(child.IsVisible());
    EXPECT_FALSE(child.drawn.empty());
}

TEST_F(Things, TakeTheCanvasOfTheirParentUnlessTheyHaveOne) {
    Recorder window;
    window.SetCanvas(5, false);
    for (const std::int32_t own : {-1, 3}) {
        std::array things{new PegThing(RectOf(0, 0, 9, 9)), new PegThing(RectOf(0, 0, 9, 9))};
        for (PegThing* thing : things) thing->SetCanvas(own, false);
        window.AddChild(*things[0]);
        window.AddChildAtEnd(*things[1]);
        for (const PegThing* thing : things) EXPECT_EQ(thing->Canvas(), own == -1 ? 5 : own);
    }
    window.SetCanvas(6, true);
    EXPECT_EQ(window.FirstChild()->Canvas(), 6);
    PegMessage canvas = MessageOf(MSG_SET_CANVAS);
    canvas.data[0] = 7;
    window.Message(canvas);
    EXPECT_EQ(window.Canvas(), 7);
}

TEST_F(Things, PassUnknownMessagesUpToTheTopLevelWindowAndNoFurther) {
    auto& window = AddNew<Recorder>(Manager());
    auto& control = AddNew<PegThing>(window, RectOf(0, 0, 9, 9));
    static int reached = 0;
    Manager().SetUserMessageCallback([](const PegMessage&) { return ++reached; });

    control.Message(MessageOf(kUser));
    EXPECT_EQ(window.Count(kUser), 1);
    EXPECT_EQ(reached, 1) << "application codes go on to the presentation manager";
    control.Message(MessageOf(0x3FFF));
    EXPECT_EQ(window.Count(0x3FFF), 1);
    EXPECT_EQ(reached, 1);
}

TEST_F(Things, SignalOnlyWithAnIdAnEnabledSignalAndAVisibleParent) {
    auto& window = AddNew<Recorder>(Manager());
    auto& control = AddNew<PegThing>(window, RectOf(0, 0, 9, 9), std::uint16_t{3});
    AddNew<Recorder>(Manager(), RectOf(0, 0, 9, 9), std::uint16_t{3});  // another of that number
    EXPECT_FALSE(control.Signal(kSignalSelected));
    control.EnableSignal(kSignalSelected);
    EXPECT_TRUE(control.Signal(kSignalSelected));
    Pump();
    ASSERT_EQ(window.Count(SIGNAL_TYPE(3, kSignalSelected)), 1);
    EXPECT_EQ(window.received.back().source, &control);
    EXPECT_EQ(window.received.back().param, 3);

    EXPECT_TRUE(control.Signal(kSignalSelected));
    delete &control;
    Pump();
    EXPECT_EQ(window.Count(SIGNAL_TYPE(3, kSignalSelected)), 1) << "what the dead had to say is not heard";
    auto& hidden = AddNew<PegThing>(window, std::uint16_t{3});
    hidden.EnableSignal(kSignalSelected);
    Manager().RemoveChild(window);
    EXPECT_FALSE(hidden.Signal(kSignalSelected));
    window.RemoveChild(hidden);
    EXPECT_FALSE(hidden.Signal(kSignalSelected));
    EXPECT_EQ(hidden.Message(MessageOf(kUser)), 0);
    window.Destroy(hidden);
    delete &window;
}

TEST_F(Things, GetNoMessageOnceTheyAreDead) {
    auto& window = AddNew<Recorder>(Manager());
    auto* dying = new Recorder(RectOf(0, 0, 9, 9), 3);
    window.AddChild(*dying);
    auto& inside = AddNew<PegThing>(*dying, RectOf(0, 0, 5, 5), std::uint16_t{4});
    for (PegThing* target : {static_cast<PegThing*>(dying), &inside, static_cast<PegThing*>(&window)})
        toolkit.queue->Push(MessageTo(*target, kUser, 1));
    PegMessage signal = MessageTo(window, SIGNAL_TYPE(3, 4));
    signal.source = dying;
    toolkit.queue->Push(signal);
    toolkit.queue->Push(MessageTo(window, kUser));
    window.Destroy(*dying);
    Pump();
    EXPECT_EQ(window.Count(kUser), 2) << "messages of the living arrive, in their order";
    EXPECT_EQ(window.received.back().param, 0);
    EXPECT_EQ(window.Count(SIGNAL_TYPE(3, 4)), 0) << "no message from the dead either";

    SetTimer(AddNew<Recorder>(window), 1, 1, 1);
    window.Destroy(window);
    EXPECT_EQ(Manager().FirstChild(), &window) << "not while a message may still be handled";
    Pump();
    EXPECT_EQ(Manager().FirstChild(), nullptr);
    Ticks(2);  // the timers of everything inside went with it
}

class Focus : public ToolkitTest {
protected:
    Recorder& window = AddNew<Recorder>(Manager(), RectOf(0, 0, 199, 199));
    Recorder& AddControl(int x, int y, std::uint16_t id) {
        auto& control = AddNew<Recorder>(window, RectOf(x, y, x + 19, y + 19), id);
        control.ClearStatusBits(STAT_FRONT_ON_FOCUS | STAT_VIEWPORT);
        return control;
    }
    /// Arrow keys, and where each leads from where the one before led.
    struct Step {
        std::int16_t key;
        PegThing& to;
    };
    static void Walk(std::initializer_list<Step> steps) {
        for (const Step& step : steps) {
            Manager().Focus()->HandleKey(MessageOf(MSG_KEY_DOWN, step.key));
            EXPECT_EQ(Manager().Focus(), &step.to) << step.key;
        }
    }
};

TEST_F(Focus, MovesByArrowsToTheNearestInLineAndElseToTheNearestAtAll) {
    Recorder& middle = AddControl(80, 80, 1);
    Recorder& right = AddControl(140, 85, 2);
    Recorder& above = AddControl(120, 20, 3);
    Manager().SetFocus(middle);
    // Nothing stands straight above.
    Walk({{kKeyRight, right}, {kKeyLeft, middle}, {kKeyUp, above}, {kKeyUp, above}});
}

TEST_F(Focus, MovesByArrowsIntoTheGroupBesideItsOwn) {
    auto& left = AddNew<Recorder>(window, RectOf(0, 0, 59, 99));
    auto& right = AddNew<Recorder>(window, RectOf(100, 0, 159, 99));
    auto& upperLeft = AddNew<PegThing>(left, RectOf(10, 10, 19, 19));
    auto& lowerLeft = AddNew<PegThing>(left, RectOf(20, 60, 29, 69));
    auto& upperRight = AddNew<PegThing>(right, RectOf(110, 12, 119, 21));
    auto& lowerRight = AddNew<PegThing>(right, RectOf(110, 62, 119, 71));
    Manager().SetFocus(upperLeft);
    Walk({{kKeyRight, lowerLeft},
          {kKeyRight, lowerRight},
          {kKeyRight, lowerRight},
          {kKeyUp, upperRight},
          {kKeyLeft, upperLeft},
          {kKeyDown, lowerLeft}});
    upperRight.ClearStatusBits(STAT_ACCEPTS_FOCUS);
    lowerRight.ClearStatusBits(STAT_ACCEPTS_FOCUS);
    PegMessage withShift = MessageOf(MSG_KEY_DOWN, kKeyRight);
    withShift.data[0] = 1;
    lowerLeft.HandleKey(withShift);
    EXPECT_EQ(Manager().Focus(), &lowerLeft);
    Walk({{kKeyRight, right}});  // the group itself, when nothing in it takes the focus

    Recorder alone;
    auto& inside = AddNew<PegThing>(alone, RectOf(0, 0, 9, 9));
    EXPECT_FALSE(inside.MoveFocusByArrow(kKeyUp));
    EXPECT_FALSE(alone.MoveFocusByArrow(kKeyUp));
    EXPECT_EQ(alone.HandleKey(MessageOf(MSG_KEY_DOWN, kKeyEnter)), 0);
}

TEST_F(Focus, MarksThePathAndTellsOldAndNewOwner) {
    Recorder& first = AddControl(0, 0, 1);
    Recorder& second = AddControl(40, 0, 2);
    first.EnableSignal(kSignalFocusLost);
    Manager().SetFocus(first);
    EXPECT_TRUE(first.HasStatus(STAT_CURRENT) && window.HasStatus(STAT_CURRENT));
    Manager().SetFocus(second);
    Pump();
    EXPECT_FALSE(first.HasStatus(STAT_CURRENT));
    EXPECT_TRUE(second.HasStatus(STAT_CURRENT) && second.HasStatus(STAT_FOCUS_CHILD));
    EXPECT_FALSE(first.HasStatus(STAT_FOCUS_CHILD));
    EXPECT_EQ(first.Count(MSG_INPUT_OUT), 1);
    EXPECT_EQ(second.Count(MSG_INPUT_IN), 1);
    EXPECT_EQ(window.Count(SIGNAL_TYPE(1, kSignalFocusLost)), 1);
    EXPECT_EQ(Order(window), (std::vector{2, 1}));
    first.SetStatusBits(STAT_FRONT_ON_FOCUS);
    Manager().SetFocus(first);
    EXPECT_EQ(Order(window), (std::vector{1, 2}));
}

TEST_F(Focus, GoesByDefaultToTheChildThatHadItLast) {
    Recorder& first = AddControl(0, 0, 1);
    Recorder& second = AddControl(40, 0, 2);
    Manager().SetFocus(first);
    Manager().SetFocus(Manager());
    EXPECT_EQ(Manager().Focus(), nullptr);
    window.SetDefaultFocus();
    EXPECT_EQ(Manager().Focus(), &first);

    Manager().SetFocus(Manager());
    first.ClearStatusBits(STAT_FOCUS_CHILD);
    second.SetStatusBits(STAT_KEEP_FOCUS_CHILD);
    window.SetDefaultFocus();
    EXPECT_EQ(Manager().Focus(), &second) << "taken at once, wherever it stands";
}

TEST_F(Focus, GoesByDefaultIntoTheDeepestThingThatTakesItWhenNoneHadIt) {
    Recorder& deaf = AddControl(0, 0, 1);
    deaf.ClearStatusBits(STAT_ACCEPTS_FOCUS);
    Recorder& outer = AddControl(40, 0, 2);
    auto& inner = AddNew<PegThing>(outer, RectOf(42, 2, 50, 10));
    auto& frame = AddNew<PegThing>(window, RectOf(0, 40, 9, 49));
    frame.SetStatusBits(STAT_NO_CLIENT_CLIP);
    window.SetDefaultFocus();
    EXPECT_EQ(Manager().Focus(), &inner);
    window.SetDefaultFocus();
    EXPECT_EQ(Manager().Focus(), &inner);
    Manager().SetFocus(frame);
    EXPECT_FALSE(frame.HasStatus(STAT_FOCUS_CHILD)) << "never the preferred one";
    outer.SetStatusBits(STAT_KEEP_FOCUS_CHILD);
    window.SetDefaultFocus();
    EXPECT_EQ(Manager().Focus(), &outer) << "and not what is in it";
    Recorder empty;
    empty.SetDefaultFocus();
    EXPECT_EQ(Manager().Focus(), &outer);
}

TEST_F(Focus, IsRefusedToWhatIsHiddenOrDeafAndForgottenOfAThingThatDiesHidden) {
    Recorder& control = AddControl(0, 0, 1);
    Manager().SetFocus(control);
    Recorder& deaf = AddControl(40, 0, 2);
    deaf.ClearStatusBits(STAT_ACCEPTS_FOCUS);
    Manager().SetFocus(deaf);
    Recorder hidden;
    Manager().SetFocus(hidden);
    EXPECT_EQ(Manager().Focus(), &control);
    control.Message(MessageOf(MSG_HIDE));
    delete &control;
    EXPECT_EQ(Manager().Focus(), nullptr);
}

}  // namespace
