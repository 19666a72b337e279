// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/textbox.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>

#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/optionbox.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);

constexpr int kBackspace = 8;
constexpr int kReturn = 13;
constexpr int kDelete = 127;
constexpr int kUp = 273;
constexpr int kDown = 274;
constexpr int kRight = 275;
constexpr int kLeft = 276;
constexpr int kHome = 278;
constexpr int kEnd = 279;

KeyFlags Keys(std::initializer_list<int> codes) {
    KeyFlags keys{};
    for (const int code : codes)
        keys[static_cast<std::size_t>(code)] = true;
    return keys;
}

/// Types into a box, one key per update.
class Typist {
public:
    explicit Typist(Textbox& typedInto) : box(typedInto) {}

    void Press(std::initializer_list<int> codes) { box.TextKeyPress(Keys(codes)); }
    void Times(int count, int code) {
        for (int i = 0; i < count; ++i)
            Press({code});
    }
    void Type(std::string_view text) {
        for (const char character : text)
            Press({character == '\n' ? kReturn : character});
    }
    /// The text with the caret shown as "|".
    std::string WithCaret() {
        const std::string before = box.GetText();
        Press({'|'});
        std::string after = box.GetText();
        Press({kBackspace});
        EXPECT_EQ(box.GetText(), before);
        return after;
    }

private:
    Textbox& box;
};

/// A box of ten columns and four rows, under the mouse; every glyph is as wide as "w", 0.04.
class TextboxTest : public WidgetTest {
protected:
    TextboxTest() {
        box.MouseMove(0.1f, 0.1f);
        box.MouseClick(true, false, false);
    }

    Opened<Textbox> box{"box", nullptr, kOrigin, theme, 10, 4};
    Typist typist{box};
};

TEST_F(TextboxTest, IsWideEnoughForItsColumnsAndHighEnoughForItsRows) {
    EXPECT_FLOAT_EQ(box.size.x, 11 * 0.04f);
    EXPECT_FLOAT_EQ(box.size.y, 0.05f * 1.3f * 4.0f);
    EXPECT_EQ(box.GetType(), "Textbox");
    EXPECT_TRUE(box.Unique());
}

TEST_F(TextboxTest, ReportsItsColumnsRowsAndSize) {
    testing::internal::CaptureStderr();
    const Textbox reported("reported", nullptr, kOrigin, theme, 24, 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "textbox 24 2\ndim: (1, 0.13, 0, 1)\n");
}

TEST_F(TextboxTest, TooManyColumnsOrRowsAreReportedAndTakenAsTheLimit) {
    testing::internal::CaptureStderr();
    const Opened<Textbox> huge("huge", nullptr, kOrigin, theme,
                               std::numeric_limits<std::int32_t>::max(), 4);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "textbox 2147483647 4\n"
              "textbox huge has 1000 columns, not 2147483647\n"
              "dim: (40.0405, 0.26, 0, 1)\n");
    EXPECT_NEAR(huge.size.x, 1001 * 0.04f, 0.001f);
    const Opened<Textbox> high("high", nullptr, kOrigin, theme, 10,
                               std::numeric_limits<std::int32_t>::max());
    EXPECT_FLOAT_EQ(high.size.y, 65.0f);
}

TEST_F(TextboxTest, NegativeColumnsOrRowsAreReportedAndTakenAsZero) {
    testing::internal::CaptureStderr();
    const Opened<Textbox> none("none", nullptr, kOrigin, theme, 5, -3);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "textbox 5 -3\ntextbox none has 0 rows, not -3\ndim: (0.24, 0, 0, 1)\n");
    const Opened<Textbox> thin("thin", nullptr, kOrigin, theme,
                               std::numeric_limits<std::int32_t>::min(), 1);
    EXPECT_FLOAT_EQ(thin.size.x, 0.04f);
}

TEST_F(TextboxTest, MouseGivesNoFocus) {
    Textbox other("other", nullptr, kOrigin, theme, 10, 4);
    EXPECT_TRUE(other.MouseMove(0.1f, 0.1f));
    EXPECT_FALSE(other.HasFocus());
    box.MouseMove(5.0f, 5.0f);
    EXPECT_TRUE(box.HasFocus());
}

