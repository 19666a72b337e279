// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// What the table says of how kinds look and answer, compared with what they do.

#include <cstdint>
#include <optional>
#include <sstream>
#include <type_traits>
#include <vector>

#include "glwidget/kinds.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/support/kind_samples.h"
#include "tests/support/temporary_folder.h"

namespace {

class DrawnKindsTest : public DrawnWidgetTest {
protected:
    DrawnKindsTest() {
        LoadFont();
        directory.emplace();
        // What the widgets make for themselves, and children, always look the same.
        for (const char* name : {"default", "combo_button", "tabwin_button"}) {
            directory->Write(std::string(name) + ".theme",
                             "1 1 1\n1 1 1\n0.5 0.5 0.5\n1 1 1\n1\n1\n1\n0.02\n0.1\n1\n0.04 0.05\n"
                             "0.7 1\n0 0 0\n0.1\nNULL\n1\n");
        }
    }

    /// A theme of which every line can be seen.
    static void Fill(Theme& look) {
        MakeEveryLineVisible(look);
        PlainSheet(look, 255, 255, 255);
    }

    /// Sets a line of the theme to other values.
    static void Change(Theme& look, const Theme::Line& line) {
        std::visit(
            [&](auto member) {
                auto& value = look.*member;
                using Type = std::remove_reference_t<decltype(value)>;
                if constexpr (std::is_same_v<Type, Vector>) {
                    value = Vector(0.6f * value.x, 0.6f * value.y, 0.6f * value.z);
                } else if constexpr (std::is_same_v<Type, float>) {
                    value *= 0.6f;
                    if (line.second != nullptr)
                        look.*line.second *= 0.6f;
                } else if constexpr (std::is_same_v<Type, bool>) {
                    value = !value;
                } else {
                    PlainSheet(look, 255, 0, 0);
                }
            },
            line.member);
    }

    /// A widget of the kind with all that a layout can give it.
    static GLWidget* Make(const Kind& kind, Theme& look) {
        GLWidget::widgets.clear();
        GLWidget::tags.clear();
        GLWidget::themes["look"] = &look;
        std::string layout = "THEM look NULL\nCADD " + std::string(kind.word) + " a NULL -0.6 0.1 "
                             + SampleFields(kind) + "\n";
        if (kind.hasTabs)
            layout += "NTAB a 0 First\n";
        if (kind.takesItems)
            layout += "TEXT a One\nTEXT a Two\n";
        layout += "THEM default NULL\n";
        if (kind.holdsChildren)
            layout +=
                (kind.hasTabs ? std::string("TADD 0") : "CADD") + " Butt b a 0 0 TEX 0.4 0.2\n";
        std::istringstream file(layout);
        testing::internal::CaptureStderr();
        GLWidget::StartGUI(file, "test.gui");
        testing::internal::GetCapturedStderr();
        return GLWidget::GetByTag("a");
    }

    static void Settle() {
        constexpr int kLongerThanAnyFading = 10000;
        GLWidget::UpdateWidgets(kLongerThanAnyFading);
        GLWidget::UpdateWidgets(kLongerThanAnyFading);
    }

    /// Moves the mouse over the title of a window, or else the middle of the widget.
    static void Hover(const Kind& kind, GLWidget& widget) {
        const Vector box = widget.Getbbox();
        const float x = (box.x + box.z) / 2.0f;
        const float y = kind.text == TextGround::Title ? box.w - 0.05f : (box.y + box.w) / 2.0f;
        GLWidget::MouseMoveWidgets({(x / GLWidget::HalfWidth() + 1.0f) * 400.0f,
                                    (1.0f - y / GLWidget::guiScale) * 300.0f});
        Settle();
    }

    using Picture = std::vector<std::uint8_t>;

    /// The widget as it is, under the mouse, and pressed.
    std::vector<Picture> PicturesOf(const Kind& kind, Theme& look) {
        std::vector<Picture> pictures;
        GLWidget& widget = *Make(kind, look);
        const auto shoot = [&] {
            Settle();
            Draw();
            pictures.push_back(window.Pixels());
        };
        shoot();
        Hover(kind, widget);
        shoot();
        GLWidget::MouseClickWidgets(true, false, false);
        shoot();
        GLWidget::MouseClickWidgets(false, false, false);
        return pictures;
    }

    std::optional<WorkingFolder> directory;
};

TEST_F(DrawnKindsTest, RowNamesTheThemeLinesThatChangeThePicture) {
    for (const Kind* kind : Kinds()) {
        Theme look;
        Fill(look);
        const auto pictures = PicturesOf(*kind, look);
        for (std::size_t i = 0; i < Theme::Lines().size(); ++i) {
            const Theme::Line& line = Theme::Lines()[i];
            Theme changed = look;
            Change(changed, line);
            EXPECT_EQ(PicturesOf(*kind, changed) != pictures,
                      kind->draws.Has(static_cast<ThemeLine>(i)))
                << NameOf(*kind) << ", " << line.values.field.name;
        }
    }
}

TEST_F(DrawnKindsTest, RowSaysWhetherAPressDoesSomething) {
    for (const Kind* kind : Kinds()) {
        if (kind->holdsChildren)
            continue;  // the press is for the children, or for the title bar
        Theme look;
        Fill(look);
        GLWidget& widget = *Make(*kind, look);
        Hover(*kind, widget);
        GLWidget::MouseClickWidgets(true, false, false);
        const bool opened = widget.GetDepth() != 0.0f;
        const bool edited = kind->takesKeys && widget.HasFocus();
        const bool pressed = widget.BeenClicked() || widget.Clicked();
        EXPECT_EQ(opened || edited || pressed || widget.Dragging(), kind->takesClicks)
            << NameOf(*kind);
        GLWidget::MouseClickWidgets(false, false, false);
    }
}

TEST_F(DrawnKindsTest, RowSaysWhetherKeysAreTaken) {
    for (const Kind* kind : Kinds()) {
        Theme look;
        Fill(look);
        GLWidget& widget = *Make(*kind, look);
        const std::string before = widget.GetText();
        Hover(*kind, widget);
        GLWidget::MouseClickWidgets(true, false, false);
        KeyFlags keys{};
        keys['k'] = true;
        GLWidget::TextKeyPressWidgets(keys);
        EXPECT_EQ(widget.GetText() != before, kind->takesKeys) << NameOf(*kind);
        GLWidget::MouseClickWidgets(false, false, false);
    }
}

TEST_F(DrawnKindsTest, RowSaysWhetherItemsAreShown) {
    for (const Kind* kind : Kinds()) {
        Theme look;
        Fill(look);
        GLWidget& widget = *Make(*kind, look);
        Draw();
        const Picture without = window.Pixels();
        widget.AddText("A long item that takes room");
        Draw();
        EXPECT_EQ(window.Pixels() != without, kind->takesItems) << NameOf(*kind);
    }
}

}  // namespace
