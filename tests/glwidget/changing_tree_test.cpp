// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Widgets that are destroyed or added while the tree is in use, by the application between two
// events and by handlers during one.

#include <algorithm>
#include <functional>
#include <sstream>

#include "glwidget/button.h"
#include "glwidget/combobox.h"
#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/kinds.h"
#include "glwidget/optionbox.h"
#include "glwidget/tabwindow.h"
#include "glwidget/textbox.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);
const Vector kMiddle(400.0f, 300.0f);  // of the screen, in pixels

/// Does what a test asks when an event reaches it.
class Handler : public PlainWidget {
public:
    using PlainWidget::PlainWidget;

    bool MouseClick(bool left, bool middle, bool right) override {
        Do(onClick);
        return PlainWidget::MouseClick(left, middle, right);
    }
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override {
        Do(onMove);
        return PlainWidget::MouseMove(x, y);
    }
    bool TextKeyPress(const KeyFlags& keys) override {
        Do(onKey);
        return PlainWidget::TextKeyPress(keys);
    }
    bool Update(int milliseconds) override {
        Do(onUpdate);
        return PlainWidget::Update(milliseconds);
    }

    void SetFocussed(GLWidget* other) override {
        PlainWidget::SetFocussed(other);
        Do(onFocus);
    }
    bool Solidify() override {
        Do(onSolidify);
        return PlainWidget::Solidify();
    }

    std::function<void()> onClick, onMove, onKey, onUpdate, onFocus, onSolidify;
    int events = 0;

private:
    /// A copy, because the handler may replace itself.
    void Do(std::function<void()> handler) {
        ++events;
        if (handler)
            handler();
    }
};

/// Holds a widget and destroys it and all its children in its destructor.
class Owner : public GLWindow {
public:
    explicit Owner(GLWidget* widget)
        : GLWindow("owner", nullptr, Vector(0.0f, 0.0f), nullptr, "Title", true), owned(widget) {}
    ~Owner() override {
        Destroy(owned);
        while (!children.empty())
            Destroy(children.back());
    }

protected:
    void Forget(const Gone& gone) override {
        GLWindow::Forget(gone);
        if (gone.contains(owned))
            owned = nullptr;
    }

private:
    GLWidget* owned;
};

class ChangingTreeTest : public WidgetTest {
protected:
    /// Every kind of event, from the top, as in a frame of an application.
    static void SendAllEvents() {
        GLWidget::MouseMoveWidgets(kMiddle);
        GLWidget::MouseClickWidgets(true, false, false);
        GLWidget::MouseClickWidgets(false, false, false);
        GLWidget::TextKeyPressWidgets(KeyFlags{});
        GLWidget::UpdateWidgets(16);
    }

    template <class Widget, class... Values>
    Widget* Make(const std::string& name, GLWidget* parent, Values... values) {
        auto* const widget = new Widget(name, parent, kOrigin, theme, values...);
        if (parent == nullptr) {
            GLWidget::widgets.push_back(widget);
        } else {
            parent->AddChild(widget);
        }
        return widget;
    }
    GLWindow* MakeWindow(const std::string& name, GLWidget* parent = nullptr) {
        return Make<GLWindow>(name, parent, "Title", true);
    }

    static void Build(const std::string& text) {
        std::istringstream layout(text);
        testing::internal::CaptureStderr();
        GLWidget::StartGUI(layout, "layout");
        testing::internal::GetCapturedStderr();
    }

    static bool Lives(const GLWidget* widget) {
        return std::ranges::count(Toolkit::Get().living, widget) != 0;
    }
};

TEST_F(ChangingTreeTest, DestroyedChildIsNoLongerHeldByItsParent) {
    GLWindow* const window = MakeWindow("window");
    auto* const child = Make<PlainWidget>("child", window);
    auto* const other = Make<PlainWidget>("other", window);
    GLWidget::Destroy(child);
    EXPECT_EQ(window->GetChildren(), std::vector<GLWidget*>{other});
    SendAllEvents();
    EXPECT_EQ(other->clicks, 2);
}

