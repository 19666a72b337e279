// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/sdlinput.h"

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "quarn2/glrender.h"
#include "tests/support/allocations.h"
#include "tests/support/event_queue.h"
#include "tests/support/library_calls.h"
#include "tests/support/trace_fixture.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kInputChannels = 1U << 6 | 1U << 8;

/// Keeps the input events that it receives.
class Listener : public EventCatcher {
public:
    Listener() : EventCatcher(nullptr) {}

    bool GotEvent(Event ev) override {
        order.push_back(ev.type);
        (ev.type == KeyEvent ? keys : mice).push_back(ev);
        return ev.type != failing;
    }

    std::vector<std::uint32_t> order;
    std::vector<Event> keys;
    std::vector<Event> mice;
    std::uint32_t failing = 0;
};

std::vector<std::size_t> Set(const KeyFlags& flags) {
    std::vector<std::size_t> indexes;
    for (std::size_t index = 0; index < flags.size(); ++index) {
        if (flags[index])
            indexes.push_back(index);
    }
    return indexes;
}

class InputTest : public testing::Test {
protected:
    explicit InputTest(bool grab = false) {
        kernel->AddChild(static_cast<Listener*>(listener), kInputChannels, 0);
        input = new SDLInput(kernel, grab);
        EXPECT_TRUE(input->Init());
        Calls() = {};
    }
    ~InputTest() override {
        input->Close();
        Calls() = {};
        kernel->RemoveChild(static_cast<SDLInput*>(input));  // each holds the other
        kernel = nullptr;
        input = nullptr;
        listener = nullptr;
        MMObject::CollectGarbage();
        MMObject::CollectGarbage();
        EXPECT_EQ(MMObject::RegisteredCount(), 0U) << "the test left objects behind";
    }

    const Event& Keys() const { return listener->keys.back(); }
    std::vector<std::size_t> Down() const { return Set(Keys().keyboard.down); }
    std::vector<std::size_t> Pressed() const { return Set(Keys().keyboard.pressed); }

    void Update(std::uint32_t milliseconds) { EXPECT_TRUE(input->Update(milliseconds)); }

    /// Updates. @return whether the key is then reported as pressed
    bool PressedAfter(std::uint32_t milliseconds, std::size_t key = 'a') {
        Update(milliseconds);
        return Keys().keyboard.pressed[key];
    }

    EventQueue queue;
    Pointer<Kernel> kernel = new Kernel;
    Pointer<Listener> listener = new Listener;
    Pointer<SDLInput> input;
};

TEST_F(InputTest, KeyEventIsSentInEveryUpdateEvenWithoutInput) {
    EXPECT_TRUE(input->Update(10));
    EXPECT_TRUE(input->Update(10));
    EXPECT_THAT(listener->order, ElementsAre(KeyEvent, KeyEvent));
    EXPECT_THAT(Keys().keyboard.down, Each(false));
    EXPECT_THAT(Keys().keyboard.pressed, Each(false));
}

TEST_F(InputTest, KeyIsPressedOnceAndDownUntilItsRelease) {
    EventQueue::PushKey(true, 'a', 'a');
    Update(10);
    EXPECT_THAT(Pressed(), ElementsAre('a'));
    EXPECT_THAT(Down(), ElementsAre('a'));
    Update(10);
    EXPECT_THAT(Pressed(), IsEmpty());
    EXPECT_THAT(Down(), ElementsAre('a'));
    EventQueue::PushKey(false, 'a');
    Update(10);
    EXPECT_THAT(Pressed(), IsEmpty());
    EXPECT_THAT(Down(), IsEmpty());
}

TEST_F(InputTest, KeyPressedAndReleasedWithinOneUpdateIsNotSeen) {
    EventQueue::PushKey(true, 'a', 'a');
    EventQueue::PushKey(false, 'a');
    Update(10);
    EXPECT_THAT(Pressed(), IsEmpty());
    EXPECT_THAT(Down(), IsEmpty());
}