TEST_F(TextboxTest, ClickInsideGivesTheFocusAndIsReported) {
    Opened<Textbox> other("other", nullptr, kOrigin, theme, 10, 4);
    other.MouseMove(0.1f, 0.1f);
    EXPECT_FALSE(other.MouseClick(false, true, true));
    EXPECT_FALSE(other.HasFocus());
    EXPECT_TRUE(other.MouseClick(true, false, false));
    EXPECT_TRUE(other.HasFocus());
    EXPECT_FALSE(other.buttons.left);  // the buttons are not kept
}

TEST_F(TextboxTest, FocusStaysAfterAClickElsewhere) {
    box.MouseMove(5.0f, 5.0f);
    EXPECT_FALSE(box.MouseClick(true, false, false));
    EXPECT_TRUE(box.HasFocus());
    typist.Type("a");
    EXPECT_EQ(box.GetText(), "a");
}

TEST_F(TextboxTest, EveryMouseEventOverTheEditedBoxReturnsTrue) {
    EXPECT_TRUE(box.MouseClick(false, false, false));
}

TEST_F(TextboxTest, AnotherActiveWidgetTakesTheFocus) {
    box.SetFocussed(&box);
    EXPECT_TRUE(box.HasFocus());
    PlainWidget other("other", nullptr, kOrigin, theme);
    box.SetFocussed(&other);
    EXPECT_FALSE(box.HasFocus());
}

TEST_F(TextboxTest, WithoutFocusKeysChangeNothing) {
    typist.Type("ab");
    box.SetFocussed(nullptr);
    typist.Type("cd");
    typist.Press({kBackspace});
    EXPECT_EQ(box.GetText(), "ab");
}

TEST_F(TextboxTest, KeysOfOneUpdateAreAppendedInOrderOfTheirCodes) {
    typist.Press({'b', 'a'});
    EXPECT_EQ(box.GetText(), "ab");
}

TEST_F(TextboxTest, LetterWithShiftSetsTwoKeyFlagsAndTypesBoth) {
    typist.Press({'a', 'A'});  // the key's symbol and its character
    EXPECT_EQ(box.GetText(), "Aa");
}

TEST_F(TextboxTest, TakesTheCharactersFromBlankToClosingBrace) {
    typist.Press({31});
    typist.Press({126});
    EXPECT_EQ(box.GetText(), "");
    typist.Press({32});
    typist.Press({125});
    EXPECT_EQ(box.GetText(), " }");
    KeyFlags all;
    all.fill(true);
    for (const int code : {kBackspace, kReturn, kDelete, kUp, kDown, kRight, kLeft, kHome, kEnd})
        all[static_cast<std::size_t>(code)] = false;
    Opened<Textbox> wide("wide", nullptr, kOrigin, theme, 200, 1);
    wide.Focus();
    wide.TextKeyPress(all);
    EXPECT_EQ(wide.GetText().size(), 94u);
    EXPECT_EQ(wide.GetText().front(), ' ');
    EXPECT_EQ(wide.GetText().back(), '}');
}

TEST_F(TextboxTest, BackspaceRemovesTheCharacterBeforeTheCaret) {
    typist.Type("abc");
    typist.Press({kLeft});
    typist.Press({kBackspace});
    EXPECT_EQ(typist.WithCaret(), "a|c");
}

TEST_F(TextboxTest, DeleteRemovesTheCharacterAfterTheCaret) {
    typist.Type("abc");
    typist.Times(2, kLeft);
    typist.Press({kDelete});
    EXPECT_EQ(typist.WithCaret(), "a|c");
}

TEST_F(TextboxTest, EditingKeysDoNothingAtTheEndsOfTheText) {
    for (const int code : {kBackspace, kDelete, kLeft, kRight, kUp, kDown, kHome, kEnd}) {
        typist.Press({code});
        EXPECT_EQ(box.GetText(), "");
    }
    typist.Type("ab");
    typist.Press({kDelete});
    typist.Press({kRight});
    EXPECT_EQ(typist.WithCaret(), "ab|");
    typist.Press({kHome});
    typist.Press({kBackspace});
    typist.Press({kLeft});
    EXPECT_EQ(typist.WithCaret(), "|ab");
}

TEST_F(TextboxTest, ArrowsMoveTheCaretByACharacter) {
    typist.Type("abc");
    typist.Times(2, kLeft);
    EXPECT_EQ(typist.WithCaret(), "a|bc");
    typist.Press({kRight});
    EXPECT_EQ(typist.WithCaret(), "ab|c");
}

