// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/layout.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <sstream>

#include "glwidget/drawing.h"
#include "glwidget/tabwindow.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class LayoutTest : public WidgetTest {
protected:
    LayoutTest() {
        for (const char* name : {"default", "combo_button", "tabwin_button", "messagebox"})
            directory.Write(std::string(name) + ".theme", kPlainTheme);
    }

    /// Without a texture, so that no picture is loaded.
    static constexpr const char* kPlainTheme =
        "1 1 1\n1 1 1\n1 1 1\n1 1 1\n1\n1\n1\n0.125\n0.1\n1\n0.04 0.05\n0.7 1\n0 0 "
        "0\n0.1\nNULL\n1\n";

    /// Builds the layout. @return what it wrote after the default theme's lines
    static std::string Build(const std::string& layout) {
        std::istringstream file(layout);
        testing::internal::CaptureStderr();
        EXPECT_TRUE(GLWidget::StartGUI(file, "test.gui"));
        const std::string report = testing::internal::GetCapturedStderr();
        const std::string start = "read theme default.theme\n";
        const std::size_t end = report.find(start);
        return end == std::string::npos ? report : report.substr(end + start.size());
    }

    static GLWidget* Find(std::string_view tag) { return GLWidget::GetByTag(tag, false); }

    static std::vector<GLWidget*> ChildrenOf(GLWidget* widget) {
        // Reads a protected member through the pointer that a derived class may name.
        return widget->*&PlainWidget::children;
    }
    static std::size_t ChildCount(std::string_view tag) { return ChildrenOf(Find(tag)).size(); }

    static void ExpectBox(std::string_view tag, float left, float bottom, float right, float top) {
        const Vector box = Find(tag)->Getbbox();
        EXPECT_FLOAT_EQ(box.x, left) << tag;
        EXPECT_FLOAT_EQ(box.y, bottom) << tag;
        EXPECT_FLOAT_EQ(box.z, right) << tag;
        EXPECT_FLOAT_EQ(box.w, top) << tag;
    }

    WorkingFolder directory;
};

using LayoutDeathTest = LayoutTest;

TEST_F(LayoutTest, NameOfTheFileIsWrittenBeforeTheDefaultThemeIsRead) {
    directory.Write("my.gui", "// nothing\n");
    testing::internal::CaptureStderr();
    EXPECT_TRUE(GLWidget::StartGUI("my.gui"));
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(report.starts_with("Starting GUI from my.gui\nreading theme default.theme\n"))
        << report;
    EXPECT_TRUE(report.ends_with("read theme default.theme\nProcessing '//'\n")) << report;
}

TEST_F(LayoutTest, MissingFileIsReadAsAnEmptyOne) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(GLWidget::StartGUI("nowhere.gui"));
    EXPECT_TRUE(testing::internal::GetCapturedStderr().ends_with("read theme default.theme\n"));
    EXPECT_TRUE(GLWidget::widgets.empty());
}

TEST_F(LayoutTest, DirectoryIsReadAsAnEmptyFile) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(GLWidget::StartGUI("."));
    testing::internal::GetCapturedStderr();
    EXPECT_TRUE(GLWidget::widgets.empty());
}

TEST_F(LayoutTest, CommentsAndTheDefaultThemeMakeNoWidget) {
    std::filesystem::remove("default.theme");
    GLWidget::tags.clear();
    Build("// a comment\nTHEM default NULL\n//another one\n");
    EXPECT_TRUE(GLWidget::widgets.empty());
    EXPECT_TRUE(GLWidget::tags.empty());
    ASSERT_NE(GLWidget::currentTheme, nullptr);
    EXPECT_EQ(GLWidget::currentTheme, GLWidget::themes["default"]);
    EXPECT_EQ(GLWidget::currentTheme->textureName, "gui.tga");
    EXPECT_EQ(GLWidget::currentTheme->border, 0.005f);
}

TEST_F(LayoutTest, WithoutAThemeFileTheDefaultThemeHasTheBuiltInValues) {
    std::filesystem::remove("default.theme");
    const std::string report = Build("");
    EXPECT_THAT(report, Not(HasSubstr("reading theme")));
    EXPECT_EQ(GLWidget::themes["default"]->textureName, "gui.tga");
}

