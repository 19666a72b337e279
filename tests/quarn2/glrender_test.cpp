// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/glrender.h"

#include <GL/gl.h>
#include <GL/glu.h>
#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "tests/support/event_queue.h"
#include "tests/support/library_calls.h"
#include "tests/support/recorder.h"
#include "tests/support/trace_fixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using GLMatrix = std::array<float, 16>;

GLMatrix Projection() {
    GLMatrix matrix;
    glGetFloatv(GL_PROJECTION_MATRIX, matrix.data());
    return matrix;
}

class RenderTest : public testing::Test {
protected:
    RenderTest() { Calls() = {}; }
    ~RenderTest() override {
        Calls() = {};
        if (SDL_WasInit(SDL_INIT_VIDEO) != 0)
            render->Close();
        Calls() = {};
        render = nullptr;
        kernel = nullptr;
        MMObject::CollectGarbage();
        MMObject::CollectGarbage();
        EXPECT_EQ(MMObject::RegisteredCount(), 0U) << "the test left objects behind";
    }

    Pointer<Kernel> kernel = new Kernel;
    Pointer<GLRender> render = new GLRender(kernel);
};

/// A real window on the display, as large as the game's.
class WindowTest : public RenderTest {
protected:
    static constexpr int kWidth = 800;
    static constexpr int kHeight = 600;

    bool Open(bool fullscreen = false) {
        return render->OpenWindow("A caption", kWidth, kHeight, 24, fullscreen);
    }
};

TEST_F(WindowTest, OpeningStartsVideoThenSetsTheModeThenTheCaptionThenTheLoader) {
    ASSERT_TRUE(Open()) << SDL_GetError();
    EXPECT_THAT(Calls().journal,
                ElementsAre("SDL_InitSubSystem(1048608)",  // video, no parachute
                            "SDL_ShowCursor(1)", "SDL_GetVideoInfo()",
                            "SDL_GL_SetAttribute(5, 1)",                  // double buffer
                            "SDL_SetVideoMode(800, 600, 24, 536870919)",  // 0x20000007
                            "SDL_EventState(1, 0)",                       // activity
                            "SDL_EventState(7, 0)", "SDL_EventState(8, 0)", "SDL_EventState(9, 0)",
                            "SDL_EventState(10, 0)",
                            "SDL_EventState(11, 0)",                           // joysticks
                            "SDL_EventState(13, 0)", "SDL_EventState(16, 0)",  // system, resize
                            "SDL_WM_SetCaption(A caption, null)", "glewInit()"));
}

TEST_F(WindowTest, HasTheGivenSizeAndCaptionACursorAndTwoBuffers) {
    ASSERT_TRUE(Open());
    const SDL_Surface* const surface = SDL_GetVideoSurface();
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->w, kWidth);
    EXPECT_EQ(surface->h, kHeight);
    EXPECT_NE(surface->flags & SDL_OPENGL, 0U);
    EXPECT_EQ(surface->flags & SDL_FULLSCREEN, 0U);
    char* caption = nullptr;
    SDL_WM_GetCaption(&caption, nullptr);
    EXPECT_STREQ(caption, "A caption");
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), 1);
    int buffers = 0;
    EXPECT_EQ(SDL_GL_GetAttribute(SDL_GL_DOUBLEBUFFER, &buffers), 0);
    EXPECT_EQ(buffers, 1);
}

TEST_F(WindowTest, StartsWithAPerspectiveAndABlueBackground) {
    ASSERT_TRUE(Open());
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_THAT(viewport, ElementsAre(0, 0, kWidth, kHeight));
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_MODELVIEW);
    GLfloat clearColour[4];
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clearColour);
    EXPECT_THAT(clearColour, ElementsAre(0.0f, 0.0f, 1.0f, 0.0f));

    const GLMatrix projection = Projection();
    // cot(45 degrees / 2), and the same over 4/3
    EXPECT_NEAR(projection[5], 2.4142136f, 1e-6f);
    EXPECT_NEAR(projection[0], 1.8106602f, 1e-6f);
    EXPECT_NEAR(projection[10], -10001.0f / 9999.0f, 1e-6f);
    EXPECT_NEAR(projection[14], -20000.0f / 9999.0f, 1e-6f);
    EXPECT_EQ(projection[11], -1.0f);
    EXPECT_EQ(projection[15], 0.0f);

    glClear(GL_COLOR_BUFFER_BIT);
    GLubyte pixel[4] = {};
    glReadPixels(400, 300, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    EXPECT_EQ(pixel[0], 0);
    EXPECT_EQ(pixel[1], 0);
    EXPECT_EQ(pixel[2], 255);
}