TEST_F(TextboxTest, HomeAndEndGoToTheEndsOfTheWholeText) {
    typist.Type("ab\ncd");
    typist.Press({kHome});
    EXPECT_EQ(typist.WithCaret(), "|ab\ncd");
    typist.Press({kEnd});
    EXPECT_EQ(typist.WithCaret(), "ab\ncd|");
}

TEST_F(TextboxTest, HomeThenEndLeavesTheTextAndTheCaretAtItsEnd) {
    typist.Type("abc");
    typist.Press({kLeft});
    typist.Press({kHome});
    typist.Press({kEnd});
    EXPECT_EQ(typist.WithCaret(), "abc|");
}

TEST_F(TextboxTest, KeysOfOneUpdateAreHandledInAFixedOrder) {
    typist.Type("abc");
    // Backspace makes it "ab|", Home goes to the start, then the letter is typed.
    typist.Press({'x', kHome, kBackspace});
    EXPECT_EQ(typist.WithCaret(), "x|ab");
    // Left, then right, then to the end: the letter comes last.
    typist.Press({kEnd, kRight, kLeft, 'y'});
    EXPECT_EQ(typist.WithCaret(), "xaby|");
    // The new line is made before the letter.
    typist.Press({kReturn, 'z'});
    EXPECT_EQ(typist.WithCaret(), "xaby\nz|");
}

TEST_F(TextboxTest, ReturnAddsALineWhileTheBoxHasRowsLeft) {
    typist.Type("a\nb\nc\nd");
    EXPECT_EQ(box.GetText(), "a\nb\nc\nd");
    typist.Press({kReturn});
    EXPECT_EQ(box.GetText(), "a\nb\nc\nd");
}

TEST_F(TextboxTest, ReturnCountsTheLinesAfterTheCaretToo) {
    typist.Type("a\nb\nc\nd");
    typist.Press({kHome});
    typist.Press({kReturn});
    EXPECT_EQ(box.GetText(), "a\nb\nc\nd");
}

TEST_F(TextboxTest, ReturnInABoxOfOneRowAddsNothing) {
    Textbox single("single", nullptr, kOrigin, theme, 10, 1);
    single.Focus();
    Typist(single).Type("a\nb");
    EXPECT_EQ(single.GetText(), "ab");
}

TEST_F(TextboxTest, UpAndDownKeepTheColumnIfAllGlyphsAreEquallyWide) {
    typist.Type("abcd\nefgh\nijkl");
    typist.Times(2, kLeft);
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "abcd\nef|gh\nijkl");
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "ab|cd\nefgh\nijkl");
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "ab|cd\nefgh\nijkl");
    typist.Press({kDown});
    EXPECT_EQ(typist.WithCaret(), "abcd\nef|gh\nijkl");
    typist.Press({kDown});
    typist.Press({kDown});
    EXPECT_EQ(typist.WithCaret(), "abcd\nefgh\nij|kl");
}

TEST_F(TextboxTest, CaretGoesToTheEndOfAShorterLine) {
    typist.Type("a\nbcdef\ng");
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "a\nb|cdef\ng");
    typist.Times(4, kRight);
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "a|\nbcdef\ng");
    typist.Press({kEnd});
    typist.Press({kUp});
    typist.Times(4, kRight);
    typist.Press({kDown});
    EXPECT_EQ(typist.WithCaret(), "a\nbcdef\ng|");
}

TEST_F(TextboxTest, CaretCanMoveThroughEmptyLines) {
    typist.Type("\n\nab");
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "\n|\nab");
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "|\n\nab");
    typist.Press({kDown});
    EXPECT_EQ(typist.WithCaret(), "\n|\nab");
    typist.Press({kDown});
    EXPECT_EQ(typist.WithCaret(), "\n\n|ab");
}

TEST_F(TextboxTest, CaretGoesToTheNearestWidthNotToTheSameColumn) {
    FontAccess::SetAdvance(GLWidget::font, 'i', 0.4f);
    typist.Type("iiiii\nab");
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(), "iiiii|\nab");  // 2.0 wide, as is "ab"
    typist.Times(2, kLeft);                       // 1.2 wide
    typist.Press({kDown});
    EXPECT_EQ(typist.WithCaret(), "iiiii\na|b");
    typist.Press({kUp});  // 1.0 is as far from 0.8 as from 1.2: the first counts
    EXPECT_EQ(typist.WithCaret(), "ii|iii\nab");
}