TEST_F(InputTest, KeyReleasedAndPressedWithinOneUpdateIsPressedAgain) {
    EventQueue::PushKey(true, 'a', 'a');
    Update(10);
    Update(10);
    EventQueue::PushKey(false, 'a');
    EventQueue::PushKey(true, 'a', 'a');
    Update(10);
    EXPECT_THAT(Pressed(), ElementsAre('a'));
}

TEST_F(InputTest, HeldKeyRepeatsAfterMoreThanSevenHundredMilliseconds) {
    EventQueue::PushKey(true, 'a', 'a');
    EXPECT_TRUE(PressedAfter(5000)) << "the update of the press itself is not counted";
    EXPECT_FALSE(PressedAfter(699));
    EXPECT_FALSE(PressedAfter(1));
    EXPECT_TRUE(PressedAfter(1));
}

TEST_F(InputTest, SecondRepeatFollowsRightAfterTheFirst) {
    EventQueue::PushKey(true, 'a', 'a');
    Update(1);
    EXPECT_TRUE(PressedAfter(701));
    EXPECT_TRUE(PressedAfter(0));
    EXPECT_FALSE(PressedAfter(0));
}

TEST_F(InputTest, FurtherRepeatsComeAfterMoreThanThirtyMilliseconds) {
    EventQueue::PushKey(true, 'a', 'a');
    Update(1);
    Update(701);
    Update(0);
    for (int repeat = 0; repeat < 3; ++repeat) {
        EXPECT_FALSE(PressedAfter(15));
        EXPECT_FALSE(PressedAfter(15));
        EXPECT_TRUE(PressedAfter(1));
    }
    EXPECT_TRUE(PressedAfter(1000));
    EXPECT_FALSE(PressedAfter(30)) << "the rest of a long update does not count";
}

TEST_F(InputTest, RepeatingKeyStaysDown) {
    EventQueue::PushKey(true, 'a', 'a');
    for (const std::uint32_t elapsed : {1U, 701U, 0U, 5U})
        Update(elapsed);
    EXPECT_THAT(Down(), ElementsAre('a'));
    EXPECT_THAT(Pressed(), IsEmpty());
}

TEST_F(InputTest, ReleaseRestartsTheRepeatDelay) {
    EventQueue::PushKey(true, 'a', 'a');
    Update(1);
    Update(650);
    EventQueue::PushKey(false, 'a');
    Update(1);
    EventQueue::PushKey(true, 'a', 'a');
    EXPECT_TRUE(PressedAfter(1));
    EXPECT_FALSE(PressedAfter(700));
    EXPECT_TRUE(PressedAfter(1));
    EXPECT_TRUE(PressedAfter(0));
}

TEST_F(InputTest, VeryLongUpdatesDoNotOverflow) {
    EventQueue::PushKey(true, 'a', 'a');
    for (int update = 0; update < 10; ++update)
        EXPECT_TRUE(input->Update(0xFFFFFFFFU));
    EXPECT_THAT(Down(), ElementsAre('a'));
}

TEST_F(InputTest, ShiftedLetterMarksBothItsSymbolAndItsCharacter) {
    EventQueue::PushKey(true, 'a', 'A');
    Update(10);
    EXPECT_THAT(Pressed(), ElementsAre('A', 'a'));
    EXPECT_THAT(Down(), ElementsAre('A', 'a'));
}

TEST_F(InputTest, ReleaseOfAShiftedLetterLeavesItsCharacterRepeating) {
    EventQueue::PushKey(true, 'a', 'A');
    Update(10);
    EventQueue::PushKey(false, 'a');
    Update(10);
    EXPECT_THAT(Down(), ElementsAre('A'));
    EXPECT_TRUE(PressedAfter(700, 'A'));
    EXPECT_THAT(Pressed(), ElementsAre('A'));
}

TEST_F(InputTest, PressWithoutACharacterMarksIndexZero) {
    EventQueue::PushKey(true, SDLK_F1);
    Update(10);
    EXPECT_THAT(Pressed(), ElementsAre(0, SDLK_F1));
    EventQueue::PushKey(false, SDLK_F1);
    Update(10);
    EXPECT_THAT(Down(), IsEmpty());
}

