// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/kernel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/allocations.h"
#include "tests/support/library_calls.h"
#include "tests/support/recorder.h"
#include "tests/support/trace_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kAllChannels = 0x1ff;

constexpr std::uint32_t Channel(int number) {
    return 1U << number;
}

class KernelTest : public testing::Test {
protected:
    KernelTest() { Calls() = {}; }
    ~KernelTest() override {
        kernel = nullptr;
        Calls() = {};
        MMObject::CollectGarbage();
        MMObject::CollectGarbage();  // a kernel that is a child is older than its parent
        EXPECT_EQ(MMObject::RegisteredCount(), 0U) << "the test left objects behind";
    }

    Recorder* Join(const std::string& name, std::uint32_t mask) {
        auto* const recorder = new Recorder(name, journal);
        EXPECT_TRUE(kernel->AddChild(recorder, mask, 500));
        return recorder;
    }

    bool Send(std::uint32_t type) { return kernel->SendEvent(nullptr, Event(type)); }

    std::vector<std::string> journal;
    Pointer<Kernel> kernel = new Kernel;
};

TEST_F(KernelTest, EventsAreDeliveredInOrderOfJoining) {
    Join("a", kAllChannels);
    Join("b", kAllChannels);
    Join("c", kAllChannels);
    EXPECT_TRUE(Send(UpdateEvent));
    EXPECT_THAT(journal, ElementsAre("a 20", "b 20", "c 20"));
}

TEST_F(KernelTest, PriorityDoesNotChangeTheOrder) {
    kernel->AddChild(new Recorder("late", journal), kAllChannels, 900);
    kernel->AddChild(new Recorder("early", journal), kAllChannels, 1);
    Send(UpdateEvent);
    EXPECT_THAT(journal, ElementsAre("late 20", "early 20"));
}

struct ChannelOf {
    std::uint32_t type;
    int channel;
};

class RouteTest : public KernelTest, public testing::WithParamInterface<ChannelOf> {};

TEST_P(RouteTest, EventReachesOnlyTheSubscribersOfItsChannel) {
    const auto [type, channel] = GetParam();
    Join("all but this", kAllChannels & ~Channel(channel));
    Join("this", Channel(channel));
    EXPECT_TRUE(Send(type));
    EXPECT_THAT(journal, ElementsAre("this " + std::to_string(type)));
}

INSTANTIATE_TEST_SUITE_P(OneChannel, RouteTest,
                         testing::Values(ChannelOf{16, 0}, ChannelOf{17, 1}, ChannelOf{18, 2},
                                         ChannelOf{19, 3}, ChannelOf{20, 4}, ChannelOf{21, 5},
                                         ChannelOf{22, 7}, ChannelOf{23, 6}, ChannelOf{24, 8},
                                         ChannelOf{25, 1}),
                         [](const auto& route) {
                             return "Type" + std::to_string(route.param.type);
                         });

TEST_F(KernelTest, ReleaseReachesTheUsersOfGraphicsBeforeTheResources) {
    Join("resources", Channel(0));
    Join("graphics", Channel(2));
    Join("neither", kAllChannels & ~(Channel(0) | Channel(2)));
    EXPECT_TRUE(Send(ReleaseResourcesEvent));
    EXPECT_THAT(journal, ElementsAre("graphics 26", "resources 26"));
}

TEST_F(KernelTest, ReleaseReachesAChildOfBothChannelsTwice) {
    Join("both", Channel(0) | Channel(2));
    Join("graphics", Channel(2));
    Send(ReleaseResourcesEvent);
    EXPECT_THAT(journal, ElementsAre("both 26", "graphics 26", "both 26"));
}

TEST_F(KernelTest, MaskBitsWithoutAChannelAreIgnored) {
    Join("everything", 0xffffffffU);
    Join("nothing", 0xfffffe00U);
    Send(KeyEvent);
    EXPECT_THAT(journal, ElementsAre("everything 24"));
}

TEST_F(KernelTest, SenderDoesNotReceiveItsOwnBroadcast) {
    Join("a", kAllChannels);
    Recorder* const sender = Join("sender", kAllChannels);
    Join("c", kAllChannels);
    EXPECT_TRUE(kernel->SendEvent(sender, Event(MouseEvent)));
    EXPECT_THAT(journal, ElementsAre("a 23", "c 23"));
}