TEST_F(ChangingTreeTest, DestroyedTopLevelWidgetLeavesTheList) {
    GLWindow* const window = MakeWindow("window");
    auto* const child = Make<PlainWidget>("child", window);
    GLWidget::Destroy(window);
    EXPECT_TRUE(GLWidget::widgets.empty());
    EXPECT_EQ(child->GetParent(), nullptr);
    SendAllEvents();
    EXPECT_EQ(child->clicks, 0);
}

TEST_F(ChangingTreeTest, TextBoxThatIsEditedCanBeDestroyed) {
    GLWindow* const window = MakeWindow("window");
    auto* const box = Make<Textbox>("box", window, 10, 2);
    auto* const second = Make<Textbox>("second", window, 10, 2);
    box->Focus();
    GLWidget::Destroy(box);
    KeyFlags keys{};
    keys['a'] = true;
    GLWidget::TextKeyPressWidgets(keys);
    SendAllEvents();
    EXPECT_EQ(window->GetChildren(), std::vector<GLWidget*>{second});
}

TEST_F(ChangingTreeTest, WidgetOfAHiddenTabCanBeDestroyed) {
    auto* const tabs = Make<Opened<TabWindow>>("tabs", nullptr);
    tabs->AddTab(0, "Shown");
    tabs->AddTab(1, "Hidden");
    auto* const shown = new PlainWidget("shown", tabs, kOrigin, theme);
    auto* const hidden = new PlainWidget("hidden", tabs, kOrigin, theme);
    tabs->AddToTab(0, shown);
    tabs->AddToTab(1, hidden);
    tabs->Solidify();
    GLWidget::Destroy(hidden);
    EXPECT_TRUE(tabs->GetTabs()[1].widgets.empty());
    tabs->GetTabs()[1].button->Enable();
    tabs->MouseClick(true, false, false);
    EXPECT_TRUE(tabs->children.empty());
    SendAllEvents();
}

TEST_F(ChangingTreeTest, ParentOfADraggedWindowCanBeDestroyed) {
    GLWindow* const parent = MakeWindow("parent");
    auto* const child = new Opened<GLWindow>("child", parent, kOrigin, theme, "Title", true);
    GLWidget::widgets.push_back(child);
    child->dragging = true;
    child->MouseMove(0.0f, 0.0f);
    GLWidget::Destroy(parent);
    EXPECT_EQ(child->GetParent(), nullptr);
    child->MouseMove(5.0f, 5.0f);
    EXPECT_EQ(child->position.x, 5.0f);
}

TEST_F(ChangingTreeTest, ButtonsThatWidgetsOwnCanBeDestroyed) {
    auto* const list = Make<Combobox>("list", nullptr);
    auto* const tabs = Make<TabWindow>("tabs", nullptr);
    list->AddText("first");
    tabs->AddTab(0, "A");
    GLWidget::Destroy(GLWidget::GetByTag("__listdropbox"));
    GLWidget::Destroy(GLWidget::GetByTag("__tabstab0A"));
    EXPECT_TRUE(list->GetChildren().empty());
    EXPECT_EQ(tabs->GetTabs()[0].button, nullptr);
    list->AddText("a much longer text");
    tabs->Solidify();
    SendAllEvents();
}

TEST_F(ChangingTreeTest, WidgetAndTheButtonThatItOwnCanBeDestroyedInOneEvent) {
    auto* const handler = Make<Handler>("handler", nullptr);
    auto* const list = Make<Combobox>("list", nullptr);
    handler->onUpdate = [&] {
        GLWidget::Destroy(GLWidget::GetByTag("__listdropbox"));
        GLWidget::Destroy(list);
    };
    GLWidget::UpdateWidgets(16);
    EXPECT_FALSE(Lives(list));
    EXPECT_EQ(Toolkit::Get().living.size(), 1u);
}