TEST_F(TextboxTest, SearchForTheCaretEndsWhereTheDistanceStopsDecreasing) {
    FontAccess::SetAdvance(GLWidget::font, 'i', 0.0f);
    typist.Type("iiab\nab");
    typist.Press({kUp});
    EXPECT_EQ(typist.WithCaret(),
              "|iiab\nab");  // glyphs without width do not decrease the distance
}

TEST_F(TextboxTest, CaretTooFarFromEveryPositionGoesToTheEndOfTheLine) {
    Textbox wide("wide", nullptr, kOrigin, theme, 1000, 3);
    wide.Focus();
    Typist far(wide);
    far.Type("ab\n");
    FontAccess::SetAdvance(GLWidget::font, 'W', 30000.0f);
    far.Type("W");
    far.Press({kUp});
    EXPECT_EQ(far.WithCaret(), "ab|\nW");
}

TEST_F(TextboxTest, LineThatGetsTooLongIsBrokenAtTheCaret) {
    // Eleven glyphs wide; two more must fit after the caret.
    typist.Type("123456789");
    EXPECT_EQ(box.GetText(), "123456789");
    typist.Type("a");
    EXPECT_EQ(box.GetText(), "123456789a");
    typist.Type("b");
    EXPECT_EQ(box.GetText(), "123456789a\nb");
}

TEST_F(TextboxTest, FullLineIsBrokenByTheNextUpdateEvenWithoutAKey) {
    typist.Type("1234567890");
    box.TextKeyPress(Keys({}));
    EXPECT_EQ(box.GetText(), "1234567890\n");
}

TEST_F(TextboxTest, BreakAtTheCaretMovesTheRestOfTheLineDown) {
    typist.Type("12345");
    typist.Times(2, kLeft);
    typist.Type("abcdefg");
    EXPECT_EQ(box.GetText(), "123abcdefg45");
    typist.Press({});
    EXPECT_EQ(typist.WithCaret(), "123abcdefg\n|45");
}

TEST_F(TextboxTest, LineIsNotBrokenIntoTheLastRow) {
    Textbox two("two", nullptr, kOrigin, theme, 10, 2);
    two.Focus();
    Typist(two).Type("1234567890abcdef");
    EXPECT_EQ(two.GetText(), "1234567890abcdef");
    Textbox three("three", nullptr, kOrigin, theme, 10, 3);
    three.Focus();
    Typist(three).Type("1234567890abcdefghijklmn");
    EXPECT_EQ(three.GetText(), "1234567890\nabcdefghijklmn");
}

TEST_F(TextboxTest, PercentSignsAreMeasuredAsTheyAreDrawn) {
    Textbox signs("signs", nullptr, kOrigin, theme, 10, 4);
    signs.Focus();
    Typist percent(signs);
    percent.Type("%%%%%%%%%%%%%%%%%%");  // nine pairs
    EXPECT_EQ(signs.GetText(), "%%%%%%%%%%%%%%%%%%");
    percent.Type("ab");
    EXPECT_EQ(signs.GetText(), "%%%%%%%%%%%%%%%%%%a\nb");
}

TEST_F(TextboxTest, TextThatIsSetIsReplacedByTheNextKey) {
    typist.Type("ab");
    box.SetText("other");
    EXPECT_EQ(box.GetText(), "other");
    typist.Type("c");
    EXPECT_EQ(box.GetText(), "abc");
}

TEST_F(TextboxTest, RenderingOutsideRenderWidgetsFailsTheAssertion) {
    EXPECT_EXIT(box.Render(), testing::ExitedWithCode(0),
                "Assert failed on textbox:[0-9]+ - \"rendering\"");
}

/// Two text boxes and a group of options in a window.
class TextboxGroupTest : public WidgetTest {
protected:
    TextboxGroupTest() {
        for (GLWidget* child : {static_cast<GLWidget*>(&first), static_cast<GLWidget*>(&second),
                                static_cast<GLWidget*>(&option), static_cast<GLWidget*>(&other)})
            window.AddChild(child);
    }
    void Press(const GLWidget& widget) {
        const Vector box = const_cast<GLWidget&>(widget).Getbbox();
        window.MouseMove(box.x + 0.03f, box.y + 0.03f);
        window.MouseClick(true, false, false);
        window.MouseClick(false, false, false);
    }
    void Press(int code) { window.TextKeyPress(Keys({code})); }

