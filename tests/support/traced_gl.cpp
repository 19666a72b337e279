// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/traced_gl.h"

#include <GL/gl.h>

#include "tests/support/trace_noter.h"

std::vector<std::string>& CallsOfGetFloat() {
    static std::vector<std::string> calls;
    return calls;
}

std::vector<std::string>& CallsOfMultMatrix() {
    static std::vector<std::string> calls;
    return calls;
}

// The linker's --wrap sends a call of F to __wrap_F and one of __real_F to the library.
extern "C" {
void RealGetFloat(GLenum name, GLfloat* values) asm("__real_glGetFloatv");
void WrappedGetFloat(GLenum name, GLfloat* values) asm("__wrap_glGetFloatv");
void WrappedGetFloat(GLenum name, GLfloat* values) {
    if (trace::tracing)
        CallsOfGetFloat() = CurrentCalls();
    RealGetFloat(name, values);
}

void RealMultMatrix(const GLfloat* matrix) asm("__real_glMultMatrixf");
void WrappedMultMatrix(const GLfloat* matrix) asm("__wrap_glMultMatrixf");
void WrappedMultMatrix(const GLfloat* matrix) {
    if (trace::tracing)
        CallsOfMultMatrix() = CurrentCalls();
    RealMultMatrix(matrix);
}
}