TEST_F(WindowTest, PerspectiveIsMultipliedWithTheFirstMatrixOfTheContext) {
    GLMatrix expected;
    Calls().afterVideoMode = [&expected] {
        glMatrixMode(GL_PROJECTION);
        glScalef(2.0f, 3.0f, 4.0f);
        glPushMatrix();
        gluPerspective(45.0, 800.0 / 600.0, 1.0, 10000.0);
        expected = Projection();
        glPopMatrix();
    };
    ASSERT_TRUE(Open());
    EXPECT_EQ(Projection(), expected);
    EXPECT_NEAR(expected[5], 3.0f * 2.4142136f, 1e-5f);
}

TEST_F(WindowTest, AspectRatioKeepsItsFraction) {
    ASSERT_TRUE(render->OpenWindow("wide", 700, 400, 24, false));
    const GLMatrix projection = Projection();
    EXPECT_NEAR(projection[5] / projection[0], 1.75f, 1e-6f);
}

TEST_F(WindowTest, FullscreenHidesTheCursor) {
    // A display without this mode may refuse it; the calls are the same.
    static_cast<void>(Open(true));
    EXPECT_THAT(Calls().journal, Contains("SDL_ShowCursor(0)"));
    EXPECT_THAT(Calls().journal, Not(Contains("SDL_ShowCursor(1)")));
    EXPECT_THAT(Calls().journal,
                Contains("SDL_SetVideoMode(800, 600, 24, 2684354567)"));  // 0xA0000007
}

TEST_F(WindowTest, AccelerationIsRequestedIfTheDisplayHasHardwareBlits) {
    Calls().hardwareBlits = true;
    ASSERT_TRUE(Open());
    EXPECT_THAT(Calls().journal,
                Contains("SDL_SetVideoMode(800, 600, 24, 536871175)"));  // 0x20000107
}

TEST_F(WindowTest, EventTypesThatNobodyReadsAreSwitchedOff) {
    ASSERT_TRUE(Open());
    for (const Uint8 type :
         {SDL_ACTIVEEVENT, SDL_JOYAXISMOTION, SDL_JOYBALLMOTION, SDL_JOYHATMOTION,
          SDL_JOYBUTTONDOWN, SDL_JOYBUTTONUP, SDL_SYSWMEVENT, SDL_VIDEORESIZE}) {
        EXPECT_EQ(SDL_EventState(type, SDL_QUERY), SDL_IGNORE) << static_cast<int>(type);
    }
    for (const Uint8 type : {SDL_KEYDOWN, SDL_KEYUP, SDL_MOUSEMOTION, SDL_MOUSEBUTTONDOWN,
                             SDL_MOUSEBUTTONUP, SDL_QUIT, SDL_VIDEOEXPOSE}) {
        EXPECT_EQ(SDL_EventState(type, SDL_QUERY), SDL_ENABLE) << static_cast<int>(type);
    }
}

TEST_F(WindowTest, EventsPushedByTheProgramArriveInTheWindow) {
    ASSERT_TRUE(Open());
    EventQueue::Take();
    EventQueue::PushUser(5);
    EXPECT_TRUE(render->Update());
    EXPECT_THAT(EventQueue::Take(), Contains(5));
    EventQueue::Push(SDL_QUIT);
    EXPECT_FALSE(render->Update());
}

TEST_F(WindowTest, RunningVideoSubsystemIsNotStartedAgain) {
    ASSERT_TRUE(Open());
    Calls().journal.clear();
    EXPECT_TRUE(Open());
    EXPECT_EQ(Calls().journal.front(), "SDL_ShowCursor(1)");
}