    GLWindow window{"window", nullptr, kOrigin, theme, "", true};
    Textbox first{"first", &window, kOrigin, theme, 10, 1};
    Textbox second{"second", &window, Vector(0.0f, 0.2f), theme, 10, 1};
    Optionbox option{"option", &window, Vector(0.0f, 0.4f), theme, ""};
    Optionbox other{"other", &window, Vector(0.2f, 0.4f), theme, ""};
};

TEST_F(TextboxGroupTest, NoBoxIsEditedBeforeAClick) {
    Press('a');
    EXPECT_EQ(first.GetText(), "");
    EXPECT_EQ(second.GetText(), "");
}

TEST_F(TextboxGroupTest, OnlyTheClickedBoxIsTypedInto) {
    Press(first);
    Press('a');
    Press(second);
    Press('b');
    EXPECT_EQ(first.GetText(), "a");
    EXPECT_EQ(second.GetText(), "b");
}

TEST_F(TextboxGroupTest, OptionTakesTheFocusFromTheBox) {
    Press(first);
    Press(other);
    EXPECT_FALSE(first.HasFocus());
    EXPECT_TRUE(other.Clicked());
    Press('a');
    EXPECT_EQ(first.GetText(), "");
}

TEST_F(TextboxGroupTest, ClickedBoxDeselectsTheOptions) {
    Press(other);
    ASSERT_TRUE(other.Clicked());
    Press(second);
    EXPECT_FALSE(other.Clicked());
    EXPECT_FALSE(option.Clicked());
}

TEST_F(TextboxGroupTest, WindowCannotBeDraggedWhileItsBoxIsEdited) {
    Press(first);
    window.MouseMove(0.2f, 0.9f);
    EXPECT_FALSE(window.HasFocus());
    EXPECT_FALSE(window.MouseClick(true, false, false));
    EXPECT_FALSE(window.Dragging());
}

class DrawnTextboxTest : public DrawnWidgetTest {
protected:
    static constexpr Colour kFill{0, 0, 153};
    static constexpr Colour kEditedFill{0, 0, 255};
    static constexpr Colour kDimFrame{153, 0, 0};
    static constexpr Colour kFrame{255, 0, 0};

    DrawnTextboxTest() {
        LoadFont();
        box.size = Vector(0.5f, 0.2f);
    }
    void Edit(Textbox& edited, std::string_view typed) {
        edited.Focus();
        Typist(edited).Type(typed);
    }
    /// The pixels of text outside the box.
    int CountSpilled() const {
        return CountText(-1.7f, -1.3f, 1.7f, 1.3f) - CountText(0.0f, 0.0f, 0.5f, 0.2f);
    }

    Opened<Textbox> box{"box", nullptr, kOrigin, theme, 10, 3};
};

TEST_F(DrawnTextboxTest, IsADimBoxWithoutCaretUntilItIsEdited) {
    Draw(box);
    EXPECT_EQ(At(0.25f, 0.1f), kFill);
    EXPECT_GT(Count(kDimFrame, -0.01f, 0.1f, 0.01f, 0.1f), 0);
    EXPECT_FALSE(AnythingIn(-0.1f, -0.1f, -0.01f, 0.3f));
    EXPECT_EQ(Count(kFrame, -0.1f, -0.1f, 0.6f, 0.3f), 0);
    EXPECT_EQ(CountText(-0.1f, -0.1f, 0.6f, 0.3f), 0);
}

TEST_F(DrawnTextboxTest, EditedBoxHasABrightFrameAndACaret) {
    box.Focus();
    Draw(box);
    EXPECT_EQ(At(0.25f, 0.1f), kEditedFill);
    EXPECT_GT(Count(kFrame, -0.01f, 0.1f, 0.01f, 0.1f), 0);
    EXPECT_GT(Count(kFrame, 0.49f, 0.1f, 0.51f, 0.1f), 0);
    EXPECT_GT(Count(kFrame, 0.25f, -0.01f, 0.25f, 0.01f), 0);
    EXPECT_GT(Count(kFrame, 0.25f, 0.19f, 0.25f, 0.21f), 0);
    // The caret stands in the first row, half a glyph from the left.
    EXPECT_GT(CountText(0.01f, 0.15f, 0.03f, 0.18f), 5);
    EXPECT_EQ(CountText(0.0f, 0.0f, 0.5f, 0.12f), 0);
}