TEST_F(KernelTest, EventOfASenderThatIsNotAChildReachesEveryChild) {
    Join("a", kAllChannels);
    const Pointer<Recorder> stranger = new Recorder("stranger", journal);
    kernel->SendEvent(static_cast<Recorder*>(stranger), Event(MouseEvent));
    EXPECT_THAT(journal, ElementsAre("a 23"));
}

TEST_F(KernelTest, FailureEndsTheDispatch) {
    Join("a", kAllChannels);
    Join("b", kAllChannels)->failing = {UpdateEvent};
    Join("c", kAllChannels);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Send(UpdateEvent));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(journal, ElementsAre("a 20", "b 20"));
}

TEST_F(KernelTest, FailureOnTheFirstChannelKeepsTheEventFromTheSecond) {
    Join("resources", Channel(0));
    Join("graphics", Channel(2))->failing = {ReleaseResourcesEvent};
    EXPECT_FALSE(Send(ReleaseResourcesEvent));
    EXPECT_THAT(journal, ElementsAre("graphics 26"));
}

TEST_F(KernelTest, EveryCatcherGetsItsOwnCopy) {
    Join("a", kAllChannels)->act = [](Event& event) { event = Event(); };
    Event seen;
    Join("b", kAllChannels)->act = [&](const Event& event) { seen = event; };
    Event sent(OpenWindowEvent);
    sent.caption = "caption";
    sent.keyboard.down[300] = true;
    sent.time = 12;
    kernel->SendEvent(nullptr, sent);
    EXPECT_EQ(seen.type, 17U);
    EXPECT_EQ(seen.caption, "caption");
    EXPECT_TRUE(seen.keyboard.down[300]);
    EXPECT_EQ(seen.time, 12U);
    EXPECT_EQ(sent.caption, "caption");
}

TEST_F(KernelTest, CatcherMaySendEventsWhileItHandlesOne) {
    Recorder* const a = Join("a", kAllChannels);
    a->act = [&](const Event& event) {
        if (event.type == UpdateEvent)
            kernel->SendEvent(a, Event(KeyEvent));
    };
    Join("b", kAllChannels);
    Send(UpdateEvent);
    EXPECT_THAT(journal, ElementsAre("a 20", "b 24", "b 20"));
}

TEST_F(KernelTest, EventForOneChildReachesNobodyElse) {
    Join("a", kAllChannels);
    Recorder* const b = Join("b", kAllChannels);
    Join("c", kAllChannels);
    EXPECT_TRUE(kernel->SendEventTo(b, Event(RenderEvent)));
    EXPECT_THAT(journal, ElementsAre("b 21"));
    b->failing = {RenderEvent};
    EXPECT_FALSE(kernel->SendEventTo(b, Event(RenderEvent)));
}

TEST_F(KernelTest, EventForAChildThatDidNotSubscribeIsNotDelivered) {
    Recorder* const a = Join("a", kAllChannels & ~Channel(5));
    EXPECT_TRUE(kernel->SendEventTo(a, Event(RenderEvent)));
    EXPECT_TRUE(kernel->SendEventTo(nullptr, Event(RenderEvent)));
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(KernelTest, UnknownTypeIsPrintedAndFailsTheAssertion) {
    for (const std::uint32_t type : {0U, 15U, 27U, 4294967295U}) {
        EXPECT_EXIT(
            Send(type), testing::ExitedWithCode(0),
            testing::Eq(std::to_string(type)
                        + "\nAssert failed on kernel:177 - \"\"Undefined event\" && 0\"\n"));
    }
}

TEST_F(KernelTest, ChildWithoutACatcherFailsTheAssertion) {
    kernel->AddChild(nullptr, kAllChannels, 0);
    const Pointer<Recorder> recorder = new Recorder("sender", journal);
    for (Recorder* const sender :
         {static_cast<Recorder*>(recorder), static_cast<Recorder*>(nullptr)}) {
        EXPECT_EXIT(kernel->SendEvent(sender, Event(UpdateEvent)), testing::ExitedWithCode(0),
                    testing::Eq("Assert failed on quarn2/memory:160 - \"obj!=NULL\"\n"));
    }
    EXPECT_EXIT(kernel->SendEventTo(nullptr, Event(UpdateEvent)), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on quarn2/memory:160 - \"obj!=NULL\"\n"));
}

