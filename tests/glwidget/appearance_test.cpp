// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// While the fingerprint of the widgets is the same, so is their picture.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/button.h"
#include "glwidget/chart.h"
#include "glwidget/kinds.h"
#include "glwidget/tabwindow.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/support/kind_samples.h"
#include "tests/support/temporary_folder.h"

namespace {

using Picture = std::vector<std::uint8_t>;

void MoveMouse(const Vector& point) {
    GLWidget::MouseMoveWidgets({(point.x / GLWidget::HalfWidth() + 1.0f) * 400.0f,
                                (1.0f - point.y / GLWidget::guiScale) * 300.0f});
}

class AppearanceTest : public DrawnWidgetTest {
protected:
    AppearanceTest() {
        LoadFont();
        folder.emplace();
        *theme = Look();
        for (const char* name : {"look", "other"})
            *GLWidget::NewTheme(name) = Look();
        for (const char* name : {"combo_button.theme", "tabwin_button.theme"})
            *GLWidget::NewTheme(name) = Look();
        float part = 0.0f;
        for (Vector* rect : {&GLWidget::optionRect, &GLWidget::optionMarkRect, &GLWidget::checkRect,
                             &GLWidget::checkMarkRect, &GLWidget::sliderRect}) {
            part += 0.1f;
            *rect = Vector(part, part, part + 0.4f, part + 0.4f);
        }
    }

    /// A theme of which every line can be seen, with a picture of many colours.
    static Theme Look() {
        Theme look;
        MakeEveryLineVisible(look);
        look.fillColour = Vector(0.6f, 0.5f, 0.9f);
        Sheet(look, 1);
        return look;
    }

    static void Sheet(Theme& look, unsigned seed) {
        constexpr int kSide = 8;
        std::srand(seed);
        std::array<std::uint8_t, std::size_t{4} * kSide * kSide> pixels{};
        for (std::uint8_t& channel : pixels)
            channel = static_cast<std::uint8_t>(128 + std::rand() % 128);
        TextureData image;
        ASSERT_TRUE(image.Load(kSide, kSide, true, pixels.data()));
        look.image.Load(image, TextureDetails("", 0));
    }

    /// Reads a layout into an otherwise empty toolkit.
    static void Build(const std::string& layout) {
        GLWidget::DeleteAll();
        std::istringstream file("THEM look NULL\n" + layout);
        testing::internal::CaptureStderr();
        GLWidget::StartGUI(file, "test.gui");
        testing::internal::GetCapturedStderr();
    }

    /// A widget of the kind and, for those that hold others, some in it.
    static std::string LayoutOf(const Kind& kind, const std::string& fields) {
        std::string layout = "CADD " + std::string(kind.word) + " a NULL -0.6 0.1 " + fields + "\n";
        if (kind.hasTabs)
            layout += "NTAB a 0 First\nNTAB a 1 Second\nTADD 1 Label c a 0.1 0.1 Hidden\n";
        if (kind.takesItems)
            layout += "TEXT a One\nTEXT a Two\n";
        if (kind.holdsChildren) {
            const std::string add = kind.hasTabs ? "TADD 0" : "CADD";
            layout += add + " Butt b a 0.1 0.1 Press\n" + add + " Label l a 0.3 0.2 Text\n";
        }
        return layout;
    }
    static std::string LayoutOf(const Kind& kind) { return LayoutOf(kind, SampleFields(kind)); }

    struct Shown {
        std::uint64_t appearance = 0;
        Picture picture;
    };
    /// Drawn twice: a first picture can contain what an earlier one left, such as its line width.
    Shown Show() {
        Draw();
        Shown shown;
        shown.appearance = GLWidget::Appearance();
        Draw();
        shown.picture = window.Pixels();
        return shown;
    }

