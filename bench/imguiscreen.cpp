// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "bench/imguiscreen.h"

#include <GL/gl.h>
#include <backends/imgui_impl_opengl2.h>

#include <algorithm>
#include <bit>
#include <cfloat>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "app/tags.h"
#include "glwidget/button.h"
#include "glwidget/chart.h"
#include "glwidget/combobox.h"
#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/label.h"
#include "glwidget/slider.h"
#include "glwidget/tabwindow.h"
#include "tools/guiview/scene.h"

namespace {

constexpr float kFrameSeconds = 1.0f / 60.0f;
constexpr float kMeasuredSize = 64.0f;  ///< pixels
constexpr float kTrackOpacity = 0.5f;   ///< of a slider
constexpr float kTabPadding = 4.0f;     ///< pixels
constexpr ImGuiWindowFlags kScreenFlags =
    ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoBackground | ImGuiWindowFlags_NoMove
    | ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_NoBringToFrontOnFocus;
constexpr ImGuiWindowFlags kChildFlags =
    ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_NoScrollWithMouse;

ImVec2 WindowSize() {
    return {static_cast<float>(GLWidget::viewport[2]), static_cast<float>(GLWidget::viewport[3])};
}

float PixelsPerUnit() {
    return WindowSize().y / (2.0f * GLWidget::guiScale);
}

ImVec2 ToPixels(float x, float y) {
    return {(x + GLWidget::HalfWidth()) * PixelsPerUnit(),
            (GLWidget::guiScale - y) * PixelsPerUnit()};
}

ImVec4 Colour(const Vector& colour, float opacity = 1.0f) {
    return {colour.x, colour.y, colour.z, opacity};
}

/// Whether the game asks the button for clicks. The others are only pictures.
bool IsRead(const GLWidget& button) {
    const std::string& name = button.GetName();
    return name == tag::kWeek || name == tag::kPreviousPage || name.ends_with("--")
           || name.ends_with("++");
}

bool IsButtonOfTab(const guiview::Node& node) {
    const auto* const window = dynamic_cast<TabWindow*>(node.widget->GetParent());
    return window != nullptr
           && std::ranges::any_of(window->GetTabs(), [&](const TabWindow::Tab& tab) {
                  return tab.button.get() == node.widget;
              });
}

int OpenTab(const TabWindow& window) {
    const auto open =
        std::ranges::find(window.GetTabs(), window.GetChildren(), &TabWindow::Tab::widgets);
    return static_cast<int>(open - window.GetTabs().begin());
}

void PrintText(std::string_view text) {
    ImGui::TextUnformatted(text.data(), text.data() + text.size());
}

/// Makes the next widgets as high as that, if a line of text leaves room.
void PushPaddingTo(float height) {
    const float padding = std::max(0.0f, (height - ImGui::GetTextLineHeight()) / 2.0f);
    ImGui::PushStyleVar(ImGuiStyleVar_FramePadding, {padding, padding});
}

}  // namespace

ImGuiScreen::ImGuiScreen(const std::string& file, Pictures drawn)
    : fontFile(file), pictures(drawn), context(ImGui::CreateContext()) {
    ImGui::SetCurrentContext(context);
    ImGui::StyleColorsLight();
    ImGui::GetIO().IniFilename = nullptr;
    ImGui::GetIO().DisplaySize = WindowSize();
    ImGui::GetIO().DeltaTime = kFrameSeconds;
    ImGui_ImplOpenGL2_Init();

    ImFontAtlas atlas;
    const ImFont* const font = atlas.AddFontFromFileTTF(fontFile.c_str(), kMeasuredSize);
    atlas.Build();
    constexpr std::string_view kSample = "abcdefghijklmnopqrstuvwxyz";
    float ems = 0.0f;
    for (const char character : kSample)
        ems += GLWidget::font.Advance(character);
    const float width = font->CalcTextSizeA(kMeasuredSize, FLT_MAX, 0.0f, kSample.data(),
                                            kSample.data() + kSample.size())
                            .x;
    sizePerEm = kMeasuredSize * ems / width;

    const guiview::Declarations none;
    const guiview::Scene scene(none);
    AddChildren(scene, nullptr, elements);
}

ImGuiScreen::~ImGuiScreen() {
    ImGui::SetCurrentContext(context);
    ImGui_ImplOpenGL2_Shutdown();
    ImGui::DestroyContext(context);
}

