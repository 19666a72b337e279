// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// Sixteen floats in OpenGL's column-major order: the model-view transformation, to keep and
/// apply again. A plain value; the two operations on it need a current OpenGL context.
class Matrix {
public:
    /// The identity.
    Matrix();

    /// Makes this the identity; OpenGL's matrices stay.
    void identity();
    /// Takes OpenGL's current model-view matrix and returns a copy.
    Matrix GetModelView();
    /// Multiplies OpenGL's current matrix by this one and returns a copy.
    Matrix ApplyModelView() const;

    /// Column by column.
    float elements[16];
};
