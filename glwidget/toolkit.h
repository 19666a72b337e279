// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "quarn2/font.h"
#include "quarn2/vector.h"

class GLWidget;
class Texture;
class Theme;
struct Kind;

/// Everything of which the toolkit has one per process. `GLWidget` gives the same objects under
/// its own names: `GLWidget::tags` is `Toolkit::Get().tags`.
struct Toolkit {
    using TagMap = std::map<std::string, GLWidget*, std::less<>>;
    using ThemeMap = std::map<std::string, Theme*, std::less<>>;

    /// The one toolkit. It is never destroyed, so that static destructors may still use it.
    static Toolkit& Get();

    /// Deletes all widgets and themes and brings every field but `parts` to the value that it
    /// has in a new process. An assertion fails during an event.
    void Reset();
    /// Reset for a program without a window: the viewport is 800 by 600 pixels, fonts are
    /// measured but not drawn, and every picture counts as loaded.
    void ResetWithoutWindow();

    TagMap tags;                       ///< every named widget, not owned
    std::list<GLWidget*> widgets;      ///< top level, in order of creation; not owned
    std::list<GLWidget*> living;       ///< all widgets that exist, in order of creation
    std::vector<GLWidget*> destroyed;  ///< during the event that is under way
    std::vector<GLWidget*> atTop;      ///< who gets the events under way, from `widgets`
    int dispatches = 0;                ///< nested operations that hand an event to children
    std::uint64_t changes = 0;         ///< of pictures, counted where they cannot be compared

    ThemeMap themes;                                ///< every named theme, not owned
    std::list<std::shared_ptr<Theme>> ownedThemes;  ///< also those that lost their name
    Theme* currentTheme = nullptr;                  ///< for a layout's widgets, not owned

    std::vector<const Kind*> kinds;  ///< those that the program has registered, not owned

    FontRender font;              ///< the one font; its size is set before each use
    std::uint32_t fontLoads = 0;  ///< counts them: what was measured before is out of date
    std::string formatText;       ///< a text that is being drawn, its "%" doubled

    std::int32_t viewport[4] = {};   ///< x, y, width, height in pixels
    std::uint32_t msgboxResult = 0;  ///< 0 none, 1 OK, 2 Cancel, 4 Yes, 8 No
    bool rendering = false;          ///< the widgets are being drawn
    float fadeRate = 0.005f;         ///< highlight and flash per millisecond
    static constexpr float kGuiScale = 1.3f;
    float guiScale = kGuiScale;  ///< half the screen's height in GUI units

    // Texture rectangles (s1, t1, s2, t2) of the GUI sheet.
    Vector optionRect;
    Vector optionMarkRect;
    Vector checkRect;
    Vector checkMarkRect;
    Vector sliderRect;

    // What differs between programs with and without a window.
    void (*readViewport)(std::int32_t (&viewport)[4]) = ReadViewportOfOpenGL;
    bool (*loadFont)(FontRender& font, const std::string& path) = LoadFontToDraw;
    bool (*loadImage)(Texture& image, const std::string& file) = LoadImageToDraw;

    static void ReadViewportOfOpenGL(std::int32_t (&viewport)[4]);
    static void ReadViewportWithoutWindow(std::int32_t (&viewport)[4]);  ///< 800 by 600 pixels
    static bool LoadFontToDraw(FontRender& font, const std::string& path);
    static bool LoadFontToMeasure(FontRender& font, const std::string& path);
    static bool LoadImageToDraw(Texture& image, const std::string& file);
    static bool LeaveImageOut(Texture& image, const std::string& file);

    /// What the base widget needs from sources that need the base widget themselves, and that it
    /// therefore does not include. composition.cpp sets them before main() begins.
    struct Parts {
        bool (*showMessageBox)(const std::string& message, int buttons) = nullptr;
        void (*completeMessageBox)() = nullptr;
        bool (*buildLayout)(std::istream& file, const std::string& path) = nullptr;
        void (*deleteWidgets)() = nullptr;
    };
    Parts parts;
};
