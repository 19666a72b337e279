// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "app/app.h"
#include "glwidget/glwidget.h"
#include "tests/support/temporary_folder.h"

/// The game without a window: a layout with every widget of the game, in a temporary folder without
/// other files, so that no theme, font or picture is loaded and no OpenGL function is called. The
/// world is the one of `kSeed`.
class GameTest : public ::testing::Test {
protected:
    static constexpr unsigned kSeed = 1358;

    void SetUp() override;
    void TearDown() override;

    /// What was written on standard error so far. Later lines are not captured.
    std::string Said();

    /// Writes a layout of all widgets but those with the tags in `leftOut`.
    static void WriteLayout(const char* path, std::initializer_list<std::string_view> leftOut = {});
    /// Starts the toolkit from such a layout.
    void StartLayout(std::initializer_list<std::string_view> leftOut = {});
    /// StartLayout, and the world of `seed`.
    void StartGame(unsigned seed = kSeed);

    GLWidget& Widget(std::string_view tag);
    std::string Text(std::string_view tag);
    /// Presses and releases the left button over the widget.
    void Click(std::string_view tag);
    void SetLevel(std::string_view slider, float level);
    Country& Player() { return app->GetWorld()->player; }

    Pointer<App> app;

private:
    bool listening = false;
    WorkingFolder folder;
};