TEST_F(InputTest, EveryReleaseClearsIndexZero) {
    EventQueue::PushKey(true, SDLK_F1);
    EventQueue::PushKey(true, 'b', 'b');
    Update(10);
    EXPECT_THAT(Down(), ElementsAre(0, 'b', SDLK_F1));
    EventQueue::PushKey(false, 'b');
    Update(10);
    EXPECT_THAT(Down(), ElementsAre(SDLK_F1));
}

TEST_F(InputTest, ReleaseWithACharacterClearsThatCharacter) {
    EventQueue::PushKey(true, 'a', 'A');
    EventQueue::PushKey(false, 'a', 'A');
    Update(10);
    EXPECT_THAT(Down(), IsEmpty());
}

TEST_F(InputTest, CodesOf512AndAboveAreIgnored) {
    EventQueue::PushKey(true, 'e', 0x20AC);
    EventQueue::PushKey(true, 512, 0xFFFF);
    EventQueue::PushKey(true, 0x7FFFFFFF, 512);
    EventQueue::PushKey(true, -1, 511);
    Update(10);
    EXPECT_THAT(Down(), ElementsAre('e', 511));
    EventQueue::PushKey(false, 512, 512);
    EventQueue::PushKey(false, 511, 0xFFFF);
    Update(10);
    EXPECT_THAT(Down(), ElementsAre('e'));
}

TEST_F(InputTest, KeysAreTimedIndependently) {
    EventQueue::PushKey(true, 'a', 'a');
    Update(1);
    Update(400);
    EventQueue::PushKey(true, 'b', 'b');
    Update(1);
    EXPECT_TRUE(PressedAfter(300));
    EXPECT_FALSE(Keys().keyboard.pressed['b']);
}

TEST_F(InputTest, ModifiersAreReported) {
    SDL_SetModState(static_cast<SDLMod>(KMOD_LSHIFT | KMOD_RALT));
    Update(10);
    EXPECT_EQ(Keys().keyboard.mods, 0x0201U);
    SDL_SetModState(KMOD_NONE);
    Update(10);
    EXPECT_EQ(Keys().keyboard.mods, 0U);
}

TEST_F(InputTest, FirstMouseMovementIsNotReported) {
    EventQueue::PushMotion(100, 50);
    Update(10);
    EXPECT_THAT(listener->mice, IsEmpty());
}

TEST_F(InputTest, LaterMovementsReportTheMotionSinceTheLast) {
    EventQueue::PushMotion(100, 50);
    Update(10);
    EventQueue::PushMotion(103, 45);
    Update(10);
    ASSERT_EQ(listener->mice.size(), 1U);
    const Event& mouse = listener->mice[0];
    EXPECT_EQ(mouse.x, 103);
    EXPECT_EQ(mouse.y, 45);
    EXPECT_EQ(mouse.z, 0);
    EXPECT_EQ(mouse.dx, 3);
    EXPECT_EQ(mouse.dy, 5) << "upwards is positive";
    EXPECT_EQ(mouse.dz, 0);
    EventQueue::PushMotion(100, 48);
    Update(10);
    ASSERT_EQ(listener->mice.size(), 2U);
    EXPECT_EQ(listener->mice[1].dx, -3);
    EXPECT_EQ(listener->mice[1].dy, -3);
}

TEST_F(InputTest, MovementsOfOneUpdateAreOneEvent) {
    EventQueue::PushMotion(0, 0);
    Update(10);
    EventQueue::PushMotion(10, 10);
    EventQueue::PushMotion(20, 5);
    Update(10);
    ASSERT_EQ(listener->mice.size(), 1U);
    EXPECT_EQ(listener->mice[0].dx, 20);
    EXPECT_EQ(listener->mice[0].dy, -5);
}

