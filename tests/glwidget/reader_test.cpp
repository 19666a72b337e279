// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/reader.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

class ReaderTest : public testing::Test {
protected:
    void Open(const std::string& content) {
        file.str(content);
        file.clear();
    }
    std::string Word() {
        std::string word = "unchanged";
        static_cast<void>(reader.Word(word));
        return word;
    }

    std::istringstream file;
    GuiReader reader{file};
};

TEST_F(ReaderTest, WordsAreSeparatedByWhiteSpaceOfAnyKind) {
    Open("one two\tthree\n\n four\r\n");
    EXPECT_EQ(Word(), "one");
    EXPECT_EQ(Word(), "two");
    EXPECT_EQ(Word(), "three");
    EXPECT_EQ(Word(), "four");
    EXPECT_EQ(Word(), "unchanged");
}

TEST_F(ReaderTest, EmptyFileHasNoWord) {
    Open("");
    std::string word = "before";
    EXPECT_FALSE(reader.Word(word));
    EXPECT_EQ(word, "before");
}

TEST_F(ReaderTest, NumbersAndFlagsAreRead) {
    Open("-1.5 42 1 0");
    float number = 0.0f;
    int count = 0;
    bool first = false;
    bool second = true;
    reader.Read(number);
    reader.Read(count);
    reader.Read(first);
    reader.Read(second);
    EXPECT_EQ(number, -1.5f);
    EXPECT_EQ(count, 42);
    EXPECT_TRUE(first);
    EXPECT_FALSE(second);
}

TEST_F(ReaderTest, MalformedNumberAndAllAfterItOnTheLineStayAsTheyWere) {
    Open("abc 2 3\n4");
    float first = 7.0f;
    float second = 8.0f;
    std::string word = "before";
    reader.Read(first);
    reader.Read(second);
    EXPECT_FALSE(reader.Word(word));
    EXPECT_EQ(reader.Rest(), "");
    EXPECT_EQ(first, 7.0f);
    EXPECT_EQ(second, 8.0f);
    EXPECT_EQ(word, "before");
    reader.EndLine();
    reader.Read(first);
    EXPECT_EQ(first, 4.0f);
}

TEST_F(ReaderTest, NumbersOutsideTheFormatOrTheTypeFail) {
    for (const char* text : {"nan", "inf", "-inf", "1e999", "+", "", "//"}) {
        Open(text);
        float number = 7.0f;
        reader.Read(number);
        EXPECT_EQ(number, 7.0f) << text;
    }
    for (const char* text : {"2147483648", "-2147483649", "x"}) {
        Open(text);
        int number = 7;
        reader.Read(number);
        EXPECT_EQ(number, 7) << text;
    }
    for (const char* text : {"2", "-1", "true"}) {
        Open(text);
        bool flag = false;
        reader.Read(flag);
        EXPECT_FALSE(flag) << text;
    }
}

TEST_F(ReaderTest, VectorKeepsTheComponentsThatAreMissing) {
    Open("0.25 0.5 x\n1 2 3 4");
    Vector value(9.0f, 9.0f, 9.0f, 9.0f);
    reader.ReadThree(value);
    reader.EndLine();
    EXPECT_EQ(value.x, 0.25f);
    EXPECT_EQ(value.y, 0.5f);
    EXPECT_EQ(value.z, 9.0f);
    EXPECT_EQ(value.w, 9.0f);
    reader.ReadFour(value);
    EXPECT_EQ(value.z, 3.0f);
    EXPECT_EQ(value.w, 4.0f);
}

TEST_F(ReaderTest, RestIsTheLineWithoutTheBlanksBeforeIt) {
    Open("NTAB \t  two words \nnext");
    EXPECT_EQ(Word(), "NTAB");
    EXPECT_EQ(reader.Rest(), "two words ");
    reader.EndLine();
    EXPECT_EQ(Word(), "next");
}

TEST_F(ReaderTest, EmptyRestIsEmptyAndLeavesTheNextLine) {
    for (const char* text : {"tag\nnext", "tag \t \nnext", "tag\r\nnext"}) {
        Open(text);
        EXPECT_EQ(Word(), "tag");
        EXPECT_EQ(reader.Rest(), "");
        reader.EndLine();
        EXPECT_EQ(Word(), "next");
    }
}

TEST_F(ReaderTest, RestOfALineHasNoCarriageReturnAtItsEnd) {
    Open("tag title\r\nnext");
    EXPECT_EQ(Word(), "tag");
    EXPECT_EQ(reader.Rest(), "title");
}

TEST_F(ReaderTest, RestEndsWithTheFile) {
    Open("tag last");
    EXPECT_EQ(Word(), "tag");
    EXPECT_EQ(reader.Rest(), "last");
    reader.EndLine();
    EXPECT_EQ(reader.Rest(), "");
    EXPECT_EQ(Word(), "unchanged");
}

TEST_F(ReaderTest, RestIsCutAtItsLimitAndTheOtherCharactersAreSkipped) {
    Open("tag " + std::string(511, 'x') + "surplus\nnext");
    EXPECT_EQ(Word(), "tag");
    EXPECT_EQ(reader.Rest(), std::string(511, 'x'));
    reader.EndLine();
    EXPECT_EQ(Word(), "next");
}

TEST_F(ReaderTest, ZeroByteEndsTheRest) {
    Open(std::string("tag ab\0cd\nnext", 14));
    EXPECT_EQ(Word(), "tag");
    EXPECT_EQ(reader.Rest(), "ab");
    reader.EndLine();
    EXPECT_EQ(Word(), "next");
}

TEST_F(ReaderTest, EndLineSkipsAtMostTenThousandCharacters) {
    Open("a " + std::string(9998, 'x') + "\nb " + std::string(9999, 'y') + "z\nc");
    EXPECT_EQ(Word(), "a");
    reader.EndLine();
    EXPECT_EQ(Word(), "b");
    reader.EndLine();
    EXPECT_EQ(Word(), "z");
    reader.EndLine();
    EXPECT_EQ(Word(), "c");
}

TEST_F(ReaderTest, WholeCommentLinesAreSkipped) {
    Open("// one\n\n  //two\n3 // rest\n/4\n//");
    float number = 0.0f;
    reader.SkipComments();
    reader.Read(number);
    EXPECT_EQ(number, 3.0f);
    reader.EndLine();
    reader.SkipComments();
    EXPECT_EQ(Word(), "/4");
    reader.SkipComments();
    EXPECT_EQ(Word(), "unchanged");
    reader.SkipComments();
}

TEST_F(ReaderTest, SingleSlashAtTheEndIsAWord) {
    Open("/");
    reader.SkipComments();
    EXPECT_EQ(Word(), "/");
}

}  // namespace