TEST_F(ChangingTreeTest, TagGoesBackToTheNewestOtherWidgetOfItsName) {
    auto* const oldest = Make<PlainWidget>("name", nullptr);
    auto* const older = Make<PlainWidget>("name", nullptr);
    auto* const newest = Make<PlainWidget>("name", nullptr);
    GLWidget::Destroy(newest);
    EXPECT_EQ(GLWidget::GetByTag("name"), older);
    GLWidget::Destroy(oldest);
    EXPECT_EQ(GLWidget::GetByTag("name"), older);
    GLWidget::Destroy(older);
    EXPECT_EQ(GLWidget::GetByTag("name", false), nullptr);
}

TEST_F(ChangingTreeTest, TagDoesNotGoBackToAWidgetThatWaitsForItsDeletion) {
    auto* const older = Make<Handler>("name", nullptr);
    auto* const newer = Make<PlainWidget>("name", nullptr);
    GLWidget* found = older;
    older->onClick = [&] {
        GLWidget::Destroy(older);
        GLWidget::Destroy(newer);
        found = GLWidget::GetByTag("name", false);
    };
    GLWidget::MouseClickWidgets(true, false, false);
    EXPECT_EQ(found, nullptr);
}

/// The four kinds of events, as a handler and the call that brings the event.
struct EventKind {
    const char* name;
    std::function<void()> Handler::*handler;
    void (*send)();
};

void PrintTo(const EventKind& kind, std::ostream* stream) {
    *stream << kind.name;
}

const EventKind kEventKinds[] = {
    {"Click", &Handler::onClick, [] { GLWidget::MouseClickWidgets(true, false, false); }},
    {"Move", &Handler::onMove, [] { GLWidget::MouseMoveWidgets(kMiddle); }},
    {"Key", &Handler::onKey, [] { GLWidget::TextKeyPressWidgets(KeyFlags{}); }},
    {"Update", &Handler::onUpdate, [] { GLWidget::UpdateWidgets(16); }},
};

class ChangingTreeEventTest : public ChangingTreeTest,
                              public testing::WithParamInterface<EventKind> {
protected:
    std::function<void()>& HandlerOf(Handler* widget) { return widget->*(GetParam().handler); }
    static void Send() { GetParam().send(); }
};

TEST_P(ChangingTreeEventTest, ChildMayDestroyItself) {
    GLWindow* const window = MakeWindow("window");
    auto* const before = Make<Handler>("before", window);
    auto* const self = Make<Handler>("self", window);
    auto* const after = Make<Handler>("after", window);
    HandlerOf(self) = [&] { GLWidget::Destroy(self); };
    Send();
    EXPECT_FALSE(Lives(self));
    EXPECT_EQ(window->GetChildren(), (std::vector<GLWidget*>{before, after}));
    EXPECT_EQ(before->events, 1);
    EXPECT_EQ(after->events, 1);
}

TEST_P(ChangingTreeEventTest, TopLevelWidgetMayDestroyItself) {
    auto* const self = Make<Handler>("self", nullptr);
    auto* const after = Make<Handler>("after", nullptr);
    HandlerOf(self) = [&] { GLWidget::Destroy(self); };
    Send();
    EXPECT_FALSE(Lives(self));
    EXPECT_EQ(GLWidget::widgets, std::list<GLWidget*>{after});
    EXPECT_EQ(after->events, 1);
}

TEST_P(ChangingTreeEventTest, DestroyedSiblingGetsNoMoreOfTheEvent) {
    GLWindow* const window = MakeWindow("window");
    auto* const first = Make<Handler>("first", window);
    auto* const second = Make<Handler>("second", window);
    auto* const third = Make<Handler>("third", window);
    int eventsOfSecond = 0;
    HandlerOf(first) = [&] { GLWidget::Destroy(second); };
    HandlerOf(third) = [&] { eventsOfSecond = second->events; };
    Send();
    EXPECT_EQ(eventsOfSecond, 0);
    EXPECT_FALSE(Lives(second));
    EXPECT_EQ(third->events, 1);
}