    std::optional<WorkingFolder> folder;
};

struct Change {
    std::string name;
    std::function<void(GLWidget& widget)> make;
};

/// Every field of the base that a Render could read.
std::vector<Change> ChangesOfFields() {
    return {
        {"active", [](GLWidget& w) { w.*& PlainWidget::active = !(w.*&PlainWidget::active); }},
        {"flash", [](GLWidget& w) { w.*& PlainWidget::flash = 0.4f; }},
        {"focus", [](GLWidget& w) { w.*& PlainWidget::focus = !(w.*&PlainWidget::focus); }},
        {"highlight", [](GLWidget& w) { w.*& PlainWidget::highlight = 0.5f; }},
        {"level", [](GLWidget& w) { w.*& PlainWidget::level = 0.2f; }},
        {"x", [](GLWidget& w) { (w.*&PlainWidget::position).x += 0.1f; }},
        {"y", [](GLWidget& w) { (w.*&PlainWidget::position).y += 0.1f; }},
        {"width", [](GLWidget& w) { (w.*&PlainWidget::size).x *= 0.7f; }},
        {"height", [](GLWidget& w) { (w.*&PlainWidget::size).y *= 0.7f; }},
        {"text", [](GLWidget& w) { w.*& PlainWidget::text = "Another text"; }},
        {"longer text", [](GLWidget& w) { w.*& PlainWidget::text += 'x'; }},
        {"current", [](GLWidget& w) { w.*& PlainWidget::current = 1; }},
        {"no item", [](GLWidget& w) { w.*& PlainWidget::current = -1; }},
        {"texts",
         [](GLWidget& w) {
             w.*& PlainWidget::texts = {"North", "South", "West"};
         }},
        {"theme",
         [](GLWidget& w) {
             Theme& other = *GLWidget::themes["other"];
             other.textColour = Vector(0.1f, 0.1f, 0.9f);
             other.lineColour = Vector(0.9f, 0.1f, 0.1f);
             other.fillColour = Vector(0.1f, 0.9f, 0.1f);
             w.*& PlainWidget::theme = &other;
         }},
        {"children", [](GLWidget& w) { (w.*&PlainWidget::children).clear(); }},
        {"order of children",
         [](GLWidget& w) {
             std::vector<GLWidget*>& children = w.*&PlainWidget::children;
             std::reverse(children.begin(), children.end());
         }},
        {"a child's depth",
         [](GLWidget& w) {
             for (GLWidget* child : w.GetChildren())
                 child->*& PlainWidget::depth = -0.5f;
         }},
        {"a child's text",
         [](GLWidget& w) {
             for (GLWidget* child : w.GetChildren())
                 child->SetText("Child");
         }},
    };
}

TEST_F(AppearanceTest, FieldThatChangesThePictureChangesTheFingerprint) {
    for (const Kind* kind : Kinds()) {
        int visible = 0;
        for (const Change& change : ChangesOfFields()) {
            Build(LayoutOf(*kind));
            const Shown before = Show();
            change.make(*GLWidget::GetByTag("a"));
            const Shown after = Show();
            if (after.picture == before.picture)
                continue;
            ++visible;
            EXPECT_NE(after.appearance, before.appearance) << NameOf(*kind) << ", " << change.name;
        }
        EXPECT_GE(visible, 3) << NameOf(*kind);
    }
}

TEST_F(AppearanceTest, FieldOfTheLayoutThatChangesThePictureChangesTheFingerprint) {
    for (const Kind* kind : Kinds()) {
        Build(LayoutOf(*kind));
        const Shown before = Show();
        for (std::size_t changed = 0; changed < kind->fields.size(); ++changed) {
            std::string fields(kind->form);
            for (std::size_t i = 0; i < kind->fields.size(); ++i) {
                const Field& field = kind->fields[i];
                const bool zero = kind->eitherOr && i + 1 == kind->fields.size();
                std::string value = zero ? "0" : SampleValue(field);
                if (i == changed) {
                    const bool isText = field.type == FieldType::Text
                                        || field.type == FieldType::Caption
                                        || field.type == FieldType::Name;
                    if (isText) {
                        value = "Other";
                    } else if (field.type == FieldType::Flag) {
                        value = "0";
                    } else {
                        value = field.type == FieldType::Whole ? "7" : "0.3";
                    }
                }
                fields += (fields.empty() ? "" : " ") + value;
            }
            Build(LayoutOf(*kind, fields));
            const Shown after = Show();
            EXPECT_TRUE(after.picture == before.picture || after.appearance != before.appearance)
                << NameOf(*kind) << ", " << fields;
        }
    }
}

TEST_F(AppearanceTest, LineOfAThemeThatChangesThePictureChangesTheFingerprint) {
    for (const Kind* kind : Kinds()) {
        Build(LayoutOf(*kind));
        GLWidget& widget = *GLWidget::GetByTag("a");
        // Pressed, ticked or chosen: all that its theme controls is then drawn.
        widget.Enable();
        const Shown before = Show();
        Theme& look = *GLWidget::themes["look"];
        const Theme original = look;
        for (std::size_t i = 0; i < Theme::Lines().size(); ++i) {
            const auto expectSeen = [&] {
                const Shown after = Show();
                EXPECT_TRUE(after.picture == before.picture
                            || after.appearance != before.appearance)
                    << NameOf(*kind) << ", " << Theme::Lines()[i].values.field.name;
                look = original;
            };
            const Theme::Line& line = Theme::Lines()[i];
            if (const auto* vector = std::get_if<Vector Theme::*>(&line.member)) {
                for (float Vector::*part : {&Vector::x, &Vector::y, &Vector::z}) {
                    look.** vector.*part *= 0.6f;
                    expectSeen();
                }
            } else if (const auto* number = std::get_if<float Theme::*>(&line.member)) {
                look.** number *= 0.6f;
                expectSeen();
                if (line.second != nullptr) {
                    look.*line.second *= 0.6f;
                    expectSeen();
                }
            } else if (std::holds_alternative<std::string Theme::*>(line.member)) {
                Sheet(look, 2);
                expectSeen();
            }
        }
    }
}

TEST_F(AppearanceTest, WhatTheToolkitSharesChangesTheFingerprint) {
    std::string layout;
    for (const Kind* kind : Kinds())
        layout +=
            "CADD " + std::string(kind->word) + " NULL NULL 0 0 " + SampleFields(*kind) + "\n";
    Build(layout);
    for (GLWidget* widget : GLWidget::widgets)
        widget->Enable();
    const Shown before = Show();
    const auto expectSeen = [&](const char* name) {
        const Shown after = Show();
        EXPECT_NE(after.picture, before.picture) << name;
        EXPECT_NE(after.appearance, before.appearance) << name;
    };
    for (Vector* rect : {&GLWidget::optionRect, &GLWidget::optionMarkRect, &GLWidget::checkRect,
                         &GLWidget::checkMarkRect, &GLWidget::sliderRect}) {
        for (float Vector::*part : {&Vector::x, &Vector::y, &Vector::z, &Vector::w}) {
            const float original = rect->*part;
            rect->*part += 0.3f;
            expectSeen("a rectangle of the sheet");
            rect->*part = original;
        }
    }
    GLWidget::guiScale *= 1.1f;
    expectSeen("scale");
    GLWidget::guiScale = Toolkit::kGuiScale;
    GLWidget::viewport[2] -= 100;
    expectSeen("width of the viewport");
    GLWidget::viewport[2] += 100;
    GLWidget* const last = GLWidget::widgets.back();
    GLWidget::widgets.pop_back();
    expectSeen("a widget is taken out");
    GLWidget::widgets.push_front(last);
    expectSeen("another widget is on top");
    ++GLWidget::fontLoads;
    GLWidget::widgets.pop_front();
    GLWidget::widgets.push_back(last);
    EXPECT_NE(GLWidget::Appearance(), before.appearance) << "another font";
}

TEST_F(AppearanceTest, WhatCannotBeSeenLeavesTheFingerprint) {
    for (const Kind* kind : Kinds()) {
        Build(LayoutOf(*kind));
        GLWidget& widget = *GLWidget::GetByTag("a");
        const std::uint64_t before = GLWidget::Appearance();
        EXPECT_EQ(GLWidget::Appearance(), before) << NameOf(*kind);
        widget.*& PlainWidget::mouse = Vector(0.7f, 0.3f);
        widget.*& PlainWidget::age = 12345;
        widget.*& PlainWidget::clicked = true;
        widget.*& PlainWidget::changed = true;
        widget.*& PlainWidget::dragging = true;
        (widget.*&PlainWidget::buttons).right = true;
        EXPECT_EQ(GLWidget::Appearance(), before) << NameOf(*kind);
    }
}

TEST_F(AppearanceTest, KindThatDoesNotSayWhatItDrawsCountsAsChanged) {
    PlainWidget plain("plain", nullptr, Vector(), nullptr);
    GLWidget::widgets = {&plain};
    const std::uint64_t before = GLWidget::Appearance();
    EXPECT_NE(GLWidget::Appearance(), before);
    GLWidget::widgets.clear();
}

TEST_F(AppearanceTest, WidgetsOfDifferentKindsDifferEvenIfTheirFieldsAreTheSame) {
    Build("CADD Check a NULL 0 0 Caption\n");
    const std::uint64_t box = GLWidget::Appearance();
    Build("CADD Opt a NULL 0 0 Caption\n");
    EXPECT_NE(GLWidget::Appearance(), box);
}

TEST_F(AppearanceTest, TakingTheFingerprintDoesForTheShownTabWhatDrawingDoes) {
    Build("CADD TWin a NULL -0.6 0.1\nNTAB a 0 First\nNTAB a 1 Second\n");
    const auto& tabs = dynamic_cast<TabWindow&>(*GLWidget::GetByTag("a")).GetTabs();
    MoveMouse(Vector(1.5f, 1.2f));
    ASSERT_FALSE(tabs[0].button->HasFocus());
    GLWidget::Appearance();
    EXPECT_TRUE(tabs[0].button->HasFocus());
    EXPECT_FALSE(tabs[1].button->HasFocus());
}

/// All kinds beside one another, in windows and on tabs.
std::string LayoutOfAllKinds() {
    return "CADD Butt desk NULL -1.7 -1.3 TEX 3.4 2.6\n"
           "CADD Win window NULL -1.6 0.1 1 Window\n"
           "CADD Butt button window 0.1 0.1 Press\n"
           "CADD Check check window 0.1 0.4 Tick\n"
           "CADD Opt first window 0.1 0.6 First\n"
           "CADD Opt second window 0.5 0.6 Second\n"
           "CADD Frame frame window 0.6 0.1 1\n"
           "CADD Slide slider frame 0.1 0.1 0.4 0\n"
           "CADD Slide upright frame 0.3 0.3 0 0.3\n"
           "CADD Combo combo NULL 0.2 0.9\n"
           "TEXT combo One\nTEXT combo Two\nTEXT combo Three\n"
           "CADD Text textbox NULL 0.3 -0.3 10 3\n"
           "CADD Label label NULL 0.2 0.3 Some text\n"
           "CADD Chart chart NULL 0.2 -1.2 1.3 0.8 Values\n"
           "CADD TWin tabs NULL -1.6 -1.2\n"
           "NTAB tabs 0 One\nNTAB tabs 1 Two\n"
           "TADD 0 Butt onfirst tabs 0.1 0.1 TEX 0.3 0.3\n"
           "TADD 1 Label onsecond tabs 0.1 0.2 Second tab\n"
           "TADD 1 Slide onsecond2 tabs 0.1 0.4 0.5 0\n";
}

class RandomPlay {
public:
    explicit RandomPlay(unsigned seed) { std::srand(seed); }

