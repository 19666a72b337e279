// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/label.h"

#include <cstdlib>

#include "glwidget/drawing.h"
#include "glwidget/wordwrap.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

class LabelTest : public WidgetTest {
protected:
    /// A label of a given width in glyphs.
    class Narrow : public Label {
    public:
        using Label::Label;
        using Label::size;
    };

    std::unique_ptr<Narrow> Make(const std::string& text) {
        testing::internal::CaptureStderr();
        auto label = std::make_unique<Narrow>("l", nullptr, Vector(0.0f, 0.0f), theme, text);
        trace = testing::internal::GetCapturedStderr();
        return label;
    }
    std::unique_ptr<Narrow> MakeWide(int glyphs, const std::string& text) {
        auto label = Make(text);
        label->size.x = (static_cast<float>(glyphs) + 0.5f) * theme->fontSize.x;
        return label;
    }

    std::string trace;
};

TEST_F(LabelTest, SizeHoldsTheWholeText) {
    const auto label = Make("four");
    EXPECT_FLOAT_EQ(label->size.x, 5.0f * 0.04f);
    EXPECT_FLOAT_EQ(label->size.y, 0.05f * 1.3f);
}

TEST_F(LabelTest, HeightCountsTheLines) {
    EXPECT_FLOAT_EQ(Make("one\ntwo\nthree")->size.y, 3.0f * 0.05f * 1.3f);
    EXPECT_FLOAT_EQ(Make("")->size.y, 0.05f * 1.3f);
}

TEST_F(LabelTest, ConstructionTracesLinesHeightAndText) {
    theme->fontSize = Vector(0.25f, 0.5f);
    Make("one\ntwo");
    EXPECT_EQ(trace, "label - 2 - 1.3\none\ntwo\n");
}

TEST_F(LabelTest, NamesItsTypeAndIsNotUnique) {
    const auto label = Make("x");
    EXPECT_EQ(label->GetType(), "Label");
    EXPECT_FALSE(label->Unique());
}

TEST_F(LabelTest, ClickReturnsTrueAndStoresNoButtons) {
    class Opened : public Label {
    public:
        using Label::buttons;
        using Label::Label;
    };
    testing::internal::CaptureStderr();
    Opened label("l", nullptr, Vector(0.0f, 0.0f), theme, "x");
    testing::internal::GetCapturedStderr();
    EXPECT_TRUE(label.MouseClick(true, true, true));
    EXPECT_FALSE(label.buttons.left);
    EXPECT_FALSE(label.Clicked());
}

TEST_F(LabelTest, ConstructorKeepsPairsOfPercentSigns) {
    EXPECT_EQ(Make("25%%")->GetText(), "25%%");
}

TEST_F(LabelTest, SetTextReplacesPairsOfPercentSigns) {
    const auto label = Make("25%%");
    label->SetText("25%%");
    EXPECT_EQ(label->GetText(), "25%");
    label->SetText("Farmers: 25%%");
    EXPECT_EQ(label->GetText(), "Farmers: 25%");
    label->SetText("plain");
    EXPECT_EQ(label->GetText(), "plain");
    label->SetText("5%");
    EXPECT_EQ(label->GetText(), "5%");
}

TEST_F(LabelTest, SetTextKeepsTheSize) {
    const auto label = Make("x");
    const Vector before = label->size;
    label->SetText("a longer text\nof two lines");
    EXPECT_EQ(label->size.x, before.x);
    EXPECT_EQ(label->size.y, before.y);
}

TEST_F(LabelTest, FirstTextThatIsSetMayBeEmpty) {
    const auto label = Make("x");
    label->SetText("");
    EXPECT_EQ(label->GetText(), "");
    EXPECT_EQ(label->Wrapped(), "");
}

TEST_F(LabelTest, LineThatFitsStaysWhole) {
    EXPECT_EQ(MakeWide(11, "hello world")->Wrapped(), "hello world");
}

TEST_F(LabelTest, LineBreaksAtTheLastBlankOrTabBeforeTheWidth) {
    EXPECT_EQ(MakeWide(8, "hello world")->Wrapped(), "hello\nworld");
    EXPECT_EQ(MakeWide(8, "hello\tworld")->Wrapped(), "hello\nworld");
    EXPECT_EQ(MakeWide(9, "ab cd ef gh")->Wrapped(), "ab cd ef\ngh");
}

TEST_F(LabelTest, CharactersBetweenBreakAndOverflowAreNotCountedInTheNextLine) {
    // The first line overflows at the "o" of "world"; "rld hi" is what the second measures.
    EXPECT_EQ(MakeWide(7, "hello world hi ho")->Wrapped(), "hello\nworld hi\nho");
}

TEST_F(LabelTest, WidestLineSoFarCountsWhereTheTextHasLineBreaksOfItsOwn) {
    EXPECT_EQ(MakeWide(4, "a b\nc d\ne f")->Wrapped(), "a b\nc d\ne f");
    EXPECT_EQ(MakeWide(4, "a b\ncc dd")->Wrapped(), "a b\ncc\ndd");
}

