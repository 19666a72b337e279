// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/kinds.h"

#include <gmock/gmock.h>

#include <sstream>

#include "tests/glwidget/widget_test.h"
#include "tests/support/kind_samples.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(Field, WithoutARangeTakesEveryNumber) {
    const Field field{FieldType::Number, "x"};
    EXPECT_TRUE(field.Allows(-1e30f));
    EXPECT_TRUE(field.Allows(1e30f));
    EXPECT_EQ(field.Range(), "");
}

TEST(Field, RangeIncludesBothItsEnds) {
    const Field field{FieldType::Whole, "rows", 1, 1000};
    EXPECT_FALSE(field.Allows(0.0f));
    EXPECT_TRUE(field.Allows(1.0f));
    EXPECT_TRUE(field.Allows(1000.0f));
    EXPECT_FALSE(field.Allows(1001.0f));
    EXPECT_EQ(field.Range(), "1 to 1000");
}

TEST(Field, RangeAboveZeroExcludesZero) {
    const Field field{FieldType::Number, "width", Field::kAboveZero};
    EXPECT_FALSE(field.Allows(0.0f));
    EXPECT_TRUE(field.Allows(1e-30f));
    EXPECT_EQ(field.Range(), "above 0");
    EXPECT_EQ((Field{FieldType::Number, "width", Field::kAboveZero, 2.5f}).Range(),
              "above 0, at most 2.5");
}

TEST(Field, RangeMayBeOpenAtOneEnd) {
    EXPECT_EQ((Field{FieldType::Number, "a", 0.0f}).Range(), "0 or more");
    EXPECT_EQ((Field{FieldType::Number, "a", -Field::kUnlimited, 1.0f}).Range(), "1 or less");
}

TEST(Field, FlagIsZeroOrOne) {
    EXPECT_EQ((Field{FieldType::Flag, "a"}).Range(), "0 or 1");
}

/// A kind of the tests' own: a widget that shows nothing, with a field of each type of number.
constexpr Field kPlainFields[] = {
    {FieldType::Whole, "count"}, {FieldType::Number, "share"}, {FieldType::Flag, "loud"}};
std::string madeFrom;

GLWidget* MakePlain(const Creation& line) {
    std::ostringstream values;
    values << line.Whole("count") << ' ' << line.Number("share") << ' ' << line.Flag("loud");
    madeFrom = values.str();
    return new PlainWidget(line.tag, line.parent, line.position, line.theme);
}

constexpr Kind kPlain{
    .word = "Plainest", .type = "GLWidget", .fields = kPlainFields, .make = MakePlain};

class KindsTest : public WidgetTest {
protected:
    KindsTest() {
        for (const char* name : {"default", "combo_button", "tabwin_button"}) {
            directory.Write(std::string(name) + ".theme",
                            "1 1 1\n1 1 1\n1 1 1\n1 1 1\n1\n1\n1\n0.125\n0.1\n1\n0.04 0.05\n"
                            "0.7 1\n0 0 0\n0.1\nNULL\n1\n");
        }
    }

    /// Builds a layout. @return what it wrote
    static std::string Build(const std::string& layout) {
        std::istringstream file(layout);
        testing::internal::CaptureStderr();
        EXPECT_TRUE(GLWidget::StartGUI(file, "test.gui"));
        return testing::internal::GetCapturedStderr();
    }

    static std::string Line(const Kind& kind, const std::string& tag, const std::string& parent) {
        return "CADD " + std::string(kind.word) + " " + tag + " " + parent + " 0 0 "
               + SampleFields(kind) + "\n";
    }

    WorkingFolder directory;
};

using KindsDeathTest = KindsTest;

TEST_F(KindsTest, LayoutMakesAWidgetOfTheClassThatTheRowNames) {
    for (const Kind* kind : Kinds()) {
        Build(Line(*kind, "a", "NULL"));
        ASSERT_NE(GLWidget::GetByTag("a", false), nullptr) << NameOf(*kind);
        EXPECT_EQ(GLWidget::GetByTag("a")->GetType(), kind->type) << NameOf(*kind);
        GLWidget::tags.clear();
    }
}

TEST_F(KindsTest, KindIsFoundByItsWordItsFormAndItsClass) {
    for (const Kind* kind : Kinds()) {
        EXPECT_EQ(FindKind(kind->word, kind->form), kind) << NameOf(*kind);
        ASSERT_NE(KindOfType(kind->type), nullptr);
        EXPECT_EQ(KindOfType(kind->type)->word, kind->word);
    }
    EXPECT_EQ(FindKind("Gadget"), nullptr);
    EXPECT_EQ(FindKind("Butt", "Gadget"), nullptr);
    EXPECT_EQ(KindOfType("Gadget"), nullptr);
}

