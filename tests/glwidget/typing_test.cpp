// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <SDL.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>

#include "glwidget/glwidget.h"
#include "quarn2/glrender.h"
#include "quarn2/kernel.h"
#include "quarn2/sdlinput.h"

namespace {

/// Hands the input events to the widgets.
class Forwarder : public EventCatcher {
public:
    Forwarder() : EventCatcher(nullptr) {}

    bool GotEvent(Event ev) override {
        if (ev.type == MouseEvent) {
            mouse = Vector(static_cast<float>(ev.x), static_cast<float>(ev.y));
            GLWidget::MouseMoveWidgets(mouse);
            GLWidget::MouseClickWidgets(ev.left, ev.middle, ev.right);
        }
        if (ev.type == KeyEvent)
            GLWidget::TextKeyPressWidgets(ev.keyboard.pressed);
        return true;
    }

    Vector mouse{-1.0f, -1.0f};
};

/// Two text boxes and two options of a layout, in a real window with the keyboard and pointer of
/// the X server.
class TypingTest : public testing::Test {
protected:
    static constexpr char kLayout[] =
        "CONF gui.conf\n"
        "THEM default NULL\n"
        "CADD Win window NULL -1.5 -0.5 0 Typing\n"
        "CADD Text first window 0.1 0.1 20 2\n"
        "CADD Text second window 0.1 0.4 20 2\n"
        "CADD Opt one window 1.5 0.1 one\n"
        "CADD Opt two window 1.5 0.4 two\n";

    TypingTest() {
        constexpr std::uint32_t kInputChannels = 1U << 6 | 1U << 8;
        kernel->AddChild(static_cast<Forwarder*>(forwarder), kInputChannels, 0);
        input = new SDLInput(kernel, false);
        window = new GLRender(kernel);
        Event open(OpenWindowEvent);
        open.caption = "Typing";
        opened = kernel->SendEvent(nullptr, Event(LoadResourcesEvent))
                 && kernel->SendEvent(nullptr, open);
    }
    ~TypingTest() override {
        Toolkit::Get().Reset();
        kernel->SendEvent(nullptr, Event(QuitEvent));
        kernel->RemoveChild(static_cast<SDLInput*>(input));
        kernel->RemoveChild(static_cast<GLRender*>(window));
        kernel->RemoveChild(static_cast<Forwarder*>(forwarder));
    }

    void SetUp() override {
        ASSERT_TRUE(opened);
        const std::filesystem::path home = std::filesystem::current_path();
        std::filesystem::current_path("data");
        std::istringstream layout(kLayout);
        testing::internal::CaptureStderr();
        GLWidget::StartGUI(layout, "layout");
        testing::internal::GetCapturedStderr();
        std::filesystem::current_path(home);
        Do("search --sync --name '^Typing$' windowfocus --sync %1");
    }

    static void Do(const std::string& what) {
        EXPECT_EQ(std::system(("xdotool " + what).c_str()), 0) << what;
    }

    bool Frame() {
        Event update(UpdateEvent);
        update.time = 10;
        return kernel->SendEvent(nullptr, update) && kernel->SendEvent(nullptr, Event(RenderEvent));
    }
    /// Runs frames until a condition holds or time is over. @return whether it holds
    template <typename Condition>
    bool RunUntil(Condition isSo) {
        for (int frame = 0; frame < 500; ++frame) {
            if (!Frame())
                return false;
            if (isSo())
                return true;
            SDL_Delay(10);
        }
        return false;
    }

    /// Moves the pointer to the middle of a widget of the window.
    void PointAt(const std::string& tag) {
        const Vector outer = GLWidget::GetByTag("window")->Getbbox();
        const Vector box = GLWidget::GetByTag(tag)->Getbbox();
        const float x = outer.x + (box.x + box.z) / 2.0f;
        const float y = outer.y + (box.y + box.w) / 2.0f;
        const long column = std::lround((x / GLWidget::HalfWidth() + 1.0f) * 400.0f);
        const long row = std::lround((1.0f - y / GLWidget::guiScale) * 300.0f);
        const auto move = [](long toX, long toY) {
            Do("search --name '^Typing$' mousemove --window %1 " + std::to_string(toX) + " "
               + std::to_string(toY));
        };
        // The first movement is not reported, so more than one may be needed.
        for (int attempt = 0; attempt < 20; ++attempt) {
            move(column + attempt % 2, row);
            Frame();
            SDL_Delay(20);
            Frame();
            if (std::lround(forwarder->mouse.x) == column && std::lround(forwarder->mouse.y) == row)
                return;
        }
        ADD_FAILURE() << "the pointer does not get to " << tag;
    }