TEST_P(ChangingTreeEventTest, AddedSiblingsGetTheNextEvent) {
    constexpr int kManyMoreThanTheListHasRoomFor = 100;
    GLWindow* const window = MakeWindow("window");
    auto* const first = Make<Handler>("first", window);
    auto* const last = Make<Handler>("last", window);
    HandlerOf(first) = [&] {
        for (int i = 0; i < kManyMoreThanTheListHasRoomFor; ++i)
            Make<Handler>("added", window);
    };
    Send();
    const auto* const added = dynamic_cast<Handler*>(GLWidget::GetByTag("added"));
    EXPECT_EQ(added->events, 0);
    EXPECT_EQ(last->events, 1);
    Send();
    EXPECT_EQ(added->events, 1);
}

TEST_P(ChangingTreeEventTest, AddedTopLevelWidgetGetsTheNextEvent) {
    auto* const first = Make<Handler>("first", nullptr);
    Handler* added = nullptr;
    HandlerOf(first) = [&] { added = Make<Handler>("added", nullptr); };
    Send();
    EXPECT_EQ(added->events, 0);
}

TEST_P(ChangingTreeEventTest, ChildMayDestroyAllThatHoldsIt) {
    GLWindow* const window = MakeWindow("window");
    auto* const tabs = Make<TabWindow>("tabs", window);
    auto* const frame = new Frame("frame", tabs, kOrigin, theme, true);
    tabs->AddTab(0, "Tab");
    tabs->AddToTab(0, frame);
    auto* const child = Make<Handler>("child", frame);
    HandlerOf(child) = [&] {
        GLWidget::Destroy(window);
        GLWidget::Destroy(tabs);
        GLWidget::Destroy(frame);
        GLWidget::Destroy(child);
    };
    Send();
    EXPECT_TRUE(GLWidget::widgets.empty());
    EXPECT_TRUE(Toolkit::Get().living.empty());
}

TEST_P(ChangingTreeEventTest, ChildMayDestroyItsWindowWhenTheWindowIsCalledDirectly) {
    GLWindow* const window = MakeWindow("window");
    auto* const child = Make<Handler>("child", window);
    HandlerOf(child) = [&] {
        GLWidget::Destroy(window);
        GLWidget::Destroy(child);
    };
    window->MouseMove(0.0f, 0.0f);
    if (Lives(window))
        window->MouseClick(true, false, false);
    if (Lives(window))
        window->TextKeyPress(KeyFlags{});
    if (Lives(window))
        window->Update(16);
    EXPECT_TRUE(Toolkit::Get().living.empty());
}

TEST_P(ChangingTreeEventTest, TopLevelWidgetMayHideItself) {
    auto* const self = Make<Handler>("self", nullptr);
    auto* const after = Make<Handler>("after", nullptr);
    HandlerOf(self) = [&] { GLWidget::widgets.remove(self); };
    Send();
    Send();
    EXPECT_EQ(self->events, 1);
    EXPECT_EQ(after->events, 2);
}

TEST_P(ChangingTreeEventTest, TopLevelWidgetThatRaisesItselfGetsTheEventOnce) {
    auto* const self = Make<Handler>("self", nullptr);
    auto* const after = Make<Handler>("after", nullptr);
    HandlerOf(self) = [&] {
        GLWidget::widgets.remove(self);
        GLWidget::widgets.push_back(self);
    };
    Send();
    EXPECT_EQ(self->events, 1);
    EXPECT_EQ(after->events, 1);
    EXPECT_EQ(GLWidget::widgets, (std::list<GLWidget*>{after, self}));
}

TEST_P(ChangingTreeEventTest, AllTopLevelWidgetsMayBeHidden) {
    auto* const self = Make<Handler>("self", nullptr);
    auto* const after = Make<Handler>("after", nullptr);
    HandlerOf(self) = [&] { GLWidget::widgets.clear(); };
    Send();
    EXPECT_EQ(after->events, 1);
}