TEST_F(InputTest, MouseThatDoesNothingIsNotReported) {
    EventQueue::PushMotion(10, 10);
    Update(10);
    EventQueue::PushKey(true, 'a', 'a');
    Update(10);
    Update(10);
    EXPECT_THAT(listener->mice, IsEmpty());
}

TEST_F(InputTest, ButtonsAreReportedUntilTheirRelease) {
    EventQueue::PushMotion(10, 10);
    Update(10);
    EventQueue::PushButton(true, 1, 11, 12);
    EventQueue::PushButton(true, 3, 13, 14);
    Update(10);
    EventQueue::PushButton(false, 1, 15, 16);
    EventQueue::PushButton(true, 2, 17, 18);
    Update(10);
    EventQueue::PushMotion(19, 20);
    Update(10);
    ASSERT_EQ(listener->mice.size(), 3U);
    EXPECT_TRUE(listener->mice[0].left);
    EXPECT_FALSE(listener->mice[0].middle);
    EXPECT_TRUE(listener->mice[0].right);
    EXPECT_EQ(listener->mice[0].x, 13);
    EXPECT_EQ(listener->mice[0].y, 14);
    for (const std::size_t later : {1U, 2U}) {
        EXPECT_FALSE(listener->mice[later].left);
        EXPECT_TRUE(listener->mice[later].middle);
        EXPECT_TRUE(listener->mice[later].right);
    }
}

TEST_F(InputTest, OtherButtonsOnlyMoveThePosition) {
    EventQueue::PushMotion(10, 10);
    Update(10);
    EventQueue::PushButton(true, SDL_BUTTON_WHEELUP, 12, 13);
    Update(10);
    ASSERT_EQ(listener->mice.size(), 1U);
    EXPECT_EQ(listener->mice[0].x, 12);
    EXPECT_EQ(listener->mice[0].dy, -3);
    EXPECT_FALSE(listener->mice[0].left || listener->mice[0].middle || listener->mice[0].right);
}

TEST_F(InputTest, ButtonPressedInTheUnreportedFirstEventIsReportedInTheSecond) {
    EventQueue::PushButton(true, 1, 10, 10);
    Update(10);
    EXPECT_THAT(listener->mice, IsEmpty());
    EventQueue::PushMotion(11, 10);
    Update(10);
    ASSERT_EQ(listener->mice.size(), 1U);
    EXPECT_TRUE(listener->mice[0].left);
}

TEST_F(InputTest, KeyEventComesBeforeTheMouseEvent) {
    EventQueue::PushMotion(10, 10);
    Update(10);
    EventQueue::PushMotion(20, 20);
    Update(10);
    EXPECT_THAT(listener->order, ElementsAre(KeyEvent, KeyEvent, MouseEvent));
}

TEST_F(InputTest, FailedKeyEventFailsTheUpdateBeforeTheMouseEvent) {
    EventQueue::PushMotion(10, 10);
    Update(10);
    EventQueue::PushMotion(20, 20);
    listener->failing = KeyEvent;
    EXPECT_FALSE(input->Update(10));
    EXPECT_THAT(listener->mice, IsEmpty());
}

TEST_F(InputTest, FailedMouseEventFailsTheUpdate) {
    listener->failing = MouseEvent;
    EventQueue::PushMotion(10, 10);
    EXPECT_TRUE(input->Update(10));
    EventQueue::PushMotion(20, 20);
    EXPECT_FALSE(input->Update(10));
}

TEST_F(InputTest, EventsForOthersGoBackIntoTheQueueInOrder) {
    EventQueue::PushUser(1);
    EventQueue::PushKey(true, 'a', 'a');
    EventQueue::Push(SDL_QUIT);
    EventQueue::PushMotion(10, 10);
    EventQueue::PushUser(2);
    Update(10);
    EXPECT_THAT(EventQueue::Take(), ElementsAre(1, -SDL_QUIT, 2));
    EXPECT_THAT(Down(), ElementsAre('a'));
}