    void Step() {
        switch (Roll(12)) {
        case 0:
        case 1:
        case 2:
            Move();
            break;
        case 3:
        case 4:
            left = !left;
            GLWidget::MouseClickWidgets(left, false, false);
            break;
        case 5:
        case 6:
            GLWidget::UpdateWidgets(Roll(100));
            break;
        case 7:
            Press();
            break;
        case 8:
            Named()->SetText(Roll(2) == 0 ? "Other" : "A longer text than before, 100 %");
            break;
        case 9:
            Named()->SetLevel(static_cast<float>(Roll(5)) / 4.0f);
            break;
        case 10:
            Named()->AddText("Item");
            break;
        default:
            Fill();
            break;
        }
    }

private:
    static int Roll(int count) { return std::rand() % count; }

    /// Over what answers, or anywhere.
    static void Move() {
        static constexpr std::string_view kTags[] = {"chart", "textbox", "combo", "__tabstab0One",
                                                     "__tabstab1Two"};
        if (Roll(2) == 0) {
            GLWidget::MouseMoveWidgets(
                {static_cast<float>(Roll(800)), static_cast<float>(Roll(600))});
            return;
        }
        const Vector box =
            GLWidget::GetByTag(kTags[static_cast<std::size_t>(Roll(std::size(kTags)))])->Getbbox();
        const auto between = [](float low, float high) {
            return low + (high - low) * static_cast<float>(Roll(100)) / 99.0f;
        };
        MoveMouse(Vector(between(box.x, box.z), between(box.y, box.w)));
    }