TEST_F(KernelTest, CatcherThatJoinsTwiceReceivesTwice) {
    Recorder* const a = Join("a", kAllChannels);
    kernel->AddChild(a, Channel(4), 500);
    Send(UpdateEvent);
    Send(RenderEvent);
    EXPECT_THAT(journal, ElementsAre("a 20", "a 20", "a 21"));
}

TEST_F(KernelTest, RemovedChildReceivesNothing) {
    Join("a", kAllChannels);
    Recorder* const b = Join("b", kAllChannels);
    Join("c", kAllChannels);
    EXPECT_TRUE(kernel->RemoveChild(b));
    Send(UpdateEvent);
    EXPECT_THAT(journal, ElementsAre("a 20", "c 20"));
}

TEST_F(KernelTest, RemovingTheOnlyAndTheLastChildWorks) {
    Recorder* const a = Join("a", kAllChannels);
    EXPECT_TRUE(kernel->RemoveChild(a));
    Join("b", kAllChannels);
    Recorder* const c = Join("c", kAllChannels);
    EXPECT_TRUE(kernel->RemoveChild(c));
    Send(UpdateEvent);
    EXPECT_THAT(journal, ElementsAre("b 20"));
}

TEST_F(KernelTest, RemovingACatcherThatNeverJoinedChangesNothing) {
    Join("a", kAllChannels);
    EXPECT_TRUE(kernel->RemoveChild(new Recorder("stranger", journal)));
    EXPECT_TRUE(kernel->RemoveChild(nullptr));
    Send(UpdateEvent);
    EXPECT_THAT(journal, ElementsAre("a 20"));
}

TEST_F(KernelTest, RemovalLeavesTheSecondOfTwoAdjacentSubscriptions) {
    Recorder* const a = Join("a", Channel(4));
    kernel->AddChild(a, Channel(5), 500);
    Join("b", kAllChannels);
    kernel->RemoveChild(a);
    Send(UpdateEvent);
    Send(RenderEvent);
    EXPECT_THAT(journal, ElementsAre("b 20", "a 21", "b 21"));
}

TEST_F(KernelTest, RemovalOfAdjacentSubscriptionsAtTheEndStaysInBounds) {
    Recorder* const a = new Recorder("a", journal);
    for (const int channel : {3, 4, 5})
        kernel->AddChild(a, Channel(channel), 500);
    kernel->RemoveChild(a);  // the first and the third go
    for (const std::uint32_t type : {InitialSetupEvent, UpdateEvent, RenderEvent})
        Send(type);
    EXPECT_THAT(journal, ElementsAre("a 20"));
    kernel->RemoveChild(a);
    Send(UpdateEvent);
    EXPECT_THAT(journal, ElementsAre("a 20"));
}

TEST_F(KernelTest, RemovalTakesAllSubscriptionsThatAreNotAdjacent) {
    Recorder* const a = Join("a", kAllChannels);
    Join("b", kAllChannels);
    kernel->AddChild(a, kAllChannels, 500);
    kernel->RemoveChild(a);
    Send(UpdateEvent);
    EXPECT_THAT(journal, ElementsAre("b 20"));
}

TEST_F(KernelTest, SubscriptionCountsAsAReferenceToItsCatcher) {
    Recorder* const a = Join("a", kAllChannels);
    EXPECT_EQ(a->RefCount(), 1);
    kernel->RemoveChild(a);
    EXPECT_EQ(a->RefCount(), 0);
}

TEST_F(KernelTest, ChangedMaskAppliesToEverySubscriptionOfTheCatcher) {
    Recorder* const a = Join("a", Channel(4));
    kernel->AddChild(a, Channel(5), 500);
    EXPECT_TRUE(kernel->ChangeProps(a, Channel(8), 1));
    Send(UpdateEvent);
    Send(RenderEvent);
    Send(KeyEvent);
    EXPECT_THAT(journal, ElementsAre("a 24", "a 24"));
}

