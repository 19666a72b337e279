// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutformat.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tools/guiview/layoutfile.h"

namespace guiview {
namespace {

TEST(LayoutFormat, ColumnsOfAParagraphAreAligned) {
    EXPECT_EQ(FormatLayout("CADD Win people NULL -1.7 0.425 0 The people\n"
                           "CADD Label farmerslab people 0 12.5 Farmers: 100%\n"
                           "CADD   Butt\tfarmers-- people .5 -3 --\n"),
              "CADD Win   people     NULL   -1.7  0.425 0 The people\n"
              "CADD Label farmerslab people  0   12.5   Farmers: 100%\n"
              "CADD Butt  farmers--  people   .5 -3     --\n");
}

TEST(LayoutFormat, BlankLineBeginsNewColumns) {
    EXPECT_EQ(FormatLayout("CADD Label a NULL 0 0 A\n\nCADD Label longer NULL 0 0 B\n  \n"
                           "CADD TWin t NULL 1 1\n"),
              "CADD Label a NULL 0 0 A\n\nCADD Label longer NULL 0 0 B\n  \n"
              "CADD TWin t NULL 1 1\n");
}

TEST(LayoutFormat, CommentsAndOtherStatementsDoNotBeginNewColumns) {
    EXPECT_EQ(FormatLayout("CADD Label a NULL 0 0 A\n// a  comment\nTHEM default NULL\n"
                           "CADD Combo list NULL 0 0\n"),
              "CADD Label a    NULL 0 0 A\n// a  comment\nTHEM default NULL\n"
              "CADD Combo list NULL 0 0\n");
}

TEST(LayoutFormat, EachStatementHasItsOwnColumns) {
    EXPECT_EQ(FormatLayout("THEM a.theme NULL\nNTAB tables 0 One\nTHEM longer.theme NULL\n"
                           "NTAB t 10 Ten\nTEXT list A\nTEXT l B\n"),
              "THEM a.theme      NULL\nNTAB tables  0 One\nTHEM longer.theme NULL\n"
              "NTAB t      10 Ten\nTEXT list A\nTEXT l    B\n");
}

TEST(LayoutFormat, WidgetsOnTabsShareTheColumnsOfOtherWidgets) {
    EXPECT_EQ(
        FormatLayout("CADD TWin t NULL 0 0\nTADD 0 Label a t 0 0 A\nTADD 12 Label b t 0 0 B\n"),
        "CADD    TWin  t NULL 0 0\nTADD 0  Label a t    0 0 A\nTADD 12 Label b t    0 0 B\n");
}

TEST(LayoutFormat, IndentationIsNotChanged) {
    EXPECT_EQ(FormatLayout("CADD Win w NULL 0 0 0 W\n  CADD Label a w 0 0 A\n"),
              "CADD   Win   w NULL 0 0 0 W\n  CADD Label a w    0 0 A\n");
}

TEST(LayoutFormat, BlanksInTextsAreNotChanged) {
    EXPECT_EQ(FormatLayout("CADD Label a  NULL 0 0   two  blanks  \nTEXT a   b  c \n"),
              "CADD Label a NULL 0 0 two  blanks  \nTEXT a b  c \n");
}

TEST(LayoutFormat, BlanksAfterAStatementAreNotChanged) {
    EXPECT_EQ(FormatLayout("CONF  gui.conf    // the font\nCADD Slide a NULL  0 0 1 0   track\n"),
              "CONF gui.conf    // the font\nCADD Slide a NULL 0 0 1 0   track\n");
}

TEST(LayoutFormat, LinesWithErrorsAreNotChanged) {
    EXPECT_EQ(
        FormatLayout("CADD  Label a NULL zero 0 A\nCADD  Fancy b NULL 0 0\nFOO  bar\nCADD  Win\n"),
        "CADD  Label a NULL zero 0 A\nCADD  Fancy b NULL 0 0\nFOO  bar\nCADD  Win\n");
}

TEST(LayoutFormat, LineEndsAreNotChanged) {
    EXPECT_EQ(FormatLayout("CADD  Label a NULL 0 0 A\r\nSOLID\r\nTHEM  default NULL"),
              "CADD Label a NULL 0 0 A\r\nSOLID\r\nTHEM default NULL");
    EXPECT_EQ(FormatLayout("CADD  Check a NULL 0 0\r\n"), "CADD Check a NULL 0 0\r\n");
    EXPECT_EQ(FormatLayout(""), "");
    EXPECT_EQ(FormatLayout("\n"), "\n");
}

TEST(LayoutFormat, FormattingAgainChangesNothing) {
    std::ifstream file("data/my.gui.debug");
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(content.empty());
    const std::string formatted = FormatLayout(content);
    EXPECT_EQ(FormatLayout(formatted), formatted);
}

TEST(LayoutFormat, OnlyBlanksBetweenFieldsChange) {
    std::ifstream file("data/my.gui.debug");
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    Findings findings;
    const LayoutFile before = ParseLayout("a", content, findings);
    const LayoutFile after = ParseLayout("a", FormatLayout(content), findings);
    ASSERT_EQ(before.statements.size(), after.statements.size());
    for (std::size_t i = 0; i < before.statements.size(); ++i) {
        const Statement& was = before.statements[i];
        const Statement& is = after.statements[i];
        EXPECT_EQ(is.word.text, was.word.text);
        ASSERT_EQ(is.fields.size(), was.fields.size()) << before.lines[i];
        for (std::size_t field = 0; field < was.fields.size(); ++field)
            EXPECT_EQ(is.fields[field].word.text, was.fields[field].word.text) << before.lines[i];
        EXPECT_EQ(after.lines[i].substr(is.end), before.lines[i].substr(was.end));
    }
}

TEST(LayoutFormat, LinesThatWouldChangeAreReported) {
    EXPECT_EQ(
        CheckFormat("a.gui", "CADD Label a NULL 0 0 A\nSOLID\nCADD Win w NULL 0 0 0 W\n").AsText(),
        "a.gui:3:1: warning: the columns are not aligned: guiview --format aligns them\n");
    EXPECT_EQ(CheckFormat("a.gui", "CADD Label a NULL 0 0 A\n").AsText(), "");
}

}  // namespace
}  // namespace guiview