ImFont* ImGuiScreen::FontOf(const Theme& theme) {
    ImFont*& font = fonts[theme.fontSize.x];
    if (font == nullptr) {
        font = ImGui::GetIO().Fonts->AddFontFromFileTTF(
            fontFile.c_str(), theme.fontSize.x * PixelsPerUnit() * sizePerEm);
    }
    return font;
}

void ImGuiScreen::AddChildren(const guiview::Scene& scene, const guiview::Node* parent,
                              std::vector<Element>& list) {
    for (const guiview::Node* node : scene.Nodes()) {
        if (node->parent != parent || !node->shown || IsButtonOfTab(*node))
            continue;
        Element& element = list.emplace_back(MakeElement(*node));
        // Dear ImGui draws the parts of other widgets itself.
        if (element.draw == DrawFrame || element.draw == DrawWindow
            || element.draw == DrawTabWindow)
            AddChildren(scene, node, element.children);
    }
}

ImGuiScreen::Element ImGuiScreen::MakeElement(const guiview::Node& node) {
    GLWidget& widget = *node.widget;
    const Theme& theme = widget.GetTheme();
    const Vector own = widget.Getbbox();
    const Vector offset(node.box.left - own.x, node.box.bottom - own.y);
    guiview::Box box = node.box;
    Element element;
    element.widget = &widget;
    element.font = FontOf(theme);
    if (dynamic_cast<Button*>(&widget) != nullptr) {
        // It is a pointer or, in newer versions of Dear ImGui, an integer of the same size.
        element.picture = std::bit_cast<ImTextureID>(std::uintptr_t{theme.image.GetName()});
        element.draw = DrawOfButton(widget);
    } else if (dynamic_cast<Label*>(&widget) != nullptr) {
        element.draw = DrawLabel;
        box.left += theme.fontSize.x / 2.0f;
        // The lowest line is at the lower edge.
        box.top = box.bottom + theme.fontSize.y * FontRender::kLineStep;
    } else if (auto* const slider = dynamic_cast<Slider*>(&widget)) {
        element.draw = DrawSlider;
        box = guiview::BoxOf(slider->DrawnBox(), offset);
    } else if (dynamic_cast<Combobox*>(&widget) != nullptr) {
        element.draw = DrawCombobox;
    } else if (dynamic_cast<Chart*>(&widget) != nullptr) {
        element.draw = DrawChart;
        ReadChart(element, offset);
    } else if (auto* const window = dynamic_cast<TabWindow*>(&widget)) {
        element.draw = DrawTabWindow;
        element.openTab = OpenTab(*window);
    } else if (dynamic_cast<GLWindow*>(&widget) != nullptr) {
        element.draw = DrawWindow;
    } else if (dynamic_cast<Frame*>(&widget) != nullptr) {
        element.draw = DrawFrame;
    } else {
        std::cerr << "screen with Dear ImGui: cannot draw a " << widget.GetType() << '\n';
        std::abort();
    }
    element.place = ToPixels(box.left, box.top);
    element.size = {box.Width() * PixelsPerUnit(), box.Height() * PixelsPerUnit()};
    return element;
}

ImGuiScreen::Draw ImGuiScreen::DrawOfButton(GLWidget& button) const {
    if (!button.GetText().empty())
        return DrawButton;
    switch (pictures) {
    case Pictures::Draw:
        return button.GetTheme().image.GetName() != 0 ? DrawPicture : DrawArea;
    case Pictures::Areas: {
        const Vector box = button.Getbbox();
        const bool isGround = box.z - box.x >= 2.0f * GLWidget::HalfWidth();
        return isGround ? DrawNothing : DrawArea;
    }
    case Pictures::LeaveOut:
        return IsRead(button) ? DrawButton : DrawNothing;
    }
    return nullptr;
}

