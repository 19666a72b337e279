// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/strings.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

namespace {

/// Writes the content into a file and reads it with ReadFile.
std::string ReadBack(const std::string& content) {
    const std::string name = testing::TempDir() + "strings_test."
                             + testing::UnitTest::GetInstance()->current_test_info()->name();
    std::ofstream(name, std::ios::binary) << content;
    std::string text = ReadFile(name);
    std::remove(name.c_str());
    return text;
}

TEST(ReadFileTest, MissingFileGivesTheEmptyTextWithoutAMessage) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(ReadFile("/nowhere/at/all"), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ReadFileTest, EmptyFileGivesTheEmptyText) {
    EXPECT_EQ(ReadBack(""), "");
}

TEST(ReadFileTest, FolderGivesTheEmptyText) {
    EXPECT_EQ(ReadFile("/"), "");
}

TEST(ReadFileTest, FinalLineBreakIsKept) {
    EXPECT_EQ(ReadBack("a\nb\n"), "a\nb\n");
}

TEST(ReadFileTest, MissingFinalLineBreakIsNotAdded) {
    EXPECT_EQ(ReadBack("a\nb"), "a\nb");
}

TEST(ReadFileTest, EmptyLinesAreKept) {
    EXPECT_EQ(ReadBack("\n"), "\n");
    EXPECT_EQ(ReadBack("\n\na\n\n"), "\n\na\n\n");
}

TEST(ReadFileTest, BytesAreKept) {
    const std::string bytes(
        "\0\xff\r\n\t\x1a"
        "end",
        9);
    EXPECT_EQ(ReadBack(bytes), bytes);
}

TEST(SubstrCountTest, CountsEveryOccurrence) {
    EXPECT_EQ(substr_count("abcabc", "bc"), 2U);
    EXPECT_EQ(substr_count("abcabc", "x"), 0U);
    EXPECT_EQ(substr_count("", "x"), 0U);
    EXPECT_EQ(substr_count("x", "longer"), 0U);
    EXPECT_EQ(substr_count("same", "same"), 1U);
}

TEST(SubstrCountTest, OccurrencesDoNotOverlap) {
    EXPECT_EQ(substr_count("aaa", "aa"), 1U);
    EXPECT_EQ(substr_count("aaaa", "aa"), 2U);
}

TEST(SubstrCountTest, EmptyNeedleIsNotCounted) {
    EXPECT_EQ(substr_count("aaa", ""), 0U);
    EXPECT_EQ(substr_count("", ""), 0U);
}

TEST(StrReplaceTest, ReplacesEveryOccurrence) {
    EXPECT_EQ(str_replace("++NAME1++", "Anna", "++NAME1++ met ++NAME1++."), "Anna met Anna.");
}

TEST(StrReplaceTest, ReplacementIsNotSearchedAgain) {
    EXPECT_EQ(str_replace("a", "aa", "banana"), "baanaanaa");
    EXPECT_EQ(str_replace("ab", "b", "aab"), "ab");
}

TEST(StrReplaceTest, SearchContinuesAfterTheOccurrence) {
    EXPECT_EQ(str_replace("aa", "b", "aaaaa"), "bba");
}

TEST(StrReplaceTest, EmptyReplacementRemoves) {
    EXPECT_EQ(str_replace("na", "", "banana"), "ba");
    EXPECT_EQ(str_replace("banana", "", "banana"), "");
}

TEST(StrReplaceTest, TextWithoutTheNeedleIsUnchanged) {
    EXPECT_EQ(str_replace("x", "y", "banana"), "banana");
    EXPECT_EQ(str_replace("x", "y", ""), "");
}

TEST(StrReplaceTest, EmptyNeedleChangesNothing) {
    EXPECT_EQ(str_replace("", "y", "banana"), "banana");
}

}  // namespace
