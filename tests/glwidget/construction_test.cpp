// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <memory>
#include <vector>

#include "glwidget/button.h"
#include "glwidget/checkbox.h"
#include "glwidget/combobox.h"
#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/label.h"
#include "glwidget/optionbox.h"
#include "glwidget/slider.h"
#include "glwidget/tabwindow.h"
#include "glwidget/textbox.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

class ConstructionTest : public WidgetTest {
protected:
    /// One widget of every class.
    static std::vector<GLWidget*> MakeAll(Theme* theme) {
        const Vector position(0.25f, 0.5f);
        const Vector extent(0.75f, 0.0f);
        testing::internal::CaptureStderr();
        const std::vector<GLWidget*> all = {
            new Button("button", nullptr, position, theme, "Caption"),
            new Button("picture", nullptr, position, theme, Vector(0.5f, 0.25f)),
            new Checkbox("check", nullptr, position, theme, "Caption"),
            new Optionbox("option", nullptr, position, theme, "Caption"),
            new Combobox("list", nullptr, position, theme),
            new Frame("frame", nullptr, position, theme, true),
            new GLWindow("window", nullptr, position, theme, "Title", true),
            new TabWindow("tabs", nullptr, position, theme),
            new Label("label", nullptr, position, theme, "Text"),
            new Slider("slider", nullptr, position, theme, extent),
            new Textbox("box", nullptr, position, theme, 10, 2),
        };
        testing::internal::GetCapturedStderr();
        return all;
    }

    WorkingFolder folder;  // without theme files
};

TEST_F(ConstructionTest, WidgetsThatAreGivenNoThemeAreThoseOfTheDefaultTheme) {
    const std::vector<GLWidget*> without = MakeAll(nullptr);
    const std::vector<GLWidget*> with = MakeAll(theme);
    for (std::size_t i = 0; i < without.size(); ++i) {
        const Vector box = without[i]->Getbbox();
        const Vector expected = with[i]->Getbbox();
        EXPECT_EQ(&without[i]->GetTheme(), theme) << with[i]->GetName();
        EXPECT_EQ(box.x, expected.x) << with[i]->GetName();
        EXPECT_EQ(box.y, expected.y) << with[i]->GetName();
        EXPECT_EQ(box.z, expected.z) << with[i]->GetName();
        EXPECT_EQ(box.w, expected.w) << with[i]->GetName();
    }
}

}  // namespace