TEST_F(KernelTest, ChangingACatcherThatNeverJoinedIsNoError) {
    Join("a", Channel(4));
    EXPECT_TRUE(kernel->ChangeProps(new Recorder("stranger", journal), kAllChannels, 1));
    Send(RenderEvent);
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(KernelTest, KernelThatIsAChildBroadcastsToItsOwnChildren) {
    const Pointer<Kernel> outer = new Kernel;
    outer->AddChild(static_cast<Kernel*>(kernel), kAllChannels, 0);
    Recorder* const inner = Join("inner", kAllChannels);
    kernel->AddChild(static_cast<Kernel*>(kernel), kAllChannels, 0);  // its own child, but no loop
    EXPECT_TRUE(outer->SendEvent(nullptr, Event(UpdateEvent)));
    EXPECT_THAT(journal, ElementsAre("inner 20"));
    inner->failing = {UpdateEvent};
    EXPECT_FALSE(outer->SendEvent(nullptr, Event(UpdateEvent)));
    kernel->RemoveChild(static_cast<Kernel*>(kernel));
}

TEST_F(KernelTest, InternalEventNotesOnlyTheQuitEvent) {
    EXPECT_FALSE(kernel->QuitRequested());
    EXPECT_TRUE(kernel->InternalEvent(Event(OpenWindowEvent)));
    EXPECT_FALSE(kernel->QuitRequested());
    EXPECT_TRUE(kernel->InternalEvent(Event(QuitEvent)));
    EXPECT_TRUE(kernel->QuitRequested());
}

TEST_F(KernelTest, KernelNotesNoQuitEventBeforeItRuns) {
    Join("a", kAllChannels);
    Send(QuitEvent);
    EXPECT_FALSE(kernel->QuitRequested());
    EXPECT_THAT(journal, ElementsAre("a 25"));
}

/// Counts without allocating.
class Counter : public EventCatcher {
public:
    Counter() : EventCatcher(nullptr) {}
    bool GotEvent(Event ev) override {
        sum += ev.type;
        return true;
    }
    std::uint32_t sum = 0;
};

TEST_F(KernelTest, DispatchAllocatesNothing) {
    auto* const counter = new Counter;
    kernel->AddChild(new Counter, kAllChannels, 500);
    kernel->AddChild(counter, kAllChannels, 500);
    trace::Start();
    const std::size_t before = AllocationCount();
    for (int frame = 0; frame < 100; ++frame) {
        for (const std::uint32_t type : {UpdateEvent, MouseEvent, KeyEvent, RenderEvent})
            Send(type);
    }
    EXPECT_EQ(AllocationCount(), before);
    trace::tracing = false;
    EXPECT_EQ(counter->sum, 100U * (20 + 23 + 24 + 21));
}

class KernelTraceTest : public TracedTest {};

TEST_F(KernelTraceTest, DispatchIsTraced) {
    std::vector<std::string> journal;
    const Pointer<Kernel> kernel = new Kernel;
    auto* const recorder = new Recorder("a", journal);
    recorder->act = [](const Event&) { PrintStackTrace(); };
    kernel->AddChild(recorder, kAllChannels, 0);
    testing::internal::CaptureStderr();
    kernel->SendEvent(nullptr, Event(UpdateEvent));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#2: Kernel::PropogateEvent\n#1: Kernel::SendEvent\n");
    testing::internal::CaptureStderr();
    kernel->SendEventTo(recorder, Event(UpdateEvent));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#2: Kernel::PropogateEvent\n#1: Kernel::SendEventTo\n");
    testing::internal::CaptureStderr();
    kernel->GotEvent(Event(UpdateEvent));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#3: Kernel::PropogateEvent\n#2: Kernel::SendEvent\n#1: Kernel::GotEvent\n");
    recorder->failing = {LoadResourcesEvent};
    testing::internal::CaptureStderr();
    kernel->MainLoop();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#3: Kernel::PropogateEvent\n#2: Kernel::SendEvent\n#1: Kernel::MainLoop\n"
              "Error sending load resources event\n");
}