TEST_F(WindowTest, EngineEventsOpenUpdatePresentAndCloseIt) {
    Event open(OpenWindowEvent);
    open.caption = "By event";
    open.width = 640;
    open.height = 480;
    ASSERT_TRUE(kernel->SendEvent(nullptr, open));
    EXPECT_THAT(Calls().journal, Contains("SDL_SetVideoMode(640, 480, 24, 536870919)"));
    EXPECT_THAT(Calls().journal, Contains("SDL_WM_SetCaption(By event, null)"));
    Calls().journal.clear();
    EXPECT_TRUE(kernel->SendEvent(nullptr, Event(UpdateEvent)));
    EXPECT_THAT(Calls().journal, IsEmpty());
    EXPECT_TRUE(kernel->SendEvent(nullptr, Event(RenderEvent)));
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_GL_SwapBuffers()"));
    Calls().journal.clear();
    EXPECT_TRUE(kernel->SendEvent(nullptr, Event(QuitEvent)));
    EXPECT_THAT(Calls().journal, ElementsAre("SDL_QuitSubSystem(32)"));
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U);
}

TEST_F(WindowTest, PictureIsPresentedBeforeTheNextOneIsDrawn) {
    ASSERT_TRUE(Open());
    Calls().journal.clear();
    auto* const application = new Recorder("draw", Calls().journal);
    kernel->AddChild(application, 1U << 5, 500);
    kernel->SendEvent(nullptr, Event(RenderEvent));
    kernel->SendEvent(nullptr, Event(RenderEvent));
    EXPECT_THAT(Calls().journal,
                ElementsAre("SDL_GL_SwapBuffers()", "draw 21", "SDL_GL_SwapBuffers()", "draw 21"));
}

TEST_F(WindowTest, NothingIsPresentedAfterTheWindowWasClosed) {
    ASSERT_TRUE(Open());
    EXPECT_TRUE(render->Close());
    Calls().journal.clear();
    EXPECT_TRUE(render->Render());
    EXPECT_TRUE(render->Update());
    EXPECT_THAT(Calls().journal, IsEmpty());
}

TEST_F(WindowTest, FailureOfTheExtensionLoaderEndsTheStart) {
    Calls().loaderResult = 1;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Open());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "error initialising GLee\n");
}

struct FailingCall {
    const char* call;
    const char* message;
};

class FailingWindowTest : public WindowTest, public testing::WithParamInterface<FailingCall> {};

TEST_P(FailingWindowTest, IsReportedAndEndsTheVideoSubsystem) {
    Calls().failing = {GetParam().call};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(kernel->SendEvent(nullptr, Event(OpenWindowEvent)));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              std::string(GetParam().message) + kFailure + '\n');
    EXPECT_EQ(Calls().journal.back(), "SDL_QuitSubSystem(32)");
    EXPECT_THAT(Calls().journal[Calls().journal.size() - 2], HasSubstr(GetParam().call));
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Each, FailingWindowTest,
    testing::Values(FailingCall{"SDL_InitSubSystem", "SDL_Init() failed. SDL Error: "},
                    FailingCall{"SDL_GetVideoInfo", "SDL_GetVideoInfo() failed. SDL Error: "},
                    FailingCall{"SDL_SetVideoMode", "SDL_SetVideoMode() Failed. SDL_Error: "}),
    [](const auto& call) { return std::string(call.param.call); });

TEST_F(WindowTest, FailureToOpenEndsTheMainLoop) {
    Calls().failing = {"SDL_SetVideoMode"};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(kernel->MainLoop());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "SDL_SetVideoMode() Failed. SDL_Error: made to fail\n"
              "Error sending openwindow event\n");
    EXPECT_THAT(Calls().journal, Contains("SDL_SetVideoMode(800, 600, 24, 536870919)"));
}