    template <typename Condition>
    void ClickOn(const std::string& tag, Condition isDone) {
        PointAt(tag);
        Do("mousedown 1");
        EXPECT_TRUE(RunUntil(isDone)) << tag;
        Do("mouseup 1");
        for (int frame = 0; frame < 5; ++frame) {
            Frame();
            SDL_Delay(10);
        }
    }
    void Edit(const std::string& tag) {
        ClickOn(tag, [&] { return GLWidget::GetByTag(tag)->HasFocus(); });
    }

    /// Presses a key and waits until the box has the expected text.
    void PressKey(const std::string& key, const std::string& tag, const std::string& expected) {
        Do("keydown " + key);
        EXPECT_TRUE(RunUntil([&] { return Text(tag) == expected; })) << Text(tag);
        Do("keyup " + key);
        Frame();
    }

    static const std::string& Text(const std::string& tag) {
        return GLWidget::GetByTag(tag)->GetText();
    }

    Pointer<Kernel> kernel = new Kernel;
    Pointer<Forwarder> forwarder = new Forwarder;
    Pointer<SDLInput> input;
    Pointer<GLRender> window;
    bool opened = false;
};

TEST_F(TypingTest, KeysGoToTheBoxThatWasClicked) {
    Edit("first");
    PressKey("a", "first", "a");
    PressKey("b", "first", "ab");
    Edit("second");
    EXPECT_FALSE(GLWidget::GetByTag("first")->HasFocus());
    PressKey("c", "second", "c");
    EXPECT_EQ(Text("first"), "ab");
}

TEST_F(TypingTest, CaretAndEditingKeysReachTheBox) {
    Edit("first");
    PressKey("a", "first", "a");
    PressKey("b", "first", "ab");
    Do("keydown Left");
    for (int frame = 0; frame < 10; ++frame) {
        Frame();
        SDL_Delay(10);
    }
    Do("keyup Left");
    Frame();
    PressKey("BackSpace", "first", "b");
    PressKey("Return", "first", "\nb");
    PressKey("Delete", "first", "\n");
    PressKey("space", "first", "\n ");
}

TEST_F(TypingTest, LetterWithShiftTypesBothAndOnlyTheCapitalRepeats) {
    Edit("first");
    Do("keydown shift keydown a");
    EXPECT_TRUE(RunUntil([&] { return Text("first") == "Aa"; })) << Text("first");
    Do("keyup a keyup shift");
    EXPECT_TRUE(RunUntil([&] { return Text("first").starts_with("AaAAA"); })) << Text("first");
    EXPECT_EQ(Text("first").find('a', 2), std::string::npos);
}

TEST_F(TypingTest, OptionEndsTheEditing) {
    Edit("first");
    PressKey("a", "first", "a");
    GLWidget* const option = GLWidget::GetByTag("two");
    ClickOn("two", [&] { return option->Clicked(); });
    EXPECT_FALSE(GLWidget::GetByTag("first")->HasFocus());
    Do("keydown b");
    for (int frame = 0; frame < 20; ++frame) {
        Frame();
        SDL_Delay(10);
    }
    Do("keyup b");
    EXPECT_EQ(Text("first"), "a");
    EXPECT_FALSE(GLWidget::GetByTag("one")->Clicked());
}

TEST_F(TypingTest, BoxDeselectsTheOptions) {
    GLWidget* const option = GLWidget::GetByTag("two");
    ClickOn("two", [&] { return option->Clicked(); });
    Edit("second");
    EXPECT_FALSE(option->Clicked());
}

}  // namespace
