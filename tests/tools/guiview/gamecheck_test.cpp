// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/gamecheck.h"

#include <gmock/gmock.h>

#include "app/tags.h"
#include "tests/tools/guiview/layout_test.h"

namespace guiview {
namespace {

using testing::HasSubstr;
using testing::Not;

class GameCheckTest : public LayoutTest {
protected:
    /// Whether a layout that consists of these lines lacks a widget of that tag.
    bool Lacks(const std::string& layout, const std::string& tag) const {
        return Found(kFirstLines + layout, true).find("the tag '" + tag + "'") != std::string::npos;
    }
};

TEST_F(GameCheckTest, MissingTagIsAnErrorInTheFirstLine) {
    EXPECT_THAT(Found("", true), HasSubstr("test.gui:1:1: error: the game needs a Butt with the "
                                           "tag 'exitbut'\n"));
    EXPECT_THAT(Found("", true), HasSubstr("test.gui:1:1: error: the game needs a Slide with the "
                                           "tag 'farmers'\n"));
    EXPECT_THAT(Found("", true), HasSubstr("test.gui:1:1: error: the game needs a Combo with the "
                                           "tag 'countrysel'\n"));
    EXPECT_THAT(Found("", true), HasSubstr("test.gui:1:1: error: the game needs a Label with the "
                                           "tag 'funds'\n"));
    EXPECT_THAT(Found("", true), HasSubstr("test.gui:1:1: error: the game needs a Win with the "
                                           "tag 'newspaper'\n"));
}

TEST_F(GameCheckTest, WithoutTheGameNoTagIsRequired) {
    EXPECT_EQ(Found("", false), "");
}

TEST_F(GameCheckTest, EveryTagOfTheGameThatIsNotOptionalIsRequired) {
    const std::string found = Found("", true);
    for (const tag::Widget& widget : tag::kWidgets) {
        const std::string finding = "with the tag '" + std::string(widget.tag) + "'\n";
        if (widget.optional)
            EXPECT_THAT(found, Not(HasSubstr(finding)));
        else
            EXPECT_THAT(found, HasSubstr(finding));
    }
}

TEST_F(GameCheckTest, WidgetWithTheTagIsFound) {
    EXPECT_TRUE(Lacks("CADD Label date2 NULL -1 1 A\n", "date"));
    EXPECT_FALSE(Lacks("CADD Label date NULL -1 1 A\n", "date"));
}

TEST_F(GameCheckTest, WidgetOfTheWrongKindIsAnError) {
    EXPECT_THAT(
        Found("CONF gui.conf\nCADD Label exitbut NULL -1 1 Exit\n", true),
        HasSubstr("test.gui:2:6: error: 'exitbut' is a Label, and the game needs a Butt\n"));
    EXPECT_THAT(
        Found("CONF gui.conf\nCADD TWin newspaper NULL -1 1\n", true),
        HasSubstr("test.gui:2:6: error: 'newspaper' is a TWin, and the game needs a Win\n"));
}

TEST_F(GameCheckTest, OptionalWidgetOfTheWrongKindIsAnError) {
    EXPECT_THAT(Found("CONF gui.conf\nCADD Label justiceslide NULL -1 1 Justice\n", true),
                HasSubstr("test.gui:2:6: error: 'justiceslide' is a Label, and the game needs a "
                          "Slide\n"));
}

TEST_F(GameCheckTest, SimilarTagThatTheGameDoesNotKnowIsNamed) {
    EXPECT_THAT(Found("CONF gui.conf\nCADD Butt exitbutt NULL -1 1 Exit\n", true),
                HasSubstr("test.gui:2:11: error: the game needs a Butt with the tag 'exitbut'; is "
                          "'exitbutt' it?\n"));
}

TEST_F(GameCheckTest, WidgetWhoseLineHasAnErrorIsNotMissing) {
    const std::string found = Found("CONF gui.conf\nCADD Butt exitbut NULL left 1 Exit\n", true);
    EXPECT_THAT(found, HasSubstr("'left' is not a number for x"));
    EXPECT_THAT(found, Not(HasSubstr("'exitbut'")));
}

TEST_F(GameCheckTest, LayoutWithHalfOfTheTagsIsOneForTheGame) {
    std::vector<std::string_view> needed;
    for (const tag::Widget& widget : tag::kWidgets) {
        if (!widget.optional)
            needed.push_back(widget.tag);
    }
    const auto isForGame = [&](std::size_t count) {
        std::string layout;
        for (std::size_t i = 0; i < count; ++i)
            layout += "CADD Frame " + std::string(needed[i]) + " NULL 0 0 0\n";
        Findings findings;
        return IsForGame(FollowStatements(ParseLayout("a.gui", layout, findings), findings));
    };
    EXPECT_FALSE(isForGame(0));
    EXPECT_FALSE(isForGame((needed.size() - 1) / 2));
    EXPECT_TRUE(isForGame((needed.size() + 1) / 2));
    EXPECT_TRUE(isForGame(needed.size()));
}

TEST_F(GameCheckTest, LabelsAreCheckedWithTheLongestTextsOfTheGame) {
    EXPECT_THAT(Found("CONF gui.conf\nCADD Label funds NULL -1 1 Funds\n", true),
                HasSubstr("test.gui:2:12: warning: the text of 'funds' takes "));
    EXPECT_THAT(Found("CONF gui.conf\nCADD Label funds NULL -1.7 1 Government funds: -1.88888e+06 "
                      "doubloons\n",
                      true),
                Not(HasSubstr("'funds'")));
    EXPECT_THAT(Found("CONF gui.conf\nCADD Label popinfo NULL -1 0.5 Population Statistics:  "
                      "\\n\\n\n",
                      true),
                HasSubstr("test.gui:2:12: warning: the text of 'popinfo' takes 8 lines; the widget "
                          "has room for 3\n"));
}

TEST_F(GameCheckTest, ListOfPartnersIsCheckedWithTheLongestNames) {
    EXPECT_THAT(
        Found("CONF gui.conf\nCADD Win w NULL -1.5 -1 0 Window\nCADD Combo countrysel w 0 1\n",
              true),
        HasSubstr("test.gui:3:12: warning: 'countrysel' is outside of 'w', "));
}

TEST_F(GameCheckTest, ButtonThatTheGameDoesNotReadMayBeAtTheCentre) {
    EXPECT_THAT(Found("CONF gui.conf\nCADD Butt other NULL 0 0 A\n", true),
                Not(HasSubstr("'other'")));
    EXPECT_THAT(Found("CONF gui.conf\nCADD Butt update NULL 0 0 A\n", true),
                HasSubstr("'update' is at the centre of the screen"));
}

TEST_F(GameCheckTest, LongestTextsAreTheSameEachTime) {
    Toolkit::Get().ResetWithoutWindow();
    ASSERT_TRUE(GLWidget::font.Measure("data/font.ttf"));
    EXPECT_EQ(LongestGameTexts(), LongestGameTexts());
}

}  // namespace
}  // namespace guiview
