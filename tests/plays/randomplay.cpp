// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// randomplay FRAMES SEED plays the game in the current folder with random events of the mouse and
// the keyboard, and draws every frame twice: as the game does, and with all widgets. It prints how
// many pictures were kept and drawn, and ends with status 1 at the first that differs.

#include <SDL.h>

#include <algorithm>
#include <iostream>
#include <random>
#include <string>

#include "app/app.h"
#include "glwidget/glwidget.h"
#include "quarn2/memory.h"
#include "quarn2/trace.h"
#include "tests/plays/twicedrawn.h"
#include "tests/support/event_queue.h"

namespace {

class RandomGame : public App {
public:
    RandomGame(long frameCount, unsigned seed) : framesLeft(frameCount), random(seed) {}

    bool GotEvent(Event event) override {
        const bool result = App::GotEvent(event);
        if (event.type == LoadGraphicsResourcesEvent)
            twice.Join();
        if (event.type == RenderEvent) {
            twice.Compare();
            Act();
        }
        return result;
    }

    const TwiceDrawn& Pictures() const { return twice; }

private:
    int Roll(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }

    void Act() {
        if (--framesLeft <= 0) {
            EventQueue::Push(SDL_QUIT);
            return;
        }
        const int choice = Roll(100);
        if (rest > 0) {
            --rest;
        } else if (choice < 40) {
            Move();
        } else if (choice < 75) {
            if (!OverExit())
                Press(SDL_BUTTON_LEFT);
        } else if (choice < 80) {
            if (!OverExit())
                Press(Roll(2) == 0 ? SDL_BUTTON_MIDDLE : SDL_BUTTON_RIGHT);
        } else if (choice < 85) {
            Type();
        } else {
            rest = Roll(20);
        }
    }

    /// Nearby, so that a held knob or window is dragged, or anywhere.
    void Move() {
        if (Roll(2) == 0) {
            x = std::clamp(x + Roll(21) - 10, 0, kWidth - 1);
            y = std::clamp(y + Roll(21) - 10, 0, kHeight - 1);
        } else {
            x = Roll(kWidth);
            y = Roll(kHeight);
        }
        EventQueue::PushMotion(x, y);
    }

    void Press(int button) {
        bool& isDown = down[button];
        isDown = !isDown;
        EventQueue::PushButton(isDown, button, x, y);
    }

    void Type() {
        const int letter = 'a' + Roll(26);
        EventQueue::PushKey(true, letter, letter);
        EventQueue::PushKey(false, letter, letter);
    }

    /// A press there would end the game. The mouse is perhaps not there any more when the press is
    /// noticed, so there is some room around the button.
    bool OverExit() const { return x > kWidth - 100 && y < 60; }

    static constexpr int kWidth = 800;
    static constexpr int kHeight = 600;

    TwiceDrawn twice;
    long framesLeft;
    std::mt19937 random;
    int x = kWidth / 2;
    int y = kHeight / 2;
    int rest = 0;  // frames without an event
    bool down[4] = {};
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: randomplay FRAMES SEED\n";
        return 2;
    }
    trace::Start();
    auto* const game =
        new RandomGame(std::stol(argv[1]), static_cast<unsigned>(std::stoul(argv[2])));
    const Pointer<App> holder = game;
    game->Init();
    std::cout << "kept " << game->Pictures().Kept() << " drawn " << game->Pictures().Drawn()
              << '\n';
    return 0;
}