/// Reads it as a player does: the mouse goes over all weeks.
void ImGuiScreen::ReadChart(Element& element, const Vector& offset) {
    const auto& chart = static_cast<Chart&>(*element.widget);
    const Vector box = chart.PlotBox();
    const float middle = (box.y + box.w) / 2.0f;
    const ImVec2 left = ToPixels(box.x + offset.x, middle + offset.y);
    const ImVec2 right = ToPixels(box.z + offset.x, middle + offset.y);
    std::int32_t latest = -1;
    for (int pixel = 0; pixel < static_cast<int>(right.x - left.x); ++pixel) {
        GLWidget::MouseMoveWidgets(Vector(left.x + static_cast<float>(pixel), left.y));
        if (chart.Hovered() < 0 || chart.Hovered() == latest)
            continue;
        latest = chart.Hovered();
        element.readings.assign(1, std::string(chart.ReadingOf(0)));
        for (std::size_t index = 0; !chart.ReadingOf(index + 1).empty(); ++index) {
            element.readings.emplace_back(chart.ReadingOf(index + 1));
            std::string number = element.readings.back();  // such as "People 1,234"
            number.erase(0, number.find(' '));
            std::erase(number, ',');
            if (index == element.values.size())
                element.values.emplace_back();
            element.values[index].push_back(std::strtof(number.c_str(), nullptr));
        }
    }
    GLWidget::MouseMoveWidgets(Vector(0.0f, 0.0f));
    for (const std::vector<float>& values : element.values) {
        const auto [lowest, highest] = std::ranges::minmax(values);
        element.lowest = std::min(element.lowest, lowest);
        element.highest = std::max(element.highest, highest);
    }
}

void ImGuiScreen::Render() {
    ImGui::SetCurrentContext(context);
    ImGui_ImplOpenGL2_NewFrame();
    ImGui::NewFrame();
    ImGui::SetNextWindowPos({0.0f, 0.0f});
    ImGui::SetNextWindowSize(WindowSize());
    ImGui::Begin("screen", nullptr, kScreenFlags);
    DrawAll(elements);
    ImGui::End();
    ImGui::Render();
    glPushAttrib(GL_COLOR_BUFFER_BIT);
    const Vector& ground = GLWidget::themes.find("default")->second->fillColour;
    glClearColor(ground.x, ground.y, ground.z, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glPopAttrib();
    ImGui_ImplOpenGL2_RenderDrawData(ImGui::GetDrawData());
}

void ImGuiScreen::DrawAll(std::vector<Element>& list) {
    for (Element& element : list) {
        const Theme& theme = element.widget->GetTheme();
        ImGui::PushID(element.widget);
        ImGui::PushFont(element.font);
        ImGui::PushStyleColor(ImGuiCol_Text, Colour(theme.textColour));
        ImGui::PushStyleColor(ImGuiCol_Border, Colour(theme.lineColour, theme.opacity));
        ImGui::SetCursorScreenPos(element.place);
        element.draw(element);
        ImGui::PopStyleColor(2);
        ImGui::PopFont();
        ImGui::PopID();
    }
}

void ImGuiScreen::DrawNothing(Element&) {}

void ImGuiScreen::DrawButton(Element& element) {
    const Theme& theme = element.widget->GetTheme();
    ImGui::PushStyleColor(ImGuiCol_Button, Colour(theme.fillColour));
    ImGui::PushStyleVar(ImGuiStyleVar_FrameBorderSize, 1.0f);
    ImGui::PushStyleVar(ImGuiStyleVar_FramePadding, ImVec2());
    ImGui::Button(element.widget->GetText().c_str(), element.size);
    ImGui::PopStyleVar(2);
    ImGui::PopStyleColor();
}

void ImGuiScreen::DrawArea(Element& element) {
    const Theme& theme = element.widget->GetTheme();
    const ImVec2 end{element.place.x + element.size.x, element.place.y + element.size.y};
    ImDrawList& list = *ImGui::GetWindowDrawList();
    ImGui::InvisibleButton("area", element.size);
    list.AddRectFilled(element.place, end, ImGui::GetColorU32(Colour(theme.fillColour)));
    list.AddRect(element.place, end, ImGui::GetColorU32(ImGuiCol_Border));
}

void ImGuiScreen::DrawPicture(Element& element) {
    const Theme& theme = element.widget->GetTheme();
    const ImVec2 end{element.place.x + element.size.x, element.place.y + element.size.y};
    ImDrawList& list = *ImGui::GetWindowDrawList();
    ImGui::InvisibleButton("picture", element.size);
    // The first row of a picture of the game is the lowest.
    list.AddImage(element.picture, element.place, end, {0.0f, 1.0f}, {1.0f, 0.0f},
                  ImGui::GetColorU32(Colour(theme.fillColour)));
    list.AddRect(element.place, end, ImGui::GetColorU32(ImGuiCol_Border));
}

void ImGuiScreen::DrawLabel(Element& element) {
    // Dear ImGui's lines are further apart than the game's, and many labels have no room for that.
    std::string_view rest = static_cast<Label*>(element.widget)->Wrapped();
    const float lowest = element.place.y + element.size.y - ImGui::GetTextLineHeight();
    for (auto above = std::ranges::count(rest, '\n'); above >= 0; --above) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        if (line.empty())
            continue;
        ImGui::SetCursorScreenPos(
            {element.place.x, lowest - static_cast<float>(above) * element.size.y});
        PrintText(line);
    }
}

