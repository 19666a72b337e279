// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/matrix.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "tests/support/gl_fixture.h"
#include "tests/support/trace_fixture.h"
#include "tests/support/traced_gl.h"

namespace {

using testing::ElementsAre;
using Elements = std::array<float, 16>;

constexpr Elements kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

Elements Of(const Matrix& matrix) {
    Elements elements;
    std::copy(std::begin(matrix.elements), std::end(matrix.elements), elements.begin());
    return elements;
}

Elements ModelView() {
    Elements elements;
    glGetFloatv(GL_MODELVIEW_MATRIX, elements.data());
    return elements;
}

TEST(MatrixWithoutGLTest, ANewMatrixIsTheIdentity) {
    EXPECT_EQ(Of(Matrix()), kIdentity);
}

TEST(MatrixWithoutGLTest, IdentityReplacesEveryElement) {
    Matrix matrix;
    std::fill(std::begin(matrix.elements), std::end(matrix.elements), 7.0f);
    matrix.identity();
    EXPECT_EQ(Of(matrix), kIdentity);
}

TEST(MatrixWithoutGLTest, IsSixteenFloats) {
    static_assert(sizeof(Matrix) == 16 * sizeof(float));
}

class MatrixTest : public GLTest {};

TEST_F(MatrixTest, TheModelViewAfterLoadingTheIdentityIsTheIdentity) {
    Matrix matrix;
    std::fill(std::begin(matrix.elements), std::end(matrix.elements), 7.0f);
    const Matrix copy = matrix.GetModelView();
    EXPECT_EQ(Of(matrix), kIdentity);
    EXPECT_EQ(Of(copy), kIdentity);
}

TEST_F(MatrixTest, TheModelViewIsReadInColumns) {
    glTranslatef(2, 3, 4);
    glScalef(5, 6, 7);
    Matrix matrix;
    matrix.GetModelView();
    EXPECT_EQ(Of(matrix), (Elements{5, 0, 0, 0, 0, 6, 0, 0, 0, 0, 7, 0, 2, 3, 4, 1}));
}

TEST_F(MatrixTest, TheModelViewIsReadInEveryMatrixMode) {
    glTranslatef(2, 3, 4);
    glMatrixMode(GL_PROJECTION);
    Matrix matrix;
    matrix.GetModelView();
    EXPECT_EQ(matrix.elements[12], 2.0f);
}

TEST_F(MatrixTest, ApplyingTheIdentityChangesNothing) {
    glTranslatef(2, 3, 4);
    glRotatef(30, 0, 0, 1);
    const Elements before = ModelView();
    const Matrix copy = Matrix().ApplyModelView();
    EXPECT_EQ(ModelView(), before);
    EXPECT_EQ(Of(copy), kIdentity);
}

TEST_F(MatrixTest, ASavedModelViewIsMultipliedFromTheRight) {
    glScalef(2, 2, 2);
    Matrix saved;
    saved.GetModelView();
    glLoadIdentity();
    glTranslatef(10, 20, 0);
    const Matrix copy = saved.ApplyModelView();
    EXPECT_EQ(ModelView(), (Elements{2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 10, 20, 0, 1}));
    EXPECT_EQ(Of(copy), Of(saved));
}

TEST_F(MatrixTest, TheCurrentMatrixIsMultipliedInEveryMatrixMode) {
    Matrix matrix;
    matrix.elements[12] = 0.5f;
    glMatrixMode(GL_PROJECTION);
    matrix.ApplyModelView();
    Elements projection;
    glGetFloatv(GL_PROJECTION_MATRIX, projection.data());
    EXPECT_EQ(projection[12], 0.5f);
    EXPECT_EQ(ModelView(), kIdentity);
}

class MatrixTraceTest : public GLTest, public TraceSwitch {};

TEST_F(MatrixTraceTest, OperationsOnOpenGLAreTraced) {
    const Matrix matrix = Matrix().GetModelView();
    EXPECT_THAT(CallsOfGetFloat(), ElementsAre("Matrix::GetModelView"));
    matrix.ApplyModelView();
    EXPECT_THAT(CallsOfMultMatrix(), ElementsAre("Matrix::ApplyModelView"));
    EXPECT_TRUE(trace::Frames().empty());
}

}  // namespace