TEST_P(ChangingTreeEventTest, EventMaySendAnotherEvent) {
    auto* const self = Make<Handler>("self", nullptr);
    auto* const after = Make<Handler>("after", nullptr);
    HandlerOf(self) = [&] {
        HandlerOf(self) = [&] { GLWidget::Destroy(self); };
        Send();
        EXPECT_TRUE(Lives(self));
    };
    Send();
    EXPECT_FALSE(Lives(self));
    EXPECT_EQ(after->events, 2);
}

TEST_P(ChangingTreeEventTest, ChildOfATabsButtonMayAddTabs) {
    auto* const tabs = Make<TabWindow>("tabs", nullptr);
    tabs->AddTab(0, "First");
    auto* const child = new Handler("child", nullptr, kOrigin, theme);
    tabs->GetTabs()[0].button->AddChild(child);
    HandlerOf(child) = [&] { tabs->AddTab(TabWindow::kMaxTabs - 1, "Last"); };
    Send();
    EXPECT_TRUE(tabs->GetTabs()[0].button->GetChildren().empty() || child->events == 0);
}

TEST_P(ChangingTreeEventTest, TabsMayBeChangedByAWidgetOnThem) {
    auto* const tabs = Make<TabWindow>("tabs", nullptr);
    tabs->AddTab(0, "Shown");
    tabs->AddTab(1, "Hidden");
    auto* const self = new Handler("self", tabs, kOrigin, theme);
    auto* const other = new Handler("other", tabs, kOrigin, theme);
    tabs->AddToTab(0, self);
    tabs->AddToTab(0, other);
    tabs->Solidify();
    HandlerOf(self) = [&] {
        HandlerOf(self) = nullptr;
        tabs->AddTab(0, "Empty");
        tabs->GetTabs()[1].button->Enable();
        tabs->MouseClick(true, false, false);
        for (int i = 0; i < TabWindow::kMaxTabs; ++i)
            tabs->AddToTab(i, new PlainWidget("added", tabs, kOrigin, theme));
        tabs->Solidify();
        GLWidget::Destroy(self);
    };
    Send();
    EXPECT_FALSE(Lives(self));
    EXPECT_TRUE(Lives(other));
    SendAllEvents();
}

TEST_P(ChangingTreeEventTest, ChildMayMoveToAnotherWindow) {
    GLWindow* const first = MakeWindow("first");
    GLWindow* const second = MakeWindow("second");
    auto* const self = Make<Handler>("self", first);
    HandlerOf(self) = [&] {
        HandlerOf(self) = nullptr;
        second->AddChild(self);
        GLWidget::Destroy(first);
    };
    Send();
    EXPECT_EQ(self->GetParent(), nullptr);
    EXPECT_EQ(second->GetChildren(), std::vector<GLWidget*>{self});
    GLWidget::Destroy(self);
    EXPECT_TRUE(second->GetChildren().empty());
}

TEST_P(ChangingTreeEventTest, LayoutMayBeBuiltTwice) {
    auto* const handler = Make<Handler>("handler", nullptr);
    constexpr char kLayout[] =
        "CADD TWin tabs NULL 0 0\nNTAB tabs 1 Second\nTADD 1 Win win tabs 0 0 1 Title\n"
        "CADD Combo list win 0 0\nTEXT list item\nCADD Text box win 0 0 10 1\n";
    HandlerOf(handler) = [&] {
        Build(kLayout);
        Build(kLayout);
    };
    Send();
    EXPECT_EQ(GLWidget::widgets.size(), 3u);
    HandlerOf(handler) = nullptr;
    SendAllEvents();
}

