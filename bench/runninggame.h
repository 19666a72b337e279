// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <cstdlib>

#include "app/app.h"
#include "glwidget/glwidget.h"
#include "quarn2/event.h"
#include "quarn2/trace.h"
#include "tests/support/gl_window.h"

/// The game after its first frame, in a window and without its main loop. Run the program in the
/// folder data. Make one only, because widgets live as long as the process.
class RunningGame {
public:
    static constexpr std::uint32_t kFrameMs = 16;

    RunningGame() {
        trace::Start();
        std::srand(1358);
        GLWidget::StartGUI("my.gui.debug");
        app->CreateWorld();
        SendUpdate(kFrameMs);
    }

    void SendKeys() { app->GotEvent(keys); }

    /// @param x, y  window pixels from the top left
    void SendMouse(int x, int y) {
        mouse.x = x;
        mouse.y = y;
        app->GotEvent(mouse);
    }

    /// The clock of the country goes on by that time.
    void SendUpdate(std::uint32_t milliseconds) {
        update.time = milliseconds;
        app->GotEvent(update);
    }

    void Render() { app->Render(true); }

    World& GetWorld() { return *static_cast<App*>(app)->GetWorld(); }

private:
    GLWindowForTests window;
    Pointer<App> app{new App};
    Event keys{KeyEvent};
    Event mouse{MouseEvent};
    Event update{UpdateEvent};
};