TEST_F(LayoutTest, DefaultThemeIsReadFromItsFile) {
    Build("");
    EXPECT_EQ(GLWidget::themes["default"]->textureName, "NULL");
    EXPECT_EQ(GLWidget::themes["default"]->border, 0.125f);
}

TEST_F(LayoutTest, WidgetsUseTheDefaultThemeUntilTheLayoutNamesAnother) {
    directory.Write("other.theme", kPlainTheme);
    Build("CADD Frame first NULL 0 0 0\nTHEM other.theme NULL\nCADD Frame second NULL 0 0 0\n");
    EXPECT_EQ(Find("first")->*&PlainWidget::theme, GLWidget::themes["default"]);
    EXPECT_EQ(Find("second")->*&PlainWidget::theme, GLWidget::themes["other.theme"]);
}

TEST_F(LayoutTest, SecondLayoutUsesTheDefaultThemeThatItRegistered) {
    Build("CADD Frame first NULL 0 0 0\n");
    Theme* const earlier = GLWidget::themes["default"];
    Build("CADD Frame second NULL 0 0 0\n");
    EXPECT_NE(GLWidget::themes["default"], earlier);
    EXPECT_EQ(Find("first")->*&PlainWidget::theme, earlier);
    EXPECT_EQ(Find("second")->*&PlainWidget::theme, GLWidget::themes["default"]);
}

TEST_F(LayoutTest, SecondLayoutKeepsTheThemeThatTheFirstNamed) {
    directory.Write("other.theme", kPlainTheme);
    Build("THEM other.theme NULL\n");
    Build("CADD Frame second NULL 0 0 0\n");
    EXPECT_EQ(Find("second")->*&PlainWidget::theme, GLWidget::themes["other.theme"]);
}

TEST_F(LayoutTest, ThemeIsReadOncePerName) {
    directory.Write("other.theme", kPlainTheme);
    const std::string report =
        Build("THEM other.theme NULL\nTHEM default NULL\nTHEM other.theme NULL\n");
    const std::string line = "reading theme other.theme\n";
    const std::size_t first = report.find(line);
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(report.find(line, first + 1), std::string::npos);
    EXPECT_EQ(GLWidget::currentTheme, GLWidget::themes["other.theme"]);
}

TEST_F(LayoutDeathTest, ThemeWithAnAdditionalFileFailsTheAssertion) {
    EXPECT_EXIT(
        {
            std::istringstream file("THEM default more\n");
            GLWidget::StartGUI(file, "test.gui");
        },
        testing::ExitedWithCode(0),
        "Assert failed on glwidget/glwidget:459 - \"additional == \"NULL\"\"\n");
}

TEST_F(LayoutTest, EveryStatementWordIsReported) {
    EXPECT_EQ(Build("// comment\nunknown words here\nCHLD Label x NULL 0 0\n//x y\nSOLID\n"),
              "Processing '//'\nProcessing 'unknown'\nProcessing 'CHLD'\nProcessing '//x'\n"
              "Processing 'SOLID'\n");
    EXPECT_TRUE(GLWidget::widgets.empty());
}

TEST_F(LayoutTest, ConfigurationIsReadFromTheNamedFile) {
    directory.Write("gui.conf", "missing.ttf\nword\n0.5 0.6 0.7 0.8\n");
    const std::string report = Build("CONF gui.conf and a comment\nunknown\n");
    EXPECT_EQ(report,
              "Processing 'CONF'\nLoading missing.ttf\nError loading the font\nLoaded.\n"
              "Processing 'unknown'\n");
    EXPECT_EQ(GLWidget::optionRect.w, 0.8f);
}

TEST_F(LayoutTest, EveryCreationIsReported) {
    EXPECT_EQ(Build("CADD Frame f NULL 0 0 0\nCADD Check c f 0 0 tick\n"),
              "Processing 'CADD'\nadding a 'Frame' - f\nProcessing 'CADD'\nadding a 'Check' - c\n");
}

TEST_F(LayoutTest, UnknownKindMakesNothing) {
    EXPECT_EQ(Build("CADD Gadget g NULL 0 0 0\n"), "Processing 'CADD'\nadding a 'Gadget' - g\n");
    EXPECT_EQ(Find("g"), nullptr);
}

TEST_F(LayoutTest, TopLevelWidgetsKeepTheOrderOfTheFile) {
    Build("CADD Frame b NULL 0 0 0\nCADD Check a NULL 0 0 x\n");
    EXPECT_EQ(GLWidget::widgets, (std::list<GLWidget*>{Find("b"), Find("a")}));
    EXPECT_EQ(Find("a")->GetParent(), nullptr);
}