TEST_F(InputTest, EventsForOthersAreLostIfTheQueueEndsWithAnExpose) {
    EventQueue::PushUser(1);
    EventQueue::Push(SDL_QUIT);
    EventQueue::PushKey(true, 'a', 'a');
    EventQueue::Push(SDL_VIDEOEXPOSE);
    Update(10);
    EXPECT_THAT(EventQueue::Take(), IsEmpty());
    EXPECT_THAT(Down(), ElementsAre('a')) << "used events are not affected";
}

TEST_F(InputTest, UpdateEventCarriesTheTime) {
    Event update(UpdateEvent);
    EventQueue::PushKey(true, 'a', 'a');
    kernel->SendEvent(nullptr, update);
    update.time = 701;
    EXPECT_TRUE(kernel->SendEvent(nullptr, update));
    EXPECT_THAT(Pressed(), ElementsAre('a'));
    listener->failing = KeyEvent;
    EXPECT_FALSE(kernel->SendEvent(nullptr, update));
}

TEST_F(InputTest, OtherEngineEventsSucceedAndDoNothing) {
    for (const std::uint32_t type :
         {OpenWindowEvent, LoadGraphicsResourcesEvent, InitialSetupEvent, RenderEvent,
          AfterRenderEvent, MouseEvent, KeyEvent, QuitEvent}) {
        EXPECT_TRUE(input->GotEvent(Event(type)));
    }
    EXPECT_THAT(listener->order, IsEmpty());
    EXPECT_THAT(Calls().journal, IsEmpty());
}

TEST_F(InputTest, SubscribesToResourcesWindowUpdatesAndAfterRender) {
    // Only resources and updates have an effect that can be seen here.
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    Calls() = {};
    for (const std::uint32_t type : {LoadGraphicsResourcesEvent, InitialSetupEvent, RenderEvent})
        kernel->SendEvent(nullptr, Event(type));
    EXPECT_THAT(Calls().journal, IsEmpty());
    kernel->SendEvent(nullptr, Event(LoadResourcesEvent));
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_Init(1049088)", "SDL_EnableUNICODE(1)"));
    Calls() = {};
    kernel->SendEvent(nullptr, Event(ReleaseResourcesEvent));
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_QuitSubSystem(512)"));
}

TEST_F(InputTest, InitDoesNotStartARunningJoystickSubsystemAgain) {
    EXPECT_TRUE(input->Init());
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_EnableUNICODE(1)"));
}

TEST_F(InputTest, InitReleasesAllKeysAndButtons) {
    EventQueue::PushKey(true, 'a', 'A');
    EventQueue::PushButton(true, 1, 10, 10);
    Update(10);
    EXPECT_TRUE(input->Init());
    EventQueue::PushMotion(11, 11);
    Update(10);
    EXPECT_THAT(Down(), IsEmpty());
    ASSERT_EQ(listener->mice.size(), 1U);
    EXPECT_FALSE(listener->mice[0].left);
}

TEST_F(InputTest, FailedInitIsReportedAndQuitsSdl) {
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    Calls() = {};
    Calls().failing = {"SDL_Init"};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(kernel->SendEvent(nullptr, Event(LoadResourcesEvent)));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "SDL_Init() failed. SDL Error: made to fail\n");
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_Init(1049088)", "SDL_Quit()"));
}

TEST_F(InputTest, CharacterTranslationIsSwitchedOnAgainInTheFirstUpdateOfAWindow) {
    EXPECT_TRUE(kernel->SendEvent(nullptr, Event(OpenWindowEvent)));
    EXPECT_THAT(Calls().journal, IsEmpty());
    Update(10);
    Update(10);
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_EnableUNICODE(1)"));
    kernel->SendEvent(nullptr, Event(OpenWindowEvent));
    Update(10);
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_EnableUNICODE(1)", "SDL_EnableUNICODE(1)"));
}