/// One catcher for all events and a clock that stands still unless a test moves it.
class MainLoopTest : public KernelTest {
protected:
    MainLoopTest() { Calls().ticks = 1000; }

    /// Runs to the end of the `frames`th frame, which `last` fails: its update or its render.
    bool Run(int frames, EventType last = UpdateEvent) {
        catcher->act = [this, frames, last](const Event& event) {
            if (event.type == UpdateEvent)
                times.push_back(event.time);
            if (act)
                act(event);
            if (event.type == UpdateEvent && ++frame == frames)
                catcher->failing.insert(last);
        };
        return kernel->MainLoop();
    }

    int frame = 0;
    std::vector<std::uint32_t> times;  ///< of the update events
    std::function<void(const Event&)> act;
    Recorder* catcher = Join("got", kAllChannels);
};

TEST_F(MainLoopTest, StartsRunsAndReleasesInOrder) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(Run(3));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(journal, ElementsAre("got 16", "got 17", "got 18", "got 19",  // start
                                     "got 20", "got 21", "got 20", "got 21", "got 20", "got 26",
                                     "got 26"));  // once for each of its channels
}

TEST_F(MainLoopTest, AsksForAWindowOf800By600Pixels) {
    Event window;
    act = [&](const Event& event) {
        if (event.type == OpenWindowEvent)
            window = event;
    };
    Run(1);
    EXPECT_EQ(window.caption, "Quarn Application");
    EXPECT_EQ(window.width, 800);
    EXPECT_EQ(window.height, 600);
    EXPECT_EQ(window.bpp, 24);
    EXPECT_FALSE(window.fullscreen);
}

struct FailingStart {
    std::uint32_t type;
    const char* message;
};

class FailingStartTest : public MainLoopTest, public testing::WithParamInterface<FailingStart> {};

TEST_P(FailingStartTest, IsReportedAndNothingMoreIsSent) {
    catcher->failing = {GetParam().type};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(kernel->MainLoop());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), GetParam().message);
    EXPECT_EQ(journal.back(), "got " + std::to_string(GetParam().type));
    EXPECT_EQ(journal.size(), GetParam().type - LoadResourcesEvent + 1);
    EXPECT_TRUE(kernel->QuitRequested());
}

INSTANTIATE_TEST_SUITE_P(
    Each, FailingStartTest,
    testing::Values(FailingStart{LoadResourcesEvent, "Error sending load resources event\n"},
                    FailingStart{OpenWindowEvent, "Error sending openwindow event\n"},
                    FailingStart{LoadGraphicsResourcesEvent,
                                 "Error sending load graphics resources event\n"},
                    FailingStart{InitialSetupEvent, "Error sending initial setup event\n"}),
    [](const auto& start) { return "Type" + std::to_string(start.param.type); });

TEST_F(MainLoopTest, FailingReleaseIsReported) {
    catcher->failing = {ReleaseResourcesEvent};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Run(1));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error sending release resources event\n");
    EXPECT_THAT(journal, ElementsAre("got 16", "got 17", "got 18", "got 19", "got 20", "got 26"));
}

TEST_F(MainLoopTest, FailingFirstUpdateSkipsTheRenderAndReleases) {
    EXPECT_TRUE(Run(1));
    EXPECT_THAT(journal,
                ElementsAre("got 16", "got 17", "got 18", "got 19", "got 20", "got 26", "got 26"));
}

TEST_F(MainLoopTest, FailingRenderEndsTheRun) {
    EXPECT_TRUE(Run(2, RenderEvent));
    EXPECT_THAT(journal, ElementsAre("got 16", "got 17", "got 18", "got 19", "got 20", "got 21",
                                     "got 20", "got 21", "got 26", "got 26"));
}

TEST_F(MainLoopTest, FailedUpdateIsNotSeenByLaterCatchers) {
    Join("later", kAllChannels);
    Run(1);
    EXPECT_THAT(journal, testing::Not(testing::Contains("later 20")));
    EXPECT_THAT(journal, testing::Contains("later 26"));
}