TEST_F(KindsTest, KindWithFormsHasACaptionToChooseOneBy) {
    for (const Kind* kind : Kinds()) {
        if (kind->form.empty())
            continue;
        const Kind* const first = FindKind(kind->word);
        ASSERT_NE(first, nullptr) << NameOf(*kind);
        ASSERT_EQ(first->fields.size(), 1U) << NameOf(*kind);
        EXPECT_EQ(first->fields.front().type, FieldType::Caption);
        EXPECT_EQ(first->type, kind->type);
    }
}

TEST_F(KindsTest, OnlyATextMayHoldBlanksAndItIsTheLastField) {
    for (const Kind* kind : Kinds()) {
        for (const Field& field : kind->fields) {
            if (field.type == FieldType::Text) {
                EXPECT_EQ(&field, &kind->fields.back()) << NameOf(*kind);
            }
        }
        if (kind->eitherOr) {
            EXPECT_EQ(kind->fields.size(), 2U) << NameOf(*kind);
        }
    }
}

TEST_F(KindsTest, ChildOfAKindThatHoldsNoneIsReported) {
    for (const Kind* kind : Kinds()) {
        const std::string report = Build(Line(*kind, "a", "NULL") + "CADD Label b a 0 0 B\n");
        const auto reported =
            HasSubstr("'a' is a " + std::string(kind->type) + " and does not show 'b'\n");
        if (kind->holdsChildren) {
            EXPECT_THAT(report, testing::Not(reported)) << NameOf(*kind);
        } else {
            EXPECT_THAT(report, reported) << NameOf(*kind);
        }
    }
}

TEST_F(KindsTest, TabOfAKindThatHasNoneIsReported) {
    for (const Kind* kind : Kinds()) {
        const std::string report = Build(Line(*kind, "a", "NULL") + "NTAB a 0 First\n");
        const auto reported =
            HasSubstr("'a' is a " + std::string(kind->type) + " and has no tabs\n");
        if (kind->hasTabs) {
            EXPECT_THAT(report, testing::Not(reported)) << NameOf(*kind);
            EXPECT_NE(GLWidget::GetByTag("__atab0First", false), nullptr);
        } else {
            EXPECT_THAT(report, reported) << NameOf(*kind);
        }
    }
}

TEST_F(KindsTest, RegisteredKindIsMadeFromALayout) {
    RegisterKind(kPlain);
    const std::string report = Build("CADD Plainest a NULL 0 0 -7 0.25 1 comment\n");
    EXPECT_THAT(report, HasSubstr("adding a 'Plainest' - a\n"));
    ASSERT_NE(GLWidget::GetByTag("a", false), nullptr);
    EXPECT_EQ(madeFrom, "-7 0.25 1");
    EXPECT_EQ(Kinds().back(), &kPlain);
    EXPECT_EQ(KindOfType("GLWidget"), &kPlain);
}

TEST_F(KindsTest, FieldsThatALineLacksAreZero) {
    RegisterKind(kPlain);
    Build("CADD Plainest a NULL 0 0 7 x 1\n");
    EXPECT_EQ(madeFrom, "7 0 0");
    Build("CADD Plainest a NULL 0 0 3");
    EXPECT_EQ(madeFrom, "3 0 0");
}

TEST_F(KindsTest, ResetForgetsRegisteredKinds) {
    const std::size_t own = Kinds().size();
    RegisterKind(kPlain);
    EXPECT_EQ(Kinds().size(), own + 1);
    Toolkit::Get().Reset();
    EXPECT_EQ(Kinds().size(), own);
    EXPECT_EQ(FindKind("Plainest"), nullptr);
}

TEST_F(KindsDeathTest, WordThatIsTakenFailsAnAssertion) {
    static constexpr Kind kSecondLabel{.word = "Label", .type = "GLWidget", .make = MakePlain};
    EXPECT_EXIT(RegisterKind(kSecondLabel), testing::ExitedWithCode(0),
                "Assert failed on glwidget/kinds");
}

TEST_F(KindsDeathTest, FieldThatTheKindDoesNotHaveFailsAnAssertion) {
    static constexpr Kind kWrong{
        .word = "Wrong", .type = "GLWidget", .make = [](const Creation& line) -> GLWidget* {
            line.Number("length");
            return nullptr;
        }};
    EXPECT_EXIT(
        {
            RegisterKind(kWrong);
            std::istringstream file("CADD Wrong a NULL 0 0\n");
            GLWidget::StartGUI(file, "test.gui");
        },
        testing::ExitedWithCode(0), "Assert failed on glwidget/kinds");
}

}  // namespace