void ImGuiScreen::DrawSlider(Element& element) {
    PushPaddingTo(element.size.y);
    ImGui::PushStyleVar(ImGuiStyleVar_GrabMinSize, element.size.y);
    const Theme& theme = element.widget->GetTheme();
    ImGui::PushStyleColor(ImGuiCol_FrameBg, Colour(theme.fillColour, kTrackOpacity));
    ImGui::SetNextItemWidth(element.size.x);
    element.level = element.widget->GetLevel();  // the mouse may have moved the slider
    ImGui::SliderFloat("##slider", &element.level, 0.0f, 1.0f, "");
    ImGui::PopStyleColor();
    ImGui::PopStyleVar(2);
}

void ImGuiScreen::DrawCombobox(Element& element) {
    ImGui::SetNextItemWidth(element.size.x);
    PushPaddingTo(element.size.y);
    const bool open = ImGui::BeginCombo("##combobox", element.widget->GetCurrentText().c_str());
    ImGui::PopStyleVar();
    if (!open)
        return;
    for (const std::string& text : element.widget->GetTexts())
        ImGui::Selectable(text.c_str());
    ImGui::EndCombo();
}

void ImGuiScreen::DrawChart(Element& element) {
    const auto& chart = static_cast<Chart&>(*element.widget);
    const auto plot = [&](const char* name, const std::vector<float>& values, const char* caption) {
        ImGui::SetCursorScreenPos(element.place);
        ImGui::PlotLines(name, values.data(), static_cast<int>(values.size()), 0, caption,
                         element.lowest, element.highest, element.size);
    };
    ImGui::PushStyleColor(ImGuiCol_FrameBg, Colour(chart.GetTheme().fillColour));
    plot("##ground", {}, chart.GetText().c_str());
    ImGui::PopStyleColor();
    ImGui::PushStyleColor(ImGuiCol_FrameBg, ImVec4());
    for (std::size_t index = 0; index < element.values.size(); ++index) {
        ImGui::PushID(static_cast<int>(index));
        ImGui::PushStyleColor(ImGuiCol_PlotLines, Colour(chart.SeriesTheme(index).lineColour));
        plot("##series", element.values[index], nullptr);
        ImGui::PopStyleColor();
        ImGui::PopID();
    }
    ImGui::PopStyleColor();
    ImVec2 place = element.place;
    for (const std::string& reading : element.readings) {
        place.y += ImGui::GetTextLineHeight();
        ImGui::SetCursorScreenPos(place);
        PrintText(reading);
    }
}

void ImGuiScreen::DrawFrame(Element& element) {
    DrawAll(element.children);
}

void ImGuiScreen::DrawWindow(Element& element) {
    const Theme& theme = element.widget->GetTheme();
    ImGui::PushStyleColor(ImGuiCol_ChildBg, Colour(theme.fillColour, theme.opacity));
    if (ImGui::BeginChild("window", element.size, true, kChildFlags)) {
        ImGui::SetCursorScreenPos(element.place);
        PrintText(element.widget->GetText());
        DrawAll(element.children);
    }
    ImGui::EndChild();
    ImGui::PopStyleColor();
}

void ImGuiScreen::DrawTabWindow(Element& element) {
    const Theme& theme = element.widget->GetTheme();
    ImGui::PushStyleColor(ImGuiCol_ChildBg, Colour(theme.fillColour, theme.opacity));
    ImGui::PushStyleVar(ImGuiStyleVar_FramePadding, {kTabPadding, 0.0f});
    if (ImGui::BeginChild("tabs", element.size, true, kChildFlags) && ImGui::BeginTabBar("bar")) {
        int number = 0;
        for (const TabWindow::Tab& tab : static_cast<TabWindow*>(element.widget)->GetTabs()) {
            const bool open = number++ == element.openTab;
            const ImGuiTabItemFlags flags = open ? ImGuiTabItemFlags_SetSelected : 0;
            if (!ImGui::BeginTabItem(tab.name.c_str(), nullptr, flags))
                continue;
            if (open)
                DrawAll(element.children);
            ImGui::EndTabItem();
        }
        ImGui::EndTabBar();
    }
    ImGui::EndChild();
    ImGui::PopStyleVar();
    ImGui::PopStyleColor();
}