    static void Press() {
        constexpr int kLeft = 276;
        KeyFlags keys{};
        keys[static_cast<std::size_t>(Roll(3) == 0 ? kLeft + Roll(4) : 'a' + Roll(26))] = true;
        GLWidget::TextKeyPressWidgets(keys);
    }

    static GLWidget* Named() {
        static constexpr std::string_view kTags[] = {"button",  "check",   "first",  "slider",
                                                     "upright", "textbox", "label",  "chart",
                                                     "combo",   "onfirst", "window", "onsecond"};
        return GLWidget::GetByTag(kTags[static_cast<std::size_t>(Roll(std::size(kTags)))]);
    }

    void Fill() {
        weeks.push_back(static_cast<float>(weeks.size()));
        values.push_back(static_cast<float>(Roll(100)));
        const std::array<Chart::Series, 1> series{{{"Value", values}}};
        dynamic_cast<Chart&>(*GLWidget::GetByTag("chart"))
            .SetData({.weeks = weeks, .series = series});
    }

    bool left = false;
    std::vector<float> weeks;
    std::vector<float> values;
};

TEST_F(AppearanceTest, EqualFingerprintsAreEqualPicturesInRandomPlay) {
    constexpr int kSteps = 300;
    Build(LayoutOfAllKinds());
    std::map<std::uint64_t, Picture> known;
    int seenAgain = 0;
    RandomPlay play(1);
    for (int step = 0; step < kSteps; ++step) {
        play.Step();
        Shown shown = Show();
        const auto [entry, isNew] = known.try_emplace(shown.appearance, std::move(shown.picture));
        if (isNew)
            continue;
        ++seenAgain;
        ASSERT_EQ(entry->second, shown.picture) << "step " << step;
    }
    EXPECT_GT(known.size(), 100U);
    EXPECT_GT(seenAgain, 50);
}

}  // namespace
