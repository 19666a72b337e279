// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/container.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "glwidget/button.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/widget_test.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);

class ContainerTest : public WidgetTest {
protected:
    PlainWidget first{"first", nullptr, kOrigin, theme};
    PlainWidget second{"second", nullptr, kOrigin, theme};
    PlainWidget third{"third", nullptr, kOrigin, theme};
    std::vector<GLWidget*> children{&first, &second, &third};
};

TEST_F(ContainerTest, EveryChildGetsTheClick) {
    container::Click(children, true, false, false);
    EXPECT_EQ(first.clicks, 1);
    EXPECT_EQ(second.clicks, 1);
    EXPECT_EQ(third.clicks, 1);
}

TEST_F(ContainerTest, ClickOnAChildThatIsNotUniqueIsNotToldToTheOthers) {
    container::Click(children, true, false, false);
    EXPECT_TRUE(first.told.empty());
    EXPECT_TRUE(second.told.empty());
    EXPECT_TRUE(third.told.empty());
}

TEST_F(ContainerTest, ClickOnAUniqueChildIsToldToAllOthersUniqueOrNot) {
    second.unique = true;
    container::Click(children, true, false, false);
    EXPECT_EQ(first.told, std::vector<GLWidget*>{&second});
    EXPECT_TRUE(second.told.empty());
    EXPECT_EQ(third.told, std::vector<GLWidget*>{&second});
}

TEST_F(ContainerTest, LastOfTwoClickedUniqueChildrenCounts) {
    first.unique = true;
    second.unique = true;
    container::Click(children, true, false, false);
    EXPECT_EQ(first.told, std::vector<GLWidget*>{&second});
    EXPECT_TRUE(second.told.empty());
    EXPECT_EQ(third.told, std::vector<GLWidget*>{&second});
}

TEST_F(ContainerTest, EveryChildGetsMousePositionsAndSetFocussed) {
    container::MoveMouse(children, 0.25f, 0.5f);
    container::PassFocussed(children, &second);
    for (const PlainWidget* child : {&first, &second, &third}) {
        EXPECT_EQ(child->mouse.x, 0.25f);
        EXPECT_EQ(child->mouse.y, 0.5f);
        EXPECT_EQ(child->told, std::vector<GLWidget*>{&second});
    }
}

TEST_F(ContainerTest, OneFocussedChildIsEnough) {
    EXPECT_FALSE(container::AnyHasFocus(children));
    third.Focus();
    EXPECT_TRUE(container::AnyHasFocus(children));
    EXPECT_FALSE(container::AnyHasFocus({}));
}

TEST_F(ContainerTest, DeletingAnOwnedButtonClearsItsTag) {
    OwnedButton part(new Button("part", nullptr, kOrigin, theme, "x"));
    ASSERT_EQ(GLWidget::GetByTag("part", false), part.get());
    part.reset();
    EXPECT_EQ(GLWidget::GetByTag("part", false), nullptr);
}

TEST_F(ContainerTest, TagStaysWithANewerWidgetWhenAnOwnedButtonIsDeleted) {
    OwnedButton part(new Button("part", nullptr, kOrigin, theme, "x"));
    Button taker("part", nullptr, kOrigin, theme, "y");
    part.reset();
    EXPECT_EQ(GLWidget::GetByTag("part", false), &taker);
}

class DrawnContainerTest : public DrawnWidgetTest {
protected:
    /// Records where it is drawn, and then changes the model-view matrix.
    class Noting : public PlainWidget {
    public:
        Noting(const std::string& tag, Theme* look, float drawDepth, std::string& drawn)
            : PlainWidget(tag, nullptr, kOrigin, look), notes(drawn) {
            depth = drawDepth;
        }
        void Render() override {
            notes += GetName();
            offsets.push_back(ModelView()[12]);
            glTranslatef(0.5f, 0.0f, 0.0f);
        }
        std::vector<float> offsets;

    private:
        std::string& notes;
    };

    std::string drawn;
    Noting open{"O", theme, -1.0f, drawn};
    Noting border{"B", theme, -0.5f, drawn};
    Noting near{"N", theme, -0.49f, drawn};
    Noting plain{"P", theme, 0.0f, drawn};
    std::vector<GLWidget*> children{&open, &border, &near, &plain};
};

TEST_F(DrawnContainerTest, OpenChildrenAreDrawnAfterTheirSiblings) {
    container::Render(children);
    EXPECT_EQ(drawn, "NPO");
}

TEST_F(DrawnContainerTest, ChildAtExactlyTheDepthBetweenTheLayersIsNeverDrawn) {
    container::Render(children);
    EXPECT_EQ(drawn.find('B'), std::string::npos);
}

TEST_F(DrawnContainerTest, MatrixThatAChildChangesIsRestoredForTheNext) {
    container::Render(children);
    EXPECT_EQ(near.offsets, std::vector<float>{0.0f});
    EXPECT_EQ(plain.offsets, std::vector<float>{0.0f});
    EXPECT_EQ(open.offsets, std::vector<float>{0.0f});
    EXPECT_EQ(ModelView(), kIdentity);
}

}  // namespace