TEST_F(LayoutTest, WindowTakesFlagAndTitle) {
    const std::string report = Build("CADD Win w NULL 0.5 0.25 1 A title of words\n");
    EXPECT_THAT(report, EndsWith("adding a 'Win' - w\nadding window w 1\n"));
    GLWidget* const window = Find("w");
    EXPECT_EQ(window->GetType(), "GLWindow");
    EXPECT_EQ(window->GetText(), "A title of words");
    const Vector box = window->Getbbox();
    EXPECT_EQ(box.x, 0.5f);
    EXPECT_EQ(box.y, 0.25f);
    window->MouseMove(0.5f, box.w);
    EXPECT_TRUE(window->HasFocus()) << "movable";
}

TEST_F(LayoutTest, WindowWithoutATitleHasTheEmptyOneAndLeavesTheNextLine) {
    const std::string report = Build("CADD Win w NULL 0 0 0\nCADD Check c NULL 0 0 tick\n");
    EXPECT_THAT(report, HasSubstr("adding window w 0\n"));
    EXPECT_EQ(Find("w")->GetText(), "");
    ASSERT_NE(Find("c"), nullptr);
    GLWidget* const window = Find("w");
    window->MouseMove(0.0f, window->Getbbox().w);
    EXPECT_FALSE(window->HasFocus()) << "not movable";
}

TEST_F(LayoutTest, FrameTakesItsFlag) {
    Build(
        "CADD Frame plain NULL 0 0 0\nCADD Frame bordered NULL 0 0 1\n"
        "CADD Check a plain 0 0\nCADD Check b bordered 0 0\n");
    EXPECT_EQ(Find("plain")->GetType(), "Frame");
    Find("plain")->MouseMove(0.5f, 0.5f);
    Find("bordered")->MouseMove(0.5f, 0.5f);
    EXPECT_FLOAT_EQ((Find("a")->*&PlainWidget::mouse).x, 0.5f);
    EXPECT_FLOAT_EQ((Find("b")->*&PlainWidget::mouse).x, 0.5f - 3.0f * 0.125f);
}

TEST_F(LayoutTest, TabWindowIsReportedBeforeAndAfter) {
    const std::string report = Build("CADD TWin t NULL 0.5 0.25\n");
    EXPECT_THAT(report,
                EndsWith("adding a 'TWin' - t\nadding tabwindow t NULL (0.5, 0.25, 0, 1) default\n"
                         "added tabwindow\n"));
    EXPECT_EQ(Find("t")->GetType(), "TabWindow");
}

TEST_F(LayoutTest, TabWindowsReportNamesParentAndTheme) {
    directory.Write("other.theme", kPlainTheme);
    const std::string report =
        Build("CADD Win w NULL 0 0 0\nTHEM other.theme NULL\nCADD TWin t w 0 0\n");
    EXPECT_THAT(report, HasSubstr("adding tabwindow t w (0, 0, 0, 1) other.theme\n"));
}

TEST_F(LayoutTest, CaptionOfCheckboxAndOptionIsTheRestOfTheLine) {
    Build("CADD Check c NULL 0 0 a tick \nCADD Opt o NULL 0 0 an option\n");
    EXPECT_EQ(Find("c")->GetType(), "Checkbox");
    EXPECT_EQ(Find("c")->GetText(), "a tick ");
    EXPECT_EQ(Find("o")->GetType(), "Optionbox");
    EXPECT_EQ(Find("o")->GetText(), "an option");
}

TEST_F(LayoutTest, CaptionsKeepTheirEscapes) {
    Build("CADD Check c NULL 0 0 100% \\n\n");
    EXPECT_EQ(Find("c")->GetText(), "100% \\n");
}

TEST_F(LayoutTest, ButtonKeepsOnlyTheFirstWordAsCaption) {
    Build("CADD Butt b NULL 0 0 press me now\n");
    EXPECT_EQ(Find("b")->GetType(), "Button");
    EXPECT_EQ(Find("b")->GetText(), "press");
}