TEST_F(LabelTest, TextWithoutABlankStaysUnbroken) {
    EXPECT_EQ(MakeWide(3, "abcdefgh")->Wrapped(), "abcdefgh");
    EXPECT_EQ(MakeWide(3, "abcdefgh ij")->Wrapped(), "abcdefgh\nij");
}

TEST_F(LabelTest, BreaksAreFoundAgainWhenTextWidthOrFontSizeChange) {
    const auto label = MakeWide(8, "hello world");
    EXPECT_EQ(label->Wrapped(), "hello\nworld");
    label->SetText("other words");
    EXPECT_EQ(label->Wrapped(), "other\nwords");
    label->size.x = 1.0f;
    EXPECT_EQ(label->Wrapped(), "other words");
    theme->fontSize.x = 0.125f;
    EXPECT_EQ(label->Wrapped(), "other\nwords");
}

TEST_F(LabelTest, BreaksAreFoundAgainAfterAnotherFontWasLoaded) {
    const auto label = MakeWide(8, "hello world");
    label->Wrapped();
    FontAccess::SetAdvances(GLWidget::font, 0.5f);
    EXPECT_EQ(label->Wrapped(), "hello\nworld");
    ++GLWidget::fontLoads;
    EXPECT_EQ(label->Wrapped(), "hello world");
}

TEST_F(LabelTest, BreaksAreFoundOnceWhileNothingChanges) {
    const auto label = MakeWide(8, "hello world");
    label->Wrapped();
    FontAccess::SetAdvances(GLWidget::font, 0.5f);
    label->SetText("hello world");
    label->Wrapped();  // the first SetText always counts as a change
    FontAccess::SetAdvances(GLWidget::font, 1.0f);
    label->SetText("hello world");
    EXPECT_EQ(label->Wrapped(), "hello world");
}

/// The simplest form of the rule: the whole line is measured after every character.
std::string WrapByTheRule(const Theme& theme, const std::string& text, float width) {
    std::string line;
    std::string output;
    for (const char character : text) {
        line += character;
        if (MeasureText(theme, line) > width) {
            const std::size_t blank = output.find_last_of(" \t");
            if (blank != std::string::npos) {
                output[blank] = '\n';
                line.clear();
            }
        }
        output += character;
    }
    return output;
}

TEST_F(LabelTest, LinesBreakWhereMeasuringEveryPrefixWouldBreakThem) {
    constexpr char kAlphabet[] = "abW  \t\n%%i\x80";
    for (int glyph = 0; glyph < 128; ++glyph) {
        FontAccess::SetAdvance(GLWidget::font, static_cast<char>(glyph),
                               0.1f + 0.013f * static_cast<float>(glyph));
    }
    std::srand(7);
    std::string wrapped;
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (int length = std::rand() % 90; length > 0; --length)
            text += kAlphabet[static_cast<std::size_t>(std::rand()) % (sizeof kAlphabet - 1)];
        const float width = 0.05f * static_cast<float>(1 + std::rand() % 30);
        WrapWords(*theme, text, width, wrapped);
        ASSERT_EQ(wrapped, WrapByTheRule(*theme, text, width)) << testing::PrintToString(text);
    }
}

TEST_F(LabelTest, GrowingTextMeasuresLikeTheFontToTheLastBit) {
    constexpr char kAlphabet[] = "aW \n%\xff";
    FontAccess::SetAdvance(GLWidget::font, 'a', 0.3f);
    FontAccess::SetAdvance(GLWidget::font, '%', 0.7f);
    std::srand(11);
    for (int round = 0; round < 500; ++round) {
        GrowingText growing(*theme);
        std::string text;
        for (int length = std::rand() % 60; length > 0; --length) {
            const char next = kAlphabet[static_cast<std::size_t>(std::rand()) % 6];
            text += next;
            growing.Append(next);
            ASSERT_EQ(growing.Width(), MeasureText(*theme, text)) << testing::PrintToString(text);
        }
    }
}

TEST_F(LabelTest, TextAfterAZeroByteIsNotMeasured) {
    GrowingText growing(*theme);
    growing.Append('a');
    growing.Append('\0');
    growing.Append('b');
    EXPECT_EQ(growing.Width(), MeasureText(*theme, std::string("a\0b", 3)));
    growing.Clear();
    growing.Append('b');
    EXPECT_EQ(growing.Width(), MeasureText(*theme, "b"));
}

TEST_F(LabelTest, EscapingDoublesEveryPercentSignThatIsNotHalfOfAPair) {
    EXPECT_EQ(EscapeFormat(""), "");
    EXPECT_EQ(EscapeFormat("plain"), "plain");
    EXPECT_EQ(EscapeFormat("5%"), "5%%");
    EXPECT_EQ(EscapeFormat("5%%"), "5%%");
    EXPECT_EQ(EscapeFormat("5%%%"), "5%%%%");
    EXPECT_EQ(EscapeFormat("%n%s%%d"), "%%n%%s%%d");
}

