// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// What guiview does with every kind of the toolkit's table, without naming one.

#include "glwidget/kinds.h"

#include <gmock/gmock.h>

#include "tests/support/kind_samples.h"
#include "tests/tools/guiview/layout_test.h"
#include "tools/guiview/layoutformat.h"

namespace guiview {
namespace {

using testing::HasSubstr;
using testing::Not;

class EveryKindTest : public LayoutTest {
protected:
    /// A widget of the kind on the screen.
    static std::string Line(const Kind& kind, const std::string& fields) {
        return "CADD " + std::string(kind.word) + " a NULL -1 0.5 " + fields + "\n";
    }
    /// What is found in a layout with one widget of the kind.
    std::string FoundIn(const Kind& kind, const std::string& fields) const {
        return FoundWithFont(Line(kind, fields));
    }
};

TEST_F(EveryKindTest, WidgetWithValidFieldsIsClean) {
    for (const Kind* kind : Kinds())
        EXPECT_EQ(FoundIn(*kind, SampleFields(*kind)), "") << NameOf(*kind);
}

TEST_F(EveryKindTest, NumberBeyondItsRangeIsAnErrorAtTheNumber) {
    int checked = 0;
    for (const Kind* kind : Kinds()) {
        for (const Field& field : kind->fields) {
            if (!field.IsNumber() || field.Range().empty())
                continue;
            std::string fields(kind->form);
            for (const Field& each : kind->fields) {
                const bool wrong = &each == &field;
                fields += " "
                          + (wrong ? std::to_string(
                                 field.lowest < 0.0f ? static_cast<int>(field.lowest) - 1 : -1)
                                   : SampleValue(each));
            }
            EXPECT_THAT(FoundIn(*kind, fields),
                        HasSubstr("' is out of range for " + std::string(field.name) + ": "
                                  + field.Range() + "\n"))
                << NameOf(*kind);
            ++checked;
        }
    }
    EXPECT_GE(checked, 6);
}

TEST_F(EveryKindTest, MissingFieldIsAnError) {
    for (const Kind* kind : Kinds()) {
        if (kind->fields.empty() || kind->fields.front().type == FieldType::Text)
            continue;  // a text may be empty
        EXPECT_THAT(FoundIn(*kind, std::string(kind->form)),
                    HasSubstr("error: missing " + std::string(kind->fields.front().name) + "\n"))
            << NameOf(*kind);
    }
}

TEST_F(EveryKindTest, KindThatShowsTextNeedsAConfigurationBeforeIt) {
    for (const Kind* kind : Kinds()) {
        const std::string found = Found(Line(*kind, SampleFields(*kind)));
        const auto needed = HasSubstr("'a' shows text, but there is no CONF, which loads the font");
        if (kind->text == TextGround::None) {
            EXPECT_THAT(found, Not(needed)) << NameOf(*kind);
        } else {
            EXPECT_THAT(found, needed) << NameOf(*kind);
        }
    }
}

TEST_F(EveryKindTest, OnlyAKindThatHoldsChildrenMayBeAParent) {
    for (const Kind* kind : Kinds()) {
        const std::string found =
            FoundIn(*kind, SampleFields(*kind) + "\nCADD Label child a 0 0 A");
        const auto refused = HasSubstr(" is a " + std::string(kind->word) + ", not a ");
        if (kind->holdsChildren) {
            EXPECT_THAT(found, Not(refused)) << NameOf(*kind);
        } else {
            EXPECT_THAT(found, refused) << NameOf(*kind);
        }
    }
}

TEST_F(EveryKindTest, TextAsDarkAsItsGroundIsAWarning) {
    folder.Write("default.theme", Theme("0 0 0", "0 0 0"));
    for (const Kind* kind : Kinds()) {
        const std::string found =
            FoundIn(*kind, SampleFields(*kind) + "\nTEXT NULL\nCADD Win w NULL 0 0 0");
        const auto warned = HasSubstr("of 'a' has a contrast of 1.00:1");
        const bool ownGround = kind->text == TextGround::Fill || kind->text == TextGround::Title;
        if (ownGround) {
            EXPECT_THAT(found, warned) << NameOf(*kind);
        } else {
            EXPECT_THAT(found, Not(warned)) << NameOf(*kind);
        }
    }
}

TEST_F(EveryKindTest, ColumnsOfALineWithIrregularBlanksAreAligned) {
    for (const Kind* kind : Kinds()) {
        const std::string word(kind->word);
        const std::string fields = SampleFields(*kind);
        const std::string end = fields.empty() ? "\n" : " " + fields + "\n";
        EXPECT_EQ(FormatLayout("CADD   " + word + "  a   NULL 0    0  " + end),
                  "CADD " + word + " a NULL 0 0" + (fields.empty() ? "  \n" : end))
            << NameOf(*kind);
    }
}

TEST_F(EveryKindTest, MissingPictureOfTheBuiltInThemeMattersToKindsThatDrawIt) {
    std::filesystem::remove(folder.Path("default.theme"));
    for (const Kind* kind : Kinds()) {
        const auto reported = HasSubstr("the picture 'gui.tga' cannot be loaded");
        const std::string found = FoundIn(*kind, SampleFields(*kind));
        if (kind->draws.Has(ThemeLine::Picture)) {
            EXPECT_THAT(found, reported) << NameOf(*kind);
        } else {
            EXPECT_THAT(found, Not(reported)) << NameOf(*kind);
        }
    }
}

}  // namespace
}  // namespace guiview
