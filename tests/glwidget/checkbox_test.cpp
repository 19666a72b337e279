#include "glwidget/checkbox.h"

#include "glwidget/optionbox.h"
#include "tests/glwidget/widget_test.h"

namespace {

template <typename Box>
class Opened : public Box {
public:
    using Box::Box;
    using Box::flash;
};

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

TEST_F(CheckboxTest, TypesAndUniqueness) {
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

TEST_F(CheckboxTest, BeingToldOfAnotherChangesNothing) {
    Click(check);
    check.Update(1000);
    check.Update(1);
    check.SetFocussed(nullptr);
    EXPECT_TRUE(check.Clicked());
    EXPECT_EQ(check.flash, 0.0f);
}

TEST_F(CheckboxTest, OptionIsChosenByAClick) {
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

TEST_F(CheckboxTest, OptionThatLosesFlashesOnlyIfItWasActive) {
    option.SetFocussed(&check);
    EXPECT_EQ(option.flash, 0.0f);
    Click(option);
    option.flash = 0.0f;
    option.SetFocussed(&check);
    EXPECT_FALSE(option.Clicked());
    EXPECT_EQ(option.flash, 1.0f);
}

}  // namespace