TEST_F(LayoutTest, ImageButtonTakesItsSize) {
    Build("CADD Butt b NULL 0.5 0.5 TEX 0.25 0.5\n");
    EXPECT_EQ(Find("b")->GetType(), "Button");
    EXPECT_EQ(Find("b")->GetText(), "");
    ExpectBox("b", 0.5f, 0.5f, 0.75f, 1.0f);
}

TEST_F(LayoutTest, SliderTakesItsExtent) {
    Build("CADD Slide s NULL 0 0.05 0.5 0\n");
    EXPECT_EQ(Find("s")->GetType(), "Slider");
    EXPECT_EQ(Find("s")->GetLevel(), 0.5f);
    EXPECT_FLOAT_EQ(Find("s")->Getbbox().z, 0.5f + 0.1f);
}

TEST_F(LayoutTest, TextBoxTakesColumnsBeforeRows) {
    const std::string report = Build("CADD Text x NULL 0 0 10 3\n");
    EXPECT_THAT(report, HasSubstr("textbox 10 3\n"));
    EXPECT_EQ(Find("x")->GetType(), "Textbox");
    ExpectBox("x", 0.0f, 0.0f, 11.0f * 0.04f, 0.05f * 1.3f * 3.0f);
}

TEST_F(LayoutTest, ComboHasNoFieldsOfItsOwn) {
    Build("CADD Combo c NULL 0 0\nTEXT c first item\nTEXT c 100%\\n\nTEXT c\nTEXT NULL nothing\n");
    GLWidget* const combo = Find("c");
    EXPECT_EQ(combo->GetType(), "Combobox");
    EXPECT_EQ(combo->*&PlainWidget::texts, (std::vector<std::string>{"first item", "100%%\n", ""}));
}

TEST_F(LayoutTest, LabelDoublesPercentSignsAndBreaksAtBackslashN) {
    Build("CADD Label l NULL 0 0 Score 100% \\n done\n");
    EXPECT_EQ(Find("l")->GetType(), "Label");
    EXPECT_EQ(Find("l")->GetText(), "Score 100%% \n done");
    EXPECT_EQ(EscapeFormat(Find("l")->GetText()), "Score 100%% \n done")
        << "printed as a format it reads: Score 100% and, on the next line, done";
}

TEST_F(LayoutTest, PercentBeforeBackslashNIsEscapedFirst) {
    Build("CADD Label l NULL 0 0 %\\n%%\\\\n\n");
    EXPECT_EQ(Find("l")->GetText(), "%%\n%%%%\\\n");
}

TEST_F(LayoutTest, TextAfterTheLastFieldIsAComment) {
    Build("CADD Slide s NULL 0 0 1 0 a wide slider\nCADD Frame f NULL 0 0 0 a frame\n");
    EXPECT_EQ(GLWidget::widgets.size(), 2u);
}

TEST_F(LayoutTest, ContainersAreAttachedAtSolidAndOtherWidgetsAtOnce) {
    Build(
        "CADD Win w NULL 0 0 0 title\n"
        "CADD Frame f w 0 0 0\n"
        "CADD Check a f 0 0 inner\n"
        "CADD Check b w 0 0 outer\n");
    EXPECT_EQ(ChildrenOf(Find("w")), (std::vector<GLWidget*>{Find("b"), Find("f")}));
    EXPECT_EQ(ChildrenOf(Find("f")), (std::vector<GLWidget*>{Find("a")}));
}

TEST_F(LayoutTest, EveryKindIsAttachedAtOnceOrAtSolid) {
    for (const char* kind :
         {"Check", "Opt", "Combo", "Butt", "Slide", "Text", "Label", "Win", "Frame", "TWin"}) {
        Build("CADD Win w NULL 0 0 0 title\nCADD " + std::string(kind)
              + " first w 0 0 1 1\nCADD Check second w 0 0 second\n");
        std::vector<GLWidget*> expected{Find("first"), Find("second")};
        if (std::string(kind).find("Win") != std::string::npos || kind == std::string("Frame"))
            std::swap(expected[0], expected[1]);
        EXPECT_EQ(ChildrenOf(Find("w")), expected) << kind;
    }
}

TEST_F(LayoutTest, TreeIsSolidifiedAtTheEndOfTheFile) {
    Build("CADD Win w NULL 100 0 0\nCADD Butt b w 0 0 TEX 0.5 0.5\n");
    const Vector box = Find("w")->Getbbox();
    EXPECT_FLOAT_EQ(box.z - box.x, 0.5f + 6.0f * 0.125f);
    EXPECT_LT(box.z, 1.3f * 4.0f / 3.0f) << "anchored to the right edge";
}

