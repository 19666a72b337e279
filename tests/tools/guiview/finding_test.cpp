// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/finding.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace guiview {
namespace {

TEST(FindingList, IsPrintedOnePerLineWithFileLineAndColumn) {
    Findings findings;
    findings.Error("a.gui", {3, 14}, "not so");
    findings.Warn("b.theme", {1, 1}, "better not");
    EXPECT_EQ(findings.AsText(),
              "a.gui:3:14: error: not so\n"
              "b.theme:1:1: warning: better not\n");
}

TEST(FindingList, IsSortedByWeightThenFileThenPlace) {
    Findings findings;
    findings.Warn("a.gui", {1, 1}, "fifth");
    findings.Error("b.theme", {1, 1}, "fourth");
    findings.Error("a.theme", {9, 1}, "third");
    findings.Error("b.gui", {4, 2}, "second");
    findings.Error("b.gui", {4, 1}, "first");
    findings.Sort("b.gui");
    std::string order;
    for (const Finding& finding : findings.List())
        order += finding.message + ' ';
    EXPECT_EQ(order, "first second third fourth fifth ");
}

TEST(FindingList, IsPrintedAsAJsonArray) {
    Findings findings;
    findings.Error("a.gui", {3, 14}, "the tag 'a\"b' is taken");
    findings.Warn("b.theme", {1, 1}, "better not");
    const auto list = nlohmann::json::parse(findings.AsJson());
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0]["file"], "a.gui");
    EXPECT_EQ(list[0]["line"], 3);
    EXPECT_EQ(list[0]["column"], 14);
    EXPECT_EQ(list[0]["severity"], "error");
    EXPECT_EQ(list[0]["message"], "the tag 'a\"b' is taken");
    EXPECT_EQ(list[1]["severity"], "warning");
}

TEST(FindingList, WithoutFindingsIsAnEmptyJsonArray) {
    EXPECT_EQ(nlohmann::json::parse(Findings().AsJson()), nlohmann::json::array());
}

TEST(FindingList, BytesThatAreNotUtf8StillGiveValidJson) {
    Findings findings;
    findings.Error("\xFF", {1, 1}, "\xE9\xC3");
    EXPECT_EQ(nlohmann::json::parse(findings.AsJson()).size(), 1U);
}

TEST(FindingList, IsSortedByFileLineAndColumn) {
    Findings findings;
    findings.Warn("b", {1, 1}, "fourth");
    findings.Warn("layout", {2, 5}, "second");
    findings.Warn("a", {9, 9}, "third");
    findings.Warn("layout", {2, 1}, "first");
    findings.Warn("b", {1, 1}, "fifth");
    findings.Sort("layout");
    EXPECT_EQ(findings.AsText(),
              "layout:2:1: warning: first\nlayout:2:5: warning: second\na:9:9: warning: third\n"
              "b:1:1: warning: fourth\nb:1:1: warning: fifth\n");
}

TEST(FindingList, SaysWhetherThereAreErrors) {
    Findings findings;
    EXPECT_FALSE(findings.HasErrors());
    findings.Warn("a", {1, 1}, "a");
    EXPECT_FALSE(findings.HasErrors());
    findings.Error("a", {1, 1}, "a");
    EXPECT_TRUE(findings.HasErrors());
}

}  // namespace
}  // namespace guiview