TEST_F(MainLoopTest, QuitEventIsNotedAndDeliveredButDoesNotStopTheRun) {
    bool noted = false;
    act = [&](const Event& event) {
        if (event.type == UpdateEvent && frame == 0) {
            kernel->SendEvent(catcher, Event(QuitEvent));
            noted = kernel->QuitRequested();
        }
    };
    Join("window", Channel(1));
    EXPECT_TRUE(Run(2));
    EXPECT_TRUE(noted);
    EXPECT_THAT(journal, ElementsAre("got 16", "got 17", "window 17", "got 18", "got 19", "got 20",
                                     "window 25", "got 21", "got 20", "got 26", "got 26"));
}

TEST_F(MainLoopTest, QuitEventWithAFailingUpdateEndsTheRun) {
    act = [&](const Event& event) {
        if (event.type == UpdateEvent) {
            kernel->SendEvent(catcher, Event(QuitEvent));
        }
    };
    EXPECT_TRUE(Run(1));
    EXPECT_THAT(journal,
                ElementsAre("got 16", "got 17", "got 18", "got 19", "got 20", "got 26", "got 26"));
}

TEST_F(MainLoopTest, QuitEventDuringARenderDoesNotStopTheRun) {
    act = [&](const Event& event) {
        if (event.type == RenderEvent)
            kernel->SendEvent(catcher, Event(QuitEvent));
    };
    EXPECT_TRUE(Run(3));
    EXPECT_EQ(frame, 3);
}

TEST_F(MainLoopTest, KernelNotesNoQuitEventDuringTheStart) {
    bool noted = true;
    act = [&](const Event& event) {
        if (event.type == InitialSetupEvent) {
            kernel->SendEvent(catcher, Event(QuitEvent));
            noted = kernel->QuitRequested();
        }
    };
    Run(1);
    EXPECT_FALSE(noted);
}

TEST_F(MainLoopTest, FirstUpdateCountsFromTheEndOfTheStart) {
    act = [](const Event& event) {
        if (event.type == InitialSetupEvent)
            *Calls().ticks += 5000;
    };
    Run(1);
    EXPECT_THAT(times, ElementsAre(0U));
}

TEST_F(MainLoopTest, UpdatesCarryTheTimeSinceTheUpdateBefore) {
    act = [this](const Event& event) {
        if (event.type == UpdateEvent)
            *Calls().ticks += frame == 0 ? 16 : 100;
        if (event.type == RenderEvent)
            *Calls().ticks += 1;
    };
    Run(4);
    EXPECT_THAT(times, ElementsAre(0U, 17U, 101U, 101U));
}

TEST_F(MainLoopTest, TimesAreRightWhenTheClockWraps) {
    Calls().ticks = 0xFFFFFFFFU;
    act = [](const Event& event) {
        if (event.type == RenderEvent)
            *Calls().ticks += 16;
    };
    Run(3);
    EXPECT_THAT(times, ElementsAre(0U, 16U, 16U));
}

TEST_F(MainLoopTest, SecondRunKeepsTheTimer) {
    Run(1);
    const std::size_t objects = MMObject::RegisteredCount();
    catcher->failing.clear();
    frame = 0;
    EXPECT_TRUE(Run(2));
    EXPECT_EQ(MMObject::RegisteredCount(), objects);
}

TEST_F(MainLoopTest, FramesAllocateNothing) {
    auto* const counter = new Counter;
    kernel->AddChild(counter, kAllChannels, 500);
    std::size_t atFrame[100] = {};
    catcher->act = nullptr;
    kernel->ChangeProps(catcher, 0, 0);
    auto* const stopper = new Recorder("stopper", journal);
    journal.reserve(1000);
    stopper->act = [&, seen = 0](const Event& event) mutable {
        if (event.type != UpdateEvent)
            return;
        atFrame[seen] = AllocationCount();
        if (++seen == 100)
            stopper->failing = {UpdateEvent};
    };
    kernel->AddChild(stopper, Channel(4), 0);
    EXPECT_TRUE(kernel->MainLoop());
    // The journal entry of the stopper is short enough to need no allocation.
    EXPECT_EQ(atFrame[99], atFrame[1]);
}

}  // namespace