TEST_F(LayoutTest, WindowOnATabIsAttachedAtSolid) {
    Build(
        "CADD TWin t NULL 0 0\n"
        "TADD 2 Win w t 0 0 0 inner\n"
        "TADD 0 Check c t 0 0 first\n"
        "CENTREX w\n");
    auto* const tabs = Find("t");
    EXPECT_EQ(ChildrenOf(tabs), (std::vector<GLWidget*>{Find("c")})) << "the first tab is shown";
    EXPECT_EQ(Find("w")->GetParent(), tabs);
}

TEST_F(LayoutTest, EndOfTheFileDoesNotSolidifyAgainAfterSolid) {
    Build(
        "CADD TWin t NULL 0 0\n"
        "NTAB t 0 First tab\n"
        "TADD 0 Win w t 0 0 0 inner\n"
        "SOLID\n"
        "TADD 0 Win late t 0 0 0 later\n");
    EXPECT_EQ(ChildrenOf(Find("t")), (std::vector<GLWidget*>{Find("w")}));
    ASSERT_NE(Find("late"), nullptr);
    EXPECT_EQ(Find("late")->GetParent(), Find("t"));
}

TEST_F(LayoutTest, SecondSolidAttachesOnlyWidgetsThatCameAfterTheFirst) {
    Build("CADD Win w NULL 0 0 0\nCADD Frame a w 0 0 0\nSOLID\nCADD Frame b w 0 0 0\nSOLID\n");
    EXPECT_EQ(ChildrenOf(Find("w")), (std::vector<GLWidget*>{Find("a"), Find("b")}));
}

TEST_F(LayoutTest, TabsAreNamedByTheRestOfTheLine) {
    Build("CADD TWin t NULL 0 0\nNTAB t 0 The first\nNTAB t 1 The second\nNTAB NULL 2 none\n");
    ASSERT_NE(Find("__ttab0The first"), nullptr);
    ASSERT_NE(Find("__ttab1The second"), nullptr);
    EXPECT_EQ(Find("__ttab1The second")->GetText(), "The second");
}

TEST_F(LayoutTest, LaterLayoutSolidifiesTheWidgetsOfTheEarlierOne) {
    Build("CADD Frame first NULL 0 0 0\n");
    auto* const child = new PlainWidget("child", nullptr, Vector(0.0f, 0.0f), nullptr);
    child->size = Vector(1.0f, 1.0f);
    Find("first")->AddChild(child);
    Build("CADD Frame second NULL 0 0 0\n");
    EXPECT_FLOAT_EQ(Find("first")->Getbbox().z, 1.0f + 6.0f * 0.125f);
    EXPECT_EQ(GLWidget::widgets.size(), 2u);
}

TEST_F(LayoutTest, TopLevelWidgetIsCentredByHalfItsSize) {
    Build(
        "CADD Butt a NULL 1 2 TEX 0.5 0.25\nCENTRE a\n"
        "CADD Butt b NULL 1 2 TEX 0.5 0.25\nCENTREX b\n"
        "CADD Butt c NULL 1 2 TEX 0.5 0.25\nCENTREY c\nCENTRE NULL\n");
    ExpectBox("a", 0.75f, 1.875f, 1.25f, 2.125f);
    ExpectBox("b", 0.75f, 2.0f, 1.25f, 2.25f);
    ExpectBox("c", 1.0f, 1.875f, 1.5f, 2.125f);
}

TEST_F(LayoutTest, WidgetWithAParentIsCentredInIt) {
    Build(
        "CADD Win w NULL 0 0 0\n"
        "CADD Butt wide w 0 0 TEX 2 2\n"
        "CADD Butt a w 0 0 TEX 0.5 0.25\n"
        "CADD Butt b w 0 0 TEX 0.5 0.25\n"
        "CADD Butt c w 0 0 TEX 0.5 0.25\n"
        "SOLID\nCENTRE a\nCENTREX b\nCENTREY c\n");
    const Vector window = Find("w")->Getbbox();
    const float x = (window.z - window.x - 0.75f) / 2.0f - 0.25f;
    const float y = (window.w - window.y - 0.1f - 0.75f) / 2.0f - 0.125f;
    EXPECT_FLOAT_EQ(x, 0.75f);
    ExpectBox("a", x, y, x + 0.5f, y + 0.25f);
    ExpectBox("b", x, 0.0f, x + 0.5f, 0.25f);
    ExpectBox("c", 0.0f, y, 0.5f, y + 0.25f);
}