TEST_P(ChangingTreeEventTest, HandlerMayWaitForTheAnswerToAMessageBox) {
    const WorkingFolder folder;
    auto* const handler = Make<Handler>("handler", nullptr);
    HandlerOf(handler) = [&] {
        HandlerOf(handler) = nullptr;
        testing::internal::CaptureStderr();
        GLWidget::MessageBox("Question", 12);
        GLWidget* const yes = GLWidget::GetByTag("__msgbox_yes");
        yes->Focus();
        yes->MouseClick(true, false, false);
        GLWidget::UpdateWidgets(16);
        EXPECT_EQ(GLWidget::msgboxResult, 4u);
        GLWidget::MessageBox("Next question", 12);
        EXPECT_NE(GLWidget::GetByTag("__msgbox", false), nullptr);
        GLWidget::Destroy(GLWidget::GetByTag("__msgbox"));
        GLWidget::MessageBox("Last question", 3);
        testing::internal::GetCapturedStderr();
    };
    Send();
    SendAllEvents();
    EXPECT_EQ(GLWidget::widgets.back(), GLWidget::GetByTag("__msgbox"));
}

TEST_P(ChangingTreeEventTest, ToolkitCannotBeReset) {
    auto* const handler = Make<Handler>("handler", nullptr);
    HandlerOf(handler) = [] { Toolkit::Get().Reset(); };
    EXPECT_EXIT(Send(), testing::ExitedWithCode(0),
                "Assert failed on glwidget/toolkit:[0-9]+ - \"dispatches == 0\"");
}

INSTANTIATE_TEST_SUITE_P(Events, ChangingTreeEventTest, testing::ValuesIn(kEventKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_F(ChangingTreeTest, OptionThatDestroysItselfOnAClickClearsNoOtherOption) {
    GLWindow* const window = MakeWindow("window");
    auto* const chosen = Make<PlainWidget>("chosen", window);
    auto* const self = Make<Handler>("self", window);
    self->unique = true;
    self->onClick = [&] { GLWidget::Destroy(self); };
    GLWidget::MouseClickWidgets(true, false, false);
    EXPECT_TRUE(chosen->told.empty());
}

TEST_F(ChangingTreeTest, GroupIsSetBackToItsFirstMemberThatIsNotDestroyed) {
    GLWindow* const window = MakeWindow("window");
    auto* const first = Make<Optionbox>("first", window, "First");
    auto* const second = Make<Optionbox>("second", window, "Second");
    auto* const handler = Make<Handler>("handler", window);
    handler->onUpdate = [&] {
        GLWidget::Destroy(first);
        Make<Optionbox>("third", window, "Third");
    };
    GLWidget::UpdateWidgets(16);
    EXPECT_TRUE(second->Clicked());
    EXPECT_FALSE(GLWidget::GetByTag("third")->Clicked());
}

TEST_F(ChangingTreeTest, MessageBoxMayBeShownByAHandler) {
    const WorkingFolder folder;
    auto* const handler = Make<Handler>("handler", nullptr);
    handler->onClick = [] { GLWidget::MessageBox("Message", 3); };
    testing::internal::CaptureStderr();
    GLWidget::MouseClickWidgets(true, false, false);
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(GLWidget::widgets.back(), GLWidget::GetByTag("__msgbox"));
}

TEST_F(ChangingTreeTest, WidgetThatHoldsAnotherCannotBecomeItsChild) {
    GLWindow* const outer = MakeWindow("outer");
    GLWindow* const middle = MakeWindow("middle", outer);
    auto* const inner = Make<Frame>("inner", middle, true);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(inner->AddChild(outer));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "widget inner cannot hold outer, which holds it\n");
    EXPECT_TRUE(inner->GetChildren().empty());
    SendAllEvents();
}

TEST_F(ChangingTreeTest, WidgetCannotBecomeItsOwnChild) {
    GLWindow* const window = MakeWindow("window");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(window->AddChild(window));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "widget window cannot hold window, which holds it\n");
    EXPECT_TRUE(window->GetChildren().empty());
}

