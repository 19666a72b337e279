// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <ctime>

#include "app/app.h"
#include "quarn2/memory.h"
#include "quarn2/trace.h"

int main() {
    trace::Start();
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    TraceFrame frame("main", "");
    {
        const Pointer<App> app = new App;
        app->Init();
    }
    MMObject::CollectGarbage();
    MMObject::CollectAll();
    return 0;
}