TEST_F(LabelTest, TextWithFormatSpecifiersReadsNoArguments) {
    EXPECT_FLOAT_EQ(MeasureText(*theme, "%s%n"), 4.0f * 0.04f);
    EXPECT_FLOAT_EQ(MeasureText(*theme, "%%s"), 2.0f * 0.04f);
}

using LabelDeathTest = LabelTest;

TEST_F(LabelDeathTest, RenderingOutsideRenderWidgetsFailsTheAssertion) {
    const auto label = Make("x");
    EXPECT_EXIT(label->Render(), testing::ExitedWithCode(0),
                "Assert failed on glwidget/label:24 - \"rendering\"");
}

class DrawnLabelTest : public DrawnWidgetTest {
protected:
    static constexpr float kGlyph = 0.12f;

    DrawnLabelTest() {
        LoadFont();
        theme->fontSize = Vector(kGlyph, kGlyph);
    }

    /// Draws a label at the origin. @return the pixels of its text
    int DrawLabel(const std::string& text) {
        testing::internal::CaptureStderr();
        Label label("l", nullptr, Vector(0.0f, 0.0f), theme, text);
        testing::internal::GetCapturedStderr();
        Draw(label);
        return TextIn(0.0f, 0.0f, 1.7f, 1.3f);
    }
    int TextIn(float left, float bottom, float right, float top) const {
        return CountText(left, bottom, right, top);
    }
};

TEST_F(DrawnLabelTest, TextIsDrawnInItsColourHalfAGlyphFromTheLeft) {
    EXPECT_GT(DrawLabel("HHH"), 100);
    EXPECT_EQ(TextIn(0.0f, 0.0f, kGlyph / 2.0f - 0.005f, 1.0f), 0);
    EXPECT_EQ(TextIn(0.0f, 0.0f, 1.0f, kGlyph / 4.0f - 0.01f), 0);
    EXPECT_EQ(TextIn(0.0f, kGlyph * 1.4f, 1.0f, 1.0f), 0);
}

TEST_F(DrawnLabelTest, FirstOfSeveralLinesStandsHighestAndTheLastAtTheBottom) {
    DrawLabel("HHH\nH");
    const float step = 1.3f * kGlyph;
    EXPECT_GT(TextIn(0.0f, 0.02f, kGlyph * 1.3f, step), 0);
    EXPECT_EQ(TextIn(kGlyph * 1.6f, 0.02f, 1.0f, step), 0) << "one letter in the lower line";
    EXPECT_GT(TextIn(kGlyph * 1.6f, step + 0.02f, 1.0f, 2.0f * step), 0);
}

TEST_F(DrawnLabelTest, PercentSignsAreDrawnOnceWhetherDoubledOrNot) {
    const int pair = DrawLabel("100%%");
    const int lone = DrawLabel("100%");
    EXPECT_GT(lone, DrawLabel("100"));
    EXPECT_EQ(pair, lone);
    EXPECT_EQ(DrawLabel("%s%n"), DrawLabel("%%s%%n"));
}

TEST_F(DrawnLabelTest, SetTextOfADoubledPercentSignShowsOne) {
    const int constructed = DrawLabel("100%");
    testing::internal::CaptureStderr();
    Label label("l", nullptr, Vector(0.0f, 0.0f), theme, "000%");
    testing::internal::GetCapturedStderr();
    label.SetText("100%%");
    Draw(label);
    EXPECT_EQ(TextIn(0.0f, 0.0f, 1.7f, 1.3f), constructed);
}

TEST_F(DrawnLabelTest, TextIsDrawnAtTheFontSizeOfTheLabelsTheme) {
    const int alone = DrawLabel("HHH");
    testing::internal::CaptureStderr();
    Label label("l", nullptr, Vector(0.0f, 0.0f), theme, "HHH");
    testing::internal::GetCapturedStderr();
    GLWidget::font.SetSize(1.0f, 1.0f);
    Draw(label);
    EXPECT_EQ(TextIn(0.0f, 0.0f, 1.7f, 1.3f), alone);
}

TEST_F(DrawnLabelTest, TextTooWideForTheWidgetIsBroken) {
    testing::internal::CaptureStderr();
    Opened<Label> label("l", nullptr, Vector(0.0f, 0.0f), theme, "HHH HHH");
    testing::internal::GetCapturedStderr();
    Draw(label);
    EXPECT_EQ(TextIn(0.0f, 1.3f * kGlyph + 0.03f, 1.7f, 1.3f), 0);
    label.size.x /= 1.5f;
    Draw(label);
    EXPECT_GT(TextIn(0.0f, 1.3f * kGlyph + 0.03f, 1.7f, 1.3f), 0);
}

TEST_F(DrawnLabelTest, DrawingRestoresTheModelViewMatrix) {
    DrawLabel("HHH");
    EXPECT_EQ(ModelView(), kIdentity);
}

}  // namespace