TEST_F(LayoutDeathTest, UnknownParentIsReportedAndFailsTheAssertion) {
    for (const char* line : {"CADD Check c nowhere 0 0 x\n", "TEXT nowhere text\n",
                             "NTAB nowhere 0 title\n", "CENTRE nowhere\n"}) {
        EXPECT_EXIT(
            {
                std::istringstream file(line);
                GLWidget::StartGUI(file, "test.gui");
            },
            testing::ExitedWithCode(0),
            "Invalid Tag Widget: 'nowhere'\nAssert failed on glwidget/glwidget:539 - ")
            << line;
    }
}

TEST_F(LayoutTest, MalformedNumbersAreZeroAndTheNextLineIsReadAsItself) {
    Build("CADD Butt b NULL here there press\nCADD Frame f NULL 0.5 0.5 0\n");
    const Vector box = Find("b")->Getbbox();
    EXPECT_EQ(box.x, 0.0f);
    EXPECT_EQ(box.y, 0.0f);
    EXPECT_EQ(Find("b")->GetText(), "");
    ExpectBox("f", 0.5f, 0.5f, 0.5f, 0.5f);
}

TEST_F(LayoutTest, NumberThatIsMissingOnItsLineIsReadFromTheNext) {
    Build(
        "CADD Frame f NULL 0.5\n0.25 0 comment\nCADD Frame g NULL\n\n 0.75\t-0.5\n1 comment\n"
        "CADD Frame h NULL 0 0 0\n");
    ExpectBox("f", 0.5f, 0.25f, 0.5f, 0.25f);
    ExpectBox("g", 0.75f, -0.5f, 0.75f, -0.5f);
    EXPECT_NE(Find("h"), nullptr);
}

TEST_F(LayoutTest, StatementThatIsCutShortByTheEndOfTheFileMakesNothing) {
    for (const char* line : {"CADD", "CADD Frame", "CADD Frame f", "TADD", "TADD 0", "TADD 0 Frame",
                             "TADD x Frame f NULL 0 0", "NTAB", "TEXT", "CENTRE", "CONF"}) {
        Build(line);
        EXPECT_TRUE(GLWidget::widgets.empty()) << line;
    }
}

TEST_F(LayoutTest, TagsOfTheToolkitCannotBeUsedByALayout) {
    const std::string refusal = "test.gui: the tag '__msgbox_ok' belongs to the toolkit\n";
    EXPECT_THAT(Build("CADD Butt __msgbox_ok NULL 0 0 press\n"), EndsWith(refusal));
    EXPECT_THAT(Build("CADD Butt b __msgbox_ok 0 0 press\n"), EndsWith(refusal));
    EXPECT_THAT(Build("CENTRE __msgbox_ok\n"), EndsWith(refusal));
    EXPECT_THAT(Build("TEXT __msgbox_ok text\n"), EndsWith(refusal));
    EXPECT_THAT(Build("NTAB __msgbox_ok 0 title\n"), EndsWith(refusal));
    EXPECT_TRUE(GLWidget::widgets.empty());
    EXPECT_EQ(Find("__msgbox_ok"), nullptr);
    EXPECT_EQ(Find("b"), nullptr);
}

TEST_F(LayoutTest, ParentThatDrawsNoChildrenIsReported) {
    const std::string report = Build("CADD Butt b NULL 0 0 press\nCADD Check c b 0 0 tick\n");
    EXPECT_THAT(report, EndsWith("test.gui: 'b' is a Button and does not show 'c'\n"));
    EXPECT_EQ(ChildCount("b"), 1u);
}

TEST_F(LayoutTest, ParentWithoutTabsIsReported) {
    const std::string report = Build("CADD Frame f NULL 0 0 0\nTADD 0 Check c f 0 0 tick\n");
    EXPECT_THAT(report, EndsWith("test.gui: 'f' is a Frame and has no tabs, 'c' is left out\n"));
    EXPECT_EQ(ChildCount("f"), 0u);
    EXPECT_THAT(Build("NTAB f 0 title\n"), EndsWith("test.gui: 'f' is a Frame and has no tabs\n"));
}

