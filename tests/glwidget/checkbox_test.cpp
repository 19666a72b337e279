// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/checkbox.h"

#include "glwidget/optionbox.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

class CheckboxTest : public WidgetTest {
protected:
    CheckboxTest()
        : check("c", nullptr, Vector(0.0f, 0.0f), theme, "tick"),
          option("o", nullptr, Vector(0.0f, 0.0f), theme, "choose") {}

    template <typename Box>
    static bool Click(Box& box) {
        box.MouseMove(0.01f, 0.01f);
        const bool result = box.MouseClick(true, false, false);
        box.MouseClick(false, false, false);
        return result;
    }

    Opened<Checkbox> check;
    Opened<Optionbox> option;
};

TEST_F(CheckboxTest, SizeHoldsBoxAndCaption) {
    const Vector box = check.Getbbox();
    EXPECT_FLOAT_EQ(box.z, 5.0f * 0.04f + 0.1f + 0.04f);
    EXPECT_FLOAT_EQ(box.w, 0.1f);
    theme->fontSize.y = 0.2f;
    Checkbox tall("t", nullptr, Vector(0.0f, 0.0f), theme, "x");
    EXPECT_FLOAT_EQ(tall.Getbbox().w, 0.4f);
}

TEST_F(CheckboxTest, WithoutACaptionItIsExactlyTheBox) {
    Checkbox bare("t", nullptr, Vector(0.0f, 0.0f), theme, "");
    EXPECT_EQ(bare.Getbbox().z, 0.1f);
    EXPECT_EQ(bare.Getbbox().w, 0.1f);
}

TEST_F(CheckboxTest, StartsInactive) {
    EXPECT_FALSE(check.Clicked());
    EXPECT_FALSE(option.Clicked());
}

TEST_F(CheckboxTest, CheckboxIsNotUniqueAndOptionboxIs) {
    EXPECT_EQ(check.GetType(), "Checkbox");
    EXPECT_FALSE(check.Unique());
    EXPECT_EQ(option.GetType(), "Optionbox");
    EXPECT_TRUE(option.Unique());
}

TEST_F(CheckboxTest, TwoClicksEndInactiveWithAFullFlashEach) {
    EXPECT_TRUE(Click(check));
    EXPECT_TRUE(check.Clicked());
    EXPECT_EQ(check.flash, 1.0f);
    check.Update(100);
    EXPECT_LT(check.flash, 1.0f);
    EXPECT_TRUE(Click(check));
    EXPECT_FALSE(check.Clicked());
    EXPECT_EQ(check.flash, 1.0f);
}

TEST_F(CheckboxTest, OnlyALeftPressOverTheBoxTicks) {
    check.MouseMove(-1.0f, -1.0f);
    EXPECT_FALSE(check.MouseClick(true, false, false));
    check.MouseMove(0.01f, 0.01f);
    EXPECT_FALSE(check.MouseClick(true, false, false));
    EXPECT_FALSE(check.MouseClick(false, false, false));
    EXPECT_FALSE(check.MouseClick(false, true, true));
    EXPECT_FALSE(check.Clicked());
    EXPECT_TRUE(check.MouseClick(true, true, true));
    EXPECT_TRUE(check.Clicked());
}

TEST_F(CheckboxTest, SetFocussedChangesNothing) {
    Click(check);
    check.Update(1000);
    check.Update(1);
    check.SetFocussed(nullptr);
    EXPECT_TRUE(check.Clicked());
    EXPECT_EQ(check.flash, 0.0f);
}

TEST_F(CheckboxTest, ClickChoosesAnOption) {
    EXPECT_TRUE(Click(option));
    EXPECT_TRUE(option.Clicked());
    EXPECT_EQ(option.flash, 1.0f);
}

TEST_F(CheckboxTest, ClickingTheActiveOptionReturnsFalseAndChangesNothing) {
    Click(option);
    option.Update(1000);
    option.Update(1);
    EXPECT_FALSE(Click(option));
    EXPECT_TRUE(option.Clicked());
    EXPECT_EQ(option.flash, 0.0f);
}

TEST_F(CheckboxTest, OptionStoresTheButtonsEvenWhenNothingHappens) {
    option.MouseMove(-1.0f, -1.0f);
    option.MouseClick(true, false, false);
    option.MouseMove(0.01f, 0.01f);
    EXPECT_FALSE(option.MouseClick(true, false, false));
    EXPECT_FALSE(option.Clicked());
}

TEST_F(CheckboxTest, DeselectedOptionFlashesOnlyIfItWasActive) {
    option.SetFocussed(&check);
    EXPECT_EQ(option.flash, 0.0f);
    Click(option);
    option.flash = 0.0f;
    option.SetFocussed(&check);
    EXPECT_FALSE(option.Clicked());
    EXPECT_EQ(option.flash, 1.0f);
}

using CheckboxDeathTest = CheckboxTest;

TEST_F(CheckboxDeathTest, RenderingOutsideRenderWidgetsFailsTheAssertion) {
    EXPECT_EXIT(check.Render(), testing::ExitedWithCode(0),
                "Assert failed on glwidget/checkbox:6 - \"rendering\"");
    EXPECT_EXIT(option.Render(), testing::ExitedWithCode(0),
                "Assert failed on glwidget/optionbox:35 - \"rendering\"");
}