TEST_F(WindowTest, CloseRequestEndsTheMainLoopWithoutAQuitEvent) {
    std::vector<std::string> journal;
    auto* const application = new Recorder("got", journal);
    application->act = [](const Event& event) {
        if (event.type == RenderEvent)
            EventQueue::Push(SDL_QUIT);
    };
    kernel->AddChild(application, 0x17e, 500);
    EXPECT_TRUE(kernel->MainLoop());
    EXPECT_THAT(journal, ElementsAre("got 17", "got 18", "got 19", "got 20", "got 21", "got 26"));
    EXPECT_NE(SDL_WasInit(SDL_INIT_VIDEO), 0U) << "the window stays until the process ends";
}

/// The search for a close request in a queue that has only the events of the test.
class CloseRequestTest : public RenderTest {
protected:
    EventQueue queue;
};

TEST_F(CloseRequestTest, UpdateSucceedsWithoutARequest) {
    EXPECT_TRUE(render->Update());
}

TEST_F(CloseRequestTest, RequestFailsTheUpdate) {
    EventQueue::Push(SDL_QUIT);
    EXPECT_FALSE(render->Update());
    EXPECT_TRUE(render->Update()) << "it was taken off the queue";
}

TEST_F(CloseRequestTest, EventsBeforeTheRequestAreLostAndThoseAfterItStay) {
    EventQueue::PushKey(true, 'a', 'a');
    EventQueue::PushUser(1);
    EventQueue::Push(SDL_QUIT);
    EventQueue::PushUser(2);
    EventQueue::PushKey(true, 'b', 'b');
    EXPECT_FALSE(render->Update());
    EXPECT_THAT(EventQueue::Take(), ElementsAre(2, -SDL_KEYDOWN));
}

TEST_F(CloseRequestTest, OtherEventsGoBackInTheirOrder) {
    EventQueue::PushUser(1);
    EventQueue::PushKey(true, 'a', 'a');
    EventQueue::PushUser(2);
    EXPECT_TRUE(render->Update());
    EXPECT_THAT(EventQueue::Take(), ElementsAre(1, -SDL_KEYDOWN, 2));
}

TEST_F(CloseRequestTest, AllEventsAreLostIfTheLastIsAnExpose) {
    EventQueue::PushUser(1);
    EventQueue::PushKey(true, 'a', 'a');
    EventQueue::Push(SDL_VIDEOEXPOSE);
    EXPECT_TRUE(render->Update());
    EXPECT_THAT(EventQueue::Take(), IsEmpty());
}

TEST_F(CloseRequestTest, ExposeAfterTheRequestDoesNotHideIt) {
    EventQueue::Push(SDL_QUIT);
    EventQueue::Push(SDL_VIDEOEXPOSE);
    EXPECT_FALSE(render->Update());
    EXPECT_THAT(EventQueue::Take(), ElementsAre(-SDL_VIDEOEXPOSE));
}

TEST_F(CloseRequestTest, OtherEngineEventsSucceedAndDoNothing) {
    for (const std::uint32_t type :
         {LoadResourcesEvent, LoadGraphicsResourcesEvent, InitialSetupEvent, AfterRenderEvent,
          MouseEvent, KeyEvent, ReleaseResourcesEvent}) {
        EXPECT_TRUE(render->GotEvent(Event(type)));
    }
    EXPECT_THAT(Calls().journal, Not(Contains("SDL_QuitSubSystem(32)")));
}

TEST(RenderWithoutKernelTest, FailsTheAssertion) {
    // A forked process does not have the driver's threads.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(new GLRender(nullptr), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on glrender:158 - \"k\"\n"));
}

class RenderTraceTest : public WindowTest {
protected:
    ~RenderTraceTest() override {
        trace::tracing = false;
        trace::Frames().clear();
    }
};

TEST_F(RenderTraceTest, OperationsAreTraced) {
    trace::Start();
    Calls().afterVideoMode = [] { PrintStackTrace(); };
    testing::internal::CaptureStderr();
    EventCatcher* const catcher = render;
    const bool opened = catcher->GotEvent(Event(OpenWindowEvent));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#2: GLRender::OpenWindow\n#1: GLRender::GotEvent\n");
    EXPECT_TRUE(opened);
}

}  // namespace