TEST_F(LayoutTest, EveryTabIndexThatNoTabCanHaveIsReported) {
    for (const char* index : {"-1", "2147483647", "64"}) {
        const std::string start = std::string("CADD TWin t NULL 0 0\n");
        const std::string line = std::string("tabwindow t cannot have a tab ") + index + "\n";
        EXPECT_THAT(Build(start + "TADD " + index + " Check c t 0 0 x\n"), EndsWith(line));
        EXPECT_EQ(ChildCount("t"), 0u);
        EXPECT_THAT(Build(start + "TADD " + index + " Frame f t 0 0 0\n"), EndsWith(line));
        EXPECT_EQ(ChildCount("t"), 0u);
        EXPECT_THAT(Build(start + "NTAB t " + index + " title\n"), EndsWith(line));
    }
}

TEST_F(LayoutTest, NegativeSizesAreReportedAndTakenAsZero) {
    const std::string line = "test.gui: 'x' has a negative size, which is taken as 0\n";
    EXPECT_THAT(Build("CADD Butt x NULL 0 0 TEX -1 0.5\n"), HasSubstr(line));
    ExpectBox("x", 0.0f, 0.0f, 0.0f, 0.5f);
    EXPECT_THAT(Build("CADD Slide x NULL 0 0 0 -0.5\n"), HasSubstr(line));
}

TEST_F(LayoutTest, SizesThatAreNotNumbersAreReportedAndTakenAsZero) {
    const std::string line =
        "test.gui: the size of 'x' is not two numbers, what is missing is taken as 0\n";
    EXPECT_THAT(Build("CADD Butt x NULL 0 0 TEX 0.5 nan\n"), EndsWith(line));
    ExpectBox("x", 0.0f, 0.0f, 0.5f, 0.0f);
    EXPECT_THAT(Build("CADD Slide x NULL 0 0 1e999 nan\n"), EndsWith(line));
    EXPECT_FLOAT_EQ(Find("x")->Getbbox().y, -0.05f);
    EXPECT_THAT(Build("CADD Text x NULL 0 0 nan\n"), HasSubstr(line));
}

TEST_F(LayoutTest, SizeOfATextBoxIsLimitedWithAReport) {
    const std::string report = Build("CADD Text x NULL 0 0 2147483647 -1\n");
    EXPECT_THAT(report, AnyOf(HasSubstr("2147483647"), HasSubstr("-1")));
    EXPECT_LE(Find("x")->Getbbox().z, 1025.0f * 0.04f + 0.001f);
}

TEST_F(LayoutTest, WidgetThatNamesItsOwnTagAsParentGetsTheEarlierWidgetOfThatTag) {
    Build("CADD Frame f NULL 0 0 0\nCADD Frame f f 0 0 0\nCADD Frame f f 0 0 0\n");
    GLWidget* const innermost = Find("f");
    ASSERT_NE(innermost->GetParent(), nullptr);
    ASSERT_NE(innermost->GetParent()->GetParent(), nullptr);
    EXPECT_EQ(innermost->GetParent()->GetParent()->GetParent(), nullptr);
    GLWidget::UpdateWidgets(16);
}

TEST_F(LayoutTest, WidgetsNestedTooDeepAreReportedAndLeftOut) {
    std::string layout = "CADD Frame f0 NULL 0 0 0\n";
    for (int i = 1; i <= Layout::kMaxAncestors + 2; ++i) {
        layout += "CADD Frame f" + std::to_string(i) + " f" + std::to_string(i - 1) + " 0 0 0\n";
    }
    const std::string report = Build(layout);
    EXPECT_THAT(report, Not(HasSubstr("'f12' is nested")));
    EXPECT_THAT(report,
                HasSubstr("test.gui: 'f13' is nested deeper than 12 containers and is left out\n"));
    EXPECT_THAT(report,
                HasSubstr("test.gui: 'f14' is nested deeper than 12 containers and is left out\n"));
    EXPECT_EQ(ChildCount("f11"), 1u);
    EXPECT_EQ(ChildCount("f12"), 0u);
}