/// A sheet of four columns in different colours, each the picture of one rectangle.
class DrawnCheckboxTest : public DrawnWidgetTest {
protected:
    static constexpr Colour kBox{153, 0, 0};
    static constexpr Colour kOption{0, 153, 0};

    DrawnCheckboxTest() {
        theme->fillColour = Vector(1.0f, 1.0f, 1.0f);
        const std::uint8_t pixels[] = {255, 0,   0, 255, 0,   0, 255, 255,
                                       0,   255, 0, 255, 255, 0, 255, 255};
        TextureData image;
        EXPECT_TRUE(image.Load(4, 1, true, pixels));
        theme->image.Load(image, TextureDetails("", 1 + 16));  // the floats, without mipmaps
        GLWidget::checkRect = Vector(0.125f, 0.0f, 0.125f, 1.0f);
        GLWidget::checkMarkRect = Vector(0.375f, 0.0f, 0.375f, 1.0f);
        GLWidget::optionRect = Vector(0.625f, 0.0f, 0.625f, 1.0f);
        GLWidget::optionMarkRect = Vector(0.875f, 0.0f, 0.875f, 1.0f);
        theme->boxSize = 0.4f;
    }
    ~DrawnCheckboxTest() override {
        for (Vector* rectangle : {&GLWidget::optionRect, &GLWidget::optionMarkRect,
                                  &GLWidget::checkRect, &GLWidget::checkMarkRect})
            *rectangle = Vector();
    }
};

TEST_F(DrawnCheckboxTest, EmptyBoxShowsItsRectangleOfTheSheet) {
    Opened<Checkbox> check("c", nullptr, Vector(0.0f, 0.0f), theme, "");
    Draw(check);
    EXPECT_EQ(At(0.01f, 0.01f), kBox);
    EXPECT_EQ(At(0.39f, 0.39f), kBox);
    EXPECT_FALSE(AnythingIn(0.41f, 0.0f, 0.6f, 0.4f));
    EXPECT_FALSE(AnythingIn(0.0f, 0.41f, 0.4f, 0.6f));
}

TEST_F(DrawnCheckboxTest, BrightensWithTheHighlight) {
    Opened<Checkbox> check("c", nullptr, Vector(0.0f, 0.0f), theme, "");
    check.Focus();
    Draw(check);
    EXPECT_EQ(At(0.2f, 0.2f), (Colour{255, 0, 0}));
}

TEST_F(DrawnCheckboxTest, TickIsOpaqueAfterItsFlash) {
    Opened<Checkbox> check("c", nullptr, Vector(0.0f, 0.0f), theme, "");
    check.active = true;
    Draw(check);
    EXPECT_EQ(At(0.2f, 0.2f), (Colour{0, 0, 255}));
}

TEST_F(DrawnCheckboxTest, TickFadesInAfterTicking) {
    Opened<Checkbox> check("c", nullptr, Vector(0.0f, 0.0f), theme, "");
    check.active = true;
    check.flash = 0.75f;
    Draw(check);
    // A quarter of the tick's colour, with an alpha of a quarter, over the box.
    EXPECT_EQ(At(0.2f, 0.2f), (Colour{115, 0, 16}));
    check.flash = 1.0f;
    Draw(check);
    EXPECT_EQ(At(0.2f, 0.2f), kBox);
}

TEST_F(DrawnCheckboxTest, TickFadesOutAfterUnticking) {
    Opened<Checkbox> check("c", nullptr, Vector(0.0f, 0.0f), theme, "");
    check.flash = 0.75f;
    Draw(check);
    EXPECT_EQ(At(0.2f, 0.2f), (Colour{38, 0, 143}));
    check.flash = 0.0001f;
    Draw(check);
    EXPECT_EQ(At(0.2f, 0.2f), kBox);
}

TEST_F(DrawnCheckboxTest, OptionUsesItsOwnRectangles) {
    Opened<Optionbox> option("o", nullptr, Vector(0.0f, 0.0f), theme, "");
    Draw(option);
    EXPECT_EQ(At(0.2f, 0.2f), kOption);
    option.active = true;
    Draw(option);
    EXPECT_EQ(At(0.2f, 0.2f), (Colour{255, 0, 255}));
}

TEST_F(DrawnCheckboxTest, CaptionStandsABlankRightOfTheBoxAndAQuarterOfTheBoxAboveItsBottom) {
    LoadFont();
    theme->fontSize = Vector(0.12f, 0.12f);
    Checkbox check("c", nullptr, Vector(0.0f, 0.0f), theme, "mmm");
    Draw(check);
    const float blank = GLWidget::font.Advance(' ') * 0.12f;
    EXPECT_GT(CountText(0.4f + blank, 0.1f, 1.0f, 0.24f), 50);
    EXPECT_EQ(CountText(0.41f, 0.0f, 0.4f + blank - 0.005f, 0.4f), 0);
    EXPECT_EQ(CountText(0.41f, 0.0f, 1.0f, 0.09f), 0);
}

TEST_F(DrawnCheckboxTest, DrawingRestoresTheModelViewMatrix) {
    Checkbox check("c", nullptr, Vector(0.0f, 0.0f), theme, "tick");
    Draw(check);
    EXPECT_EQ(ModelView(), kIdentity);
}

}  // namespace