TEST_F(InputTest, UpdateAllocatesNothing) {
    kernel->RemoveChild(static_cast<Listener*>(listener));
    trace::Start();
    Update(10);
    const std::size_t before = AllocationCount();
    for (int update = 0; update < 100; ++update)
        EXPECT_TRUE(input->Update(10));
    EXPECT_EQ(AllocationCount(), before);
    trace::tracing = false;
}

TEST_F(InputTest, PointerIsNotMovedUnlessItIsGrabbed) {
    Update(10);
    EXPECT_THAT(Calls().journal, IsEmpty());
}

class GrabbingInputTest : public InputTest {
protected:
    GrabbingInputTest() : InputTest(true) {}
};

TEST_F(GrabbingInputTest, PointerIsHiddenAndPutBackInEveryUpdate) {
    Update(10);
    Update(10);
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_WarpMouse(200, 200)", "SDL_ShowCursor(0)",
                                             "SDL_WarpMouse(200, 200)", "SDL_ShowCursor(0)"));
}

TEST_F(GrabbingInputTest, MotionIsMeasuredFromTheHoldingPoint) {
    Update(10);
    EventQueue::Take();  // the motion events of SDL_WarpMouse
    for (int update = 0; update < 2; ++update) {
        EventQueue::PushMotion(210, 195);
        Update(10);
        EventQueue::Take();
    }
    ASSERT_EQ(listener->mice.size(), 2U) << "the first position was known";
    for (const Event& mouse : listener->mice) {
        EXPECT_EQ(mouse.dx, 10);
        EXPECT_EQ(mouse.dy, 5);
    }
}

TEST(InputWithoutKernelTest, FailsTheAssertion) {
    // A forked process does not have the driver's threads.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(new SDLInput(nullptr, false), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on quarn2/memory:160 - \"obj!=NULL\"\n"));
}

class InputTraceTest : public InputTest {
protected:
    ~InputTraceTest() override {
        trace::tracing = false;
        trace::Frames().clear();
    }
};

TEST_F(InputTraceTest, OperationsAreTraced) {
    trace::Start();
    EventCatcher* const catcher = input;
    class Informer : public Listener {
        bool GotEvent(Event) override {
            PrintStackTrace();
            return true;
        }
    };
    auto* const informer = new Informer;
    kernel->AddChild(informer, kInputChannels, 0);
    testing::internal::CaptureStderr();
    catcher->GotEvent(Event(UpdateEvent));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#4: Kernel::PropogateEvent\n#3: Kernel::SendEvent\n#2: SDLInput::Update\n"
              "#1: SDLInput::GotEvent\n");
    kernel->RemoveChild(informer);
}

/// A real window with a real pointer and keyboard.
class RealInputTest : public testing::Test {
protected:
    RealInputTest() {
        kernel->AddChild(static_cast<Listener*>(listener), kInputChannels, 0);
        input = new SDLInput(kernel, false);
        window = new GLRender(kernel);
        Event open(OpenWindowEvent);
        open.caption = "Real input";
        opened = kernel->SendEvent(nullptr, Event(LoadResourcesEvent))
                 && kernel->SendEvent(nullptr, open);
    }
    ~RealInputTest() override {
        kernel->SendEvent(nullptr, Event(QuitEvent));
        kernel->RemoveChild(static_cast<SDLInput*>(input));
        kernel->RemoveChild(static_cast<GLRender*>(window));
        kernel->RemoveChild(static_cast<Listener*>(listener));
        Calls() = {};
    }

    void SetUp() override {
        ASSERT_TRUE(opened);
        Do("search --sync --name '^Real input$' windowfocus --sync %1");
        // The first movement is not reported, so there have to be two.
        const std::string toWindow = "search --name '^Real input$' mousemove --window %1 ";
        for (int attempt = 0; attempt < 20 && !(x == 100 && y == 100); ++attempt) {
            Do(toWindow + (attempt % 2 == 0 ? "90 90" : "100 100"));
            RunUntil([this] { return x == 100 && y == 100; }, 20);
        }
        ASSERT_EQ(x, 100);
        ASSERT_EQ(y, 100);
    }