TEST_F(DrawnTextboxTest, CaretFollowsTheText) {
    Edit(box, "i\ni");
    box.TextKeyPress(Keys({kHome}));
    Draw(box);
    const int atStart = CountText(0.01f, 0.14f, 0.025f, 0.2f);
    box.TextKeyPress(Keys({kEnd}));
    Draw(box);
    EXPECT_LT(CountText(0.01f, 0.14f, 0.025f, 0.2f), atStart);
    // One letter further right, in the second row.
    const float end = 0.02f + GLWidget::font.Advance('i') * 0.04f;
    EXPECT_GT(CountText(end - 0.003f, 0.08f, end + 0.003f, 0.12f), 5);
}

TEST_F(DrawnTextboxTest, LinesStandBelowEachOther) {
    Edit(box, "M\n\nM");
    box.SetFocussed(nullptr);
    Draw(box);
    EXPECT_GT(CountText(0.0f, 0.14f, 0.1f, 0.2f), 10);
    EXPECT_EQ(CountText(0.0f, 0.075f, 0.1f, 0.13f), 0);
    EXPECT_GT(CountText(0.0f, 0.0f, 0.1f, 0.07f), 10);
}

TEST_F(DrawnTextboxTest, TextThatIsTooWideIsCutAtTheBox) {
    Edit(box, std::string(40, 'M'));
    box.SetFocussed(nullptr);
    Draw(box);
    EXPECT_GT(CountText(0.4f, 0.1f, 0.5f, 0.2f), 10);
    EXPECT_EQ(CountSpilled(), 0);
}

TEST_F(DrawnTextboxTest, TextThatIsTooLongIsCutAtTheBox) {
    box.SetText("M\nM\nM\nM\nM\nM\nM");
    Draw(box);
    EXPECT_GT(CountText(0.0f, 0.0f, 0.1f, 0.07f), 10);
    EXPECT_EQ(CountSpilled(), 0);
}

TEST_F(DrawnTextboxTest, CaretAfterATextWiderThanTheBoxStaysVisible) {
    Textbox single("single", nullptr, kOrigin, theme, 10, 1);
    Edit(single, std::string(60, '.'));
    const float right = 0.02f + 10 * GLWidget::font.Advance('w') * 0.04f;
    Draw(single);
    EXPECT_GT(CountText(right - 0.006f, 0.03f, right + 0.006f, 0.06f), 3);  // above the dots
    single.SetFocussed(nullptr);
    Draw(single);
    EXPECT_EQ(CountText(right - 0.006f, 0.03f, right + 0.006f, 0.06f), 0);
}

TEST_F(DrawnTextboxTest, TextIsCutAtTheBoxInsideItsContainersToo) {
    Opened<Frame> outer("outer", nullptr, Vector(-0.5f, -0.6f), theme, true);
    outer.AddChild(&box);
    box.position = Vector(0.2f, 0.1f);
    box.SetText(std::string(80, 'M') + "\nM\nM\nM\nM");
    Draw(outer);
    const float left = -0.5f + 0.015f + 0.2f;
    const float bottom = -0.6f + 0.015f + 0.1f;
    const int inside = CountText(left, bottom, left + 0.5f, bottom + 0.2f);
    EXPECT_GT(inside, 100);
    EXPECT_EQ(CountText(-1.7f, -1.3f, 1.7f, 1.3f), inside);
}

TEST_F(DrawnTextboxTest, PercentSignsAreDrawnAsTheyAre) {
    Edit(box, "%n%s%d");
    Draw(box);
    EXPECT_GT(CountText(0.0f, 0.14f, 0.5f, 0.2f), 20);
}

TEST_F(DrawnTextboxTest, DrawingRestoresClippingAndModelViewMatrix) {
    Edit(box, "abc");
    Draw(box);
    EXPECT_EQ(ModelView(), kIdentity);
    EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0));
    EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE3));
    EXPECT_EQ(box.GetText(), "abc");
}

}  // namespace
