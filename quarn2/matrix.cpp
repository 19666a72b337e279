// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/matrix.h"

#include <GL/gl.h>

#include "quarn2/trace.h"

Matrix::Matrix() {
    TraceFrame frame("Matrix", "Matrix");
    identity();
}

void Matrix::identity() {
    TraceFrame frame("identity", "Matrix");
    for (int i = 0; i < 16; ++i)
        elements[i] = i % 5 == 0 ? 1.0f : 0.0f;
}

Matrix Matrix::GetModelView() {
    TraceFrame frame("GetModelView", "Matrix");
    glGetFloatv(GL_MODELVIEW_MATRIX, elements);
    return *this;
}

Matrix Matrix::ApplyModelView() const {
    TraceFrame frame("ApplyModelView", "Matrix");
    glMultMatrixf(elements);
    return *this;
}