TEST_F(ChangingTreeTest, TabWindowCannotBecomeAChildOfAWidgetOnAHiddenTab) {
    auto* const tabs = Make<TabWindow>("tabs", nullptr);
    auto* const hidden = new Frame("hidden", tabs, kOrigin, theme, true);
    tabs->AddTab(0, "Shown");
    tabs->AddTab(1, "Hidden");
    tabs->AddToTab(1, hidden);
    tabs->Solidify();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(hidden->AddChild(tabs));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "widget hidden cannot hold tabs, which holds it\n");
    EXPECT_TRUE(hidden->GetChildren().empty());
}

TEST_F(ChangingTreeTest, TabDoesNotKeepAWidgetThatItsWindowRefuses) {
    GLWindow* const outer = MakeWindow("outer");
    auto* const tabs = Make<TabWindow>("tabs", outer);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(tabs->AddToTab(0, outer));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "widget tabs cannot hold outer, which holds it\n");
    EXPECT_TRUE(tabs->GetTabs()[0].widgets.empty());
}

TEST_F(ChangingTreeTest, OptionThatIsNoLongerChosenMayDestroyItselfAndAddOthers) {
    GLWindow* const window = MakeWindow("window");
    auto* const first = Make<PlainWidget>("first", window);
    first->unique = true;
    auto* const self = new Handler("self", window, kOrigin, theme);
    self->unique = true;
    PlainWidget* added = nullptr;
    self->onFocus = [&] {
        GLWidget::Destroy(self);
        for (int i = 0; i < 100; ++i)
            added = Make<PlainWidget>("added", window);
    };
    window->AddChild(self);
    EXPECT_FALSE(Lives(self));
    EXPECT_EQ(window->GetChildren().size(), 101u);
    EXPECT_EQ(window->GetChildren().back(), added);
}

TEST_F(ChangingTreeTest, OptionThatIsNoLongerChosenMayDestroyItsWindow) {
    auto* const tabs = Make<TabWindow>("tabs", nullptr);
    auto* const first = new PlainWidget("first", tabs, kOrigin, theme);
    auto* const self = new Handler("self", tabs, kOrigin, theme);
    first->unique = true;
    self->unique = true;
    tabs->AddToTab(0, first);
    self->onFocus = [&] { GLWidget::Destroy(tabs); };
    tabs->AddToTab(0, self);
    EXPECT_FALSE(Lives(tabs));
    EXPECT_EQ(self->GetParent(), nullptr);
}

TEST_F(ChangingTreeTest, ChildMayFillItsWindowWhileTheWindowIsSolidified) {
    GLWindow* const window = MakeWindow("window");
    auto* const self = Make<Handler>("self", window);
    auto* const after = Make<Handler>("after", window);
    self->onSolidify = [&] {
        for (int i = 0; i < 100; ++i)
            Make<PlainWidget>("added", window)->size = Vector(2.0f, 3.0f);
    };
    window->Solidify();
    EXPECT_EQ(after->events, 1);
    EXPECT_GT(window->Getbbox().z, 2.0f);
}

TEST_F(ChangingTreeTest, WidgetsMayDestroyThemselvesWhileTheLayoutIsSolidified) {
    auto* const tabs = Make<TabWindow>("tabs", nullptr);
    auto* const child = new Handler("child", tabs, kOrigin, theme);
    tabs->AddToTab(0, child);
    auto* const self = Make<Handler>("self", nullptr);
    child->size = Vector(5.0f, 5.0f);
    child->onSolidify = [&] {
        GLWidget::Destroy(child);
        GLWidget::Destroy(tabs);
    };
    self->onSolidify = [&] { GLWidget::Destroy(self); };
    Build("");
    EXPECT_TRUE(Toolkit::Get().living.empty());
}

TEST_F(ChangingTreeTest, KindMayDestroyWidgetsThatWaitToBeAttached) {
    static const Kind kDestroyer{
        .word = "Destroyer", .type = "PlainWidget", .make = [](const Creation& line) -> GLWidget* {
            GLWidget::Destroy(GLWidget::GetByTag("window"));
            return new PlainWidget(line.tag, line.parent, line.position, line.theme);
        }};
    RegisterKind(kDestroyer);
    Build(
        "CADD Win outer NULL 0 0 0 Outer\nCADD Win window outer 0 0 0 Inner\n"
        "CADD Frame frame window 0 0 1\nCADD Destroyer destroyer window 0 0\n");
    EXPECT_TRUE(GLWidget::GetByTag("outer")->GetChildren().empty());
    EXPECT_EQ(GLWidget::GetByTag("frame")->GetParent(), nullptr);
    EXPECT_EQ(GLWidget::GetByTag("destroyer")->GetParent(), nullptr);
}

