// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/timer.h"

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/library_calls.h"
#include "tests/support/trace_fixture.h"
#include "tests/support/trace_noter.h"

namespace {

using testing::ElementsAre;

class TimerTest : public testing::Test {
protected:
    TimerTest() {
        SDL_QuitSubSystem(SDL_INIT_TIMER);
        Calls() = {};
    }
    ~TimerTest() override {
        Calls() = {};
        MMObject::CollectGarbage();
    }
};

TEST_F(TimerTest, CountsFromItsConstruction) {
    Calls().ticks = 5000;
    const Pointer<Timer> timer = new Timer;
    EXPECT_EQ(timer->GetTime(), 0U);
    Calls().ticks = 5017;
    EXPECT_EQ(timer->GetTime(), 17U);
}

TEST_F(TimerTest, IsRightWhenTheClockWraps) {
    Calls().ticks = 0xFFFFFFF0U;
    const Pointer<Timer> timer = new Timer;
    Calls().ticks = 4;
    EXPECT_EQ(timer->GetTime(), 20U);
}

TEST_F(TimerTest, FollowsTheRealClock) {
    const Pointer<Timer> timer = new Timer;
    SDL_Delay(30);
    EXPECT_GE(timer->GetTime(), 29U);
}

TEST_F(TimerTest, StartsTheClockOnce) {
    const Pointer<Timer> first = new Timer;
    const Pointer<Timer> second = new Timer;
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_InitSubSystem(1048577)"));  // 0x100001
    EXPECT_NE(SDL_WasInit(SDL_INIT_TIMER), 0U);
}

TEST_F(TimerTest, ClockThatCannotBeStartedIsReportedAndIgnored) {
    Calls().failing = {"SDL_InitSubSystem"};
    Calls().ticks = 100;
    testing::internal::CaptureStderr();
    const Pointer<Timer> timer = new Timer;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "SDL_InitSubSystem() failed. SDL Error: made to fail\n");
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_InitSubSystem(1048577)", "SDL_QuitSubSystem(1)"));
    Calls().ticks = 107;
    EXPECT_EQ(timer->GetTime(), 7U);
}

TEST_F(TimerTest, ConstructionIsTraced) {
    const TraceSwitch on;
    Calls().failing = {"SDL_InitSubSystem"};
    TraceNoter noter;
    const Pointer<Timer> timer = new Timer;
    EXPECT_THAT(noter.calls, ElementsAre("Timer::Timer"));
}

}  // namespace
