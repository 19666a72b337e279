// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <imgui.h>

#include <map>
#include <string>
#include <vector>

#include "glwidget/glwidget.h"

namespace guiview {
class Scene;
struct Node;
}  // namespace guiview

/// The screen of the game as a program with Dear ImGui would draw it. Kinds, places, sizes, fonts
/// and colours are those of the game's widgets at the time when it is made. Texts and levels are
/// read from the widgets in each frame. It needs a current OpenGL context, draws with OpenGL 1 and
/// leaves OpenGL's state as it was.
class ImGuiScreen {
public:
    enum class Pictures {
        Draw,
        /// Areas of one colour in their place; the ground is only cleared.
        Areas,
        /// Plain buttons in place of those that the game reads, nothing in place of the others.
        LeaveOut
    };

    /// @param file  the game's font
    ImGuiScreen(const std::string& file, Pictures drawn);
    ~ImGuiScreen();
    ImGuiScreen(const ImGuiScreen&) = delete;
    ImGuiScreen& operator=(const ImGuiScreen&) = delete;

    /// Clears the window and draws the screen.
    void Render();

private:
    struct Element;
    using Draw = void (*)(Element& element);

    /// A widget that is on the screen. Lengths are pixels; places are from the top left.
    struct Element {
        Draw draw = nullptr;
        GLWidget* widget = nullptr;  ///< not owned
        ImVec2 place;                ///< upper left corner
        ImVec2 size;
        ImFont* font = nullptr;  ///< not owned
        ImTextureID picture{};   ///< of a button
        float level = 0.0f;      ///< of a slider
        int openTab = 0;         ///< of a window with tabs
        /// Of a chart: the latest week and, one per series, its value there.
        std::vector<std::string> readings;
        std::vector<std::vector<float>> values;  ///< of a chart, one list per series
        float lowest = 0.0f;                     ///< of all values
        float highest = 0.0f;                    ///< of all values
        std::vector<Element> children;
    };

    /// Adds what is shown of a widget's children, or of the top level.
    void AddChildren(const guiview::Scene& scene, const guiview::Node* parent,
                     std::vector<Element>& list);
    Element MakeElement(const guiview::Node& node);
    Draw DrawOfButton(GLWidget& button) const;
    static void ReadChart(Element& element, const Vector& offset);
    ImFont* FontOf(const Theme& theme);

    static void DrawAll(std::vector<Element>& list);
    static void DrawNothing(Element& element);
    static void DrawButton(Element& element);
    static void DrawArea(Element& element);
    static void DrawPicture(Element& element);
    static void DrawLabel(Element& element);
    static void DrawSlider(Element& element);
    static void DrawCombobox(Element& element);
    static void DrawChart(Element& element);
    static void DrawFrame(Element& element);
    static void DrawWindow(Element& element);
    static void DrawTabWindow(Element& element);

    std::string fontFile;
    Pictures pictures;
    ImGuiContext* context;           // owned
    float sizePerEm = 0.0f;          // of Dear ImGui's fonts, by which it means ascent to descent
    std::map<float, ImFont*> fonts;  // by glyph width in GUI units; not owned
    std::vector<Element> elements;
};