    /// Moves the real pointer or presses real keys. Positions relative to the window need a
    /// search for it in the same command.
    static void Do(const std::string& what) {
        EXPECT_EQ(std::system(("xdotool " + what).c_str()), 0) << what;
    }

    bool Frame() {
        Event update(UpdateEvent);
        update.time = 10;
        const bool goOn = kernel->SendEvent(nullptr, update);
        for (const Event& event : listener->keys) {
            for (const std::size_t index : Set(event.keyboard.pressed))
                pressed.insert(index);
        }
        for (const Event& event : listener->mice) {
            x = event.x;
            y = event.y;
            dx += event.dx;
            dy += event.dy;
            clicks += event.left && !left;
            left = event.left;
        }
        listener->keys.clear();
        listener->mice.clear();
        return goOn;
    }

    /// Runs frames until the condition holds or there were too many.
    template <typename Condition>
    bool RunUntil(Condition condition, int frames = 500) {
        for (int frame = 0; frame < frames; ++frame) {
            if (!Frame())
                return false;
            if (condition())
                return true;
            SDL_Delay(10);
        }
        return false;
    }

    Pointer<Kernel> kernel = new Kernel;
    Pointer<Listener> listener = new Listener;
    Pointer<SDLInput> input;
    Pointer<GLRender> window;
    bool opened = false;
    std::set<std::size_t> pressed;
    int x = -1, y = -1;
    int dx = 0, dy = 0;  ///< summed up
    bool left = false;
    int clicks = 0;
};

TEST_F(RealInputTest, ShiftMarksTheCapitalLetterAndTheSymbol) {
    Do("keydown shift keydown a");
    EXPECT_TRUE(RunUntil([this] { return pressed.contains('a'); }));
    Do("keyup a keyup shift");
    EXPECT_THAT(pressed, ElementsAre(0, 'A', 'a', SDLK_LSHIFT)) << "Shift has no character";
}

TEST_F(RealInputTest, PlainLetterMarksOneIndex) {
    Do("keydown b");
    EXPECT_TRUE(RunUntil([this] { return !pressed.empty(); }));
    Do("keyup b");
    Frame();
    EXPECT_THAT(pressed, ElementsAre('b'));
}

TEST_F(RealInputTest, EscapeIsIndexTwentySeven) {
    Do("keydown Escape");
    EXPECT_TRUE(RunUntil([this] { return !pressed.empty(); }));
    Do("keyup Escape");
    Frame();
    EXPECT_THAT(pressed, ElementsAre(27));
}

TEST_F(RealInputTest, MovingUpTheScreenGivesAPositiveMotion) {
    dx = dy = 0;
    Do("mousemove_relative -- 30 -40");
    EXPECT_TRUE(RunUntil([&] { return x == 130 && y == 60; }));
    EXPECT_EQ(dx, 30);
    EXPECT_EQ(dy, 40);
}

TEST_F(RealInputTest, NoClickAndNoKeyIsLostAfterThePointerLeftTheWindowOften) {
    for (int times = 0; times < 20; ++times) {
        std::string comeAndGo = "search --name '^Real input$'";
        for (int visit = 0; visit < 10; ++visit)
            comeAndGo += " mousemove 1279 1023 mousemove --window %1 200 200";
        Do(comeAndGo);
        Frame();
    }
    EXPECT_TRUE(RunUntil([this] { return x == 200 && y == 200; }));
    for (int click = 1; click <= 3; ++click) {
        Do("mousedown 1");
        EXPECT_TRUE(RunUntil([&] { return clicks == click && left; }));
        Do("mouseup 1");
        EXPECT_TRUE(RunUntil([&] { return !left; }));
    }
    pressed.clear();
    Do("keydown k");
    EXPECT_TRUE(RunUntil([this] { return !pressed.empty(); }));
    Do("keyup k");
    EXPECT_THAT(pressed, ElementsAre('k'));
    EventQueue::Push(SDL_QUIT);
    EXPECT_FALSE(Frame()) << "the first close request ends the run";
}

}  // namespace
