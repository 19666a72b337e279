// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/extensionloader.h"

#include <GL/glew.h>

#include <iostream>

#include "quarn2/trace.h"

bool InitExtensionLoader() {
    TraceFrame frame("InitExtensionLoader", "");
    const GLenum result = glewInit();
    // GLEW has loaded the functions of a context without GLX when it returns this error.
    if (result == GLEW_OK || result == GLEW_ERROR_NO_GLX_DISPLAY)
        return true;
    std::cerr << "error initialising GLee\n";
    return false;
}