TEST_F(ChangingTreeTest, WidgetsMayOwnOlderWidgetsAndTheirChildren) {
    auto* const owned = Make<PlainWidget>("owned", nullptr);
    auto* const child = new PlainWidget("child", nullptr, kOrigin, theme);
    auto* const owner = new Owner(owned);
    owner->AddChild(child);
    GLWidget::Destroy(owner);
    EXPECT_TRUE(Toolkit::Get().living.empty());
    EXPECT_TRUE(GLWidget::widgets.empty());
}

TEST_F(ChangingTreeTest, ResetDeletesWidgetsThatOwnOlderWidgets) {
    auto* const owned = Make<PlainWidget>("owned", nullptr);
    auto* const child = new PlainWidget("child", nullptr, kOrigin, theme);
    auto* const owner = new Owner(owned);
    owner->AddChild(child);
    owner->AddChild(Make<PlainWidget>("second", owner));
    Toolkit::Get().Reset();
    EXPECT_TRUE(Toolkit::Get().living.empty());
}

TEST_F(ChangingTreeTest, DestructorMaySendEvents) {
    class Sender : public Handler {
    public:
        using Handler::Handler;
        ~Sender() override { SendAllEvents(); }
    };
    auto* const first = Make<Sender>("first", nullptr);
    auto* const second = Make<Sender>("second", nullptr);
    auto* const handler = Make<Handler>("handler", nullptr);
    handler->onClick = [&] {
        GLWidget::Destroy(first);
        GLWidget::Destroy(second);
        GLWidget::Destroy(handler);
    };
    GLWidget::MouseClickWidgets(true, false, false);
    EXPECT_TRUE(Toolkit::Get().living.empty());
}

TEST_F(ChangingTreeTest, OpenListCanBeDestroyedByAChild) {
    auto* const list = Make<Combobox>("list", nullptr);
    list->AddText("item");
    auto* const child = Make<Handler>("child", list);
    const Vector box = list->Getbbox();
    list->MouseMove(box.z / 2.0f, box.w / 2.0f);
    list->MouseClick(true, false, false);
    ASSERT_LT(list->GetDepth(), -0.5f);
    child->onClick = [&] { GLWidget::Destroy(list); };
    list->MouseClick(false, false, false);
    EXPECT_FALSE(Lives(list));
    EXPECT_EQ(child->GetParent(), nullptr);
}

TEST_F(ChangingTreeTest, DraggedWindowCanBeDestroyedByAChild) {
    GLWindow* const outer = MakeWindow("outer");
    auto* const window = Make<Opened<GLWindow>>("window", outer, "Title", true);
    auto* const child = Make<Handler>("child", window);
    window->dragging = true;
    child->onMove = [&] {
        GLWidget::Destroy(outer);
        GLWidget::Destroy(window);
    };
    GLWidget::MouseMoveWidgets(kMiddle);
    EXPECT_FALSE(Lives(outer));
    EXPECT_FALSE(Lives(window));
}

TEST_F(ChangingTreeTest, ThemeThatLostItsNameStaysUntilTheReset) {
    Theme* const mine = GLWidget::NewTheme("mine");
    GLWidget::currentTheme = mine;
    mine->border = 0.25f;
    GLWidget::NewTheme("mine");
    GLWidget::themes.erase("mine");
    Build("CADD Butt button NULL 0 0 Press\n");
    EXPECT_EQ(GLWidget::GetByTag("button")->GetTheme().border, 0.25f);
}

}  // namespace
