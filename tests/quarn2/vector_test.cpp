// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/vector.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/trace_fixture.h"

namespace {

std::string Text(const Vector& v) {
    std::ostringstream stream;
    stream << v;
    return stream.str();
}

TEST(VectorTest, MissingComponentsAreZeroAndOne) {
    EXPECT_EQ(Text(Vector()), "(0, 0, 0, 1)");
    EXPECT_EQ(Text(Vector(1, 2)), "(1, 2, 0, 1)");
    EXPECT_EQ(Text(Vector(1, 2, 3)), "(1, 2, 3, 1)");
    EXPECT_EQ(Text(Vector(1, 2, 3, 4)), "(1, 2, 3, 4)");
}

TEST(VectorTest, IsPrintedWithTheNumberFormatOfTheStream) {
    EXPECT_EQ(Text(Vector(0.5f, -1.25f, 1e7f, 0.1234567f)), "(0.5, -1.25, 1e+07, 0.123457)");
    std::ostringstream stream;
    stream.precision(2);
    stream << Vector(1.2345f, 0) << '|';
    EXPECT_EQ(stream.str(), "(1.2, 0, 0, 1)|");
}

TEST(VectorTest, SumKeepsTheLeftOperandsW) {
    EXPECT_EQ(Text(Vector(1, 2, 3, 0.5f) + Vector(1, 1, 1, 1)), "(2, 3, 4, 0.5)");
}

TEST(VectorTest, DifferenceKeepsTheLeftOperandsW) {
    EXPECT_EQ(Text(Vector(1, 2, 3, 0.5f) - Vector(3, 2, 1, 1)), "(-2, 0, 2, 0.5)");
}

TEST(VectorTest, AdditionInPlaceKeepsWAndReturnsACopy) {
    Vector v(1, 2, 3, 0.5f);
    Vector copy = v += Vector(1, 1, 1, 1);
    EXPECT_EQ(Text(v), "(2, 3, 4, 0.5)");
    EXPECT_EQ(Text(copy), "(2, 3, 4, 0.5)");
    (v += Vector(1, 0)) += Vector(100, 0);  // the second sum goes into the copy
    EXPECT_EQ(Text(v), "(3, 3, 4, 0.5)");
}

TEST(VectorTest, AVectorMayBeAddedToItself) {
    Vector v(1, 2, 3, 0.5f);
    v += v;
    EXPECT_EQ(Text(v), "(2, 4, 6, 0.5)");
}

TEST(VectorTest, AssignmentOfFourComponentsReturnsACopy) {
    Vector v;
    Vector copy = v.Assign(1, 2, 3, 4);
    copy.x = 9;
    EXPECT_EQ(Text(v), "(1, 2, 3, 4)");
    EXPECT_EQ(Text(copy), "(9, 2, 3, 4)");
}

TEST(VectorTest, IsFourFloatsInOrder) {
    static_assert(sizeof(Vector) == 4 * sizeof(float));
    static_assert(offsetof(Vector, x) == 0);
    static_assert(offsetof(Vector, y) == 4);
    static_assert(offsetof(Vector, z) == 8);
    static_assert(offsetof(Vector, w) == 12);
}

/// A stream buffer that prints the trace as soon as something is written.
class Informer : public std::stringbuf {
protected:
    std::streamsize xsputn(const char*, std::streamsize count) override {
        Inform();
        return count;
    }
    int overflow(int character) override {
        Inform();
        return character;
    }

private:
    void Inform() {
        if (!informed)
            PrintStackTrace();
        informed = true;
    }
    bool informed = false;
};

class VectorTraceTest : public TracedTest {};

TEST_F(VectorTraceTest, PrintingIsTraced) {
    Informer informer;
    std::ostream stream(&informer);
    testing::internal::CaptureStderr();
    stream << Vector(1, 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "#1: Vector::operator<<\n");
}

}  // namespace