TEST_F(LayoutTest, HundredThousandNestedFramesAreRead) {
    std::string layout = "CADD Frame f0 NULL 0 0 0\n";
    for (int i = 1; i < 100000; ++i) {
        const std::string tag = std::to_string(i);
        layout += "CADD Frame f" + tag + " f" + std::to_string(i - 1) + " 0 0 0\n";
    }
    Build(layout);
    ASSERT_NE(Find("f99999"), nullptr);
    GLWidget::MouseMoveWidgets(Vector(1.0f, 1.0f));
    GLWidget::MouseClickWidgets(true, false, false);
    GLWidget::UpdateWidgets(16);
}

/// One of the words, separated from what follows.
template <std::size_t count>
std::string Pick(const char* const (&words)[count]) {
    return words[static_cast<std::size_t>(std::rand()) % count] + std::string(" ");
}

TEST_F(LayoutTest, MegabyteOfRandomStatementsIsReadWithoutACrash) {
    static constexpr const char* kKinds[] = {"Win",  "Frame", "TWin",  "Check", "Opt",   "Combo",
                                             "Butt", "Slide", "Label", "Text",  "Gadget"};
    static constexpr const char* kTags[] = {"a", "b", "c", "d", "e", "NULL", "__atab0x"};
    static constexpr const char* kNumbers[] = {"0",    "1",    "-1",    "0.5",        "100",
                                               "-100", "1e30", "-1e30", "2147483647", "nan"};
    static constexpr const char* kRests[] = {"",   "TEX -1 nan", "TEX 1 1", "1 %s%n \\n",
                                             "//", "\xff\x01",   "0 0",     "-2 1000000000"};
    static constexpr const char* kOthers[] = {"SOLID", "THEM x NULL", "CHLD a", "// ", "word"};
    for (const char* tag : kTags)
        new PlainWidget(tag, nullptr, Vector(0.0f, 0.0f), nullptr);
    std::srand(3);
    std::string layout;
    while (layout.size() < 1000000) {
        switch (std::rand() % 8) {
        case 0:
            layout += Pick(kOthers);
            break;
        case 1:
            layout += "NTAB " + Pick(kTags) + Pick(kNumbers);
            break;
        case 2:
            layout += "TEXT " + Pick(kTags);
            break;
        case 3:
            layout += "CENTRE " + Pick(kTags);
            break;
        case 4:
            layout += "TADD " + Pick(kNumbers) + Pick(kKinds) + Pick(kTags) + Pick(kTags);
            break;
        default:
            layout += "CADD " + Pick(kKinds) + Pick(kTags) + Pick(kTags);
        }
        layout += Pick(kNumbers) + Pick(kNumbers) + Pick(kRests) + "\n";
    }
    Build(layout);
    EXPECT_FALSE(GLWidget::widgets.empty());
    for (int frame = 0; frame < 3; ++frame) {
        GLWidget::MouseMoveWidgets(Vector(400.0f, 300.0f));
        GLWidget::MouseClickWidgets(frame == 1, false, false);
        GLWidget::UpdateWidgets(16);
    }
}

TEST_F(LayoutDeathTest, MegabyteOfRandomWordsIsReadOrFailsAnAssertion) {
    static constexpr const char* kWords[] = {
        "CADD", "TADD", "NTAB", "TEXT", "SOLID", "CENTRE", "THEM", "CONF", "Win",  "Frame",
        "TWin", "Butt", "NULL", "0",    "-1",    "1e30",   "nan",  "//",   "\r\n", "%s%n"};
    const auto build = [](const std::string& layout) {
        std::istringstream file(layout);
        GLWidget::StartGUI(file, "test.gui");
        std::exit(0);
    };
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::srand(seed);
        std::string layout;
        while (layout.size() < 1000000)
            layout += Pick(kWords);
        EXPECT_EXIT(build(layout), testing::ExitedWithCode(0), "");
    }
}

TEST_F(LayoutTest, MegabyteOfUnknownWordsIsSkipped) {
    std::srand(5);
    std::string layout;
    while (layout.size() < 1000000) {
        for (int length = 1 + std::rand() % 12; length > 0; --length)
            layout += static_cast<char>('a' + std::rand() % 26);
        layout += std::rand() % 8 == 0 ? '\n' : ' ';
    }
    Build(layout);
    EXPECT_TRUE(GLWidget::widgets.empty());
}

TEST_F(LayoutTest, QuitSucceedsAndLeavesTheWidgets) {
    Build("CADD Frame f NULL 0 0 0\n");
    EXPECT_TRUE(GLWidget::Quit());
    EXPECT_NE(Find("f"), nullptr);
}

}  // namespace
