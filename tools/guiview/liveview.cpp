// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/liveview.h"

#include <GL/gl.h>
#include <SDL.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <utility>

#include "glwidget/glwidget.h"
#include "glwidget/toolkit.h"
#include "quarn2/texture.h"
#include "quarn2/texturedata.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/overlay.h"
#include "tools/guiview/pictureshot.h"

namespace guiview {

namespace {

constexpr std::uint32_t kChannels = 0x17e;  // 1 to 6 and 8, as the game
constexpr std::uint32_t kPriority = 500;
constexpr std::size_t kEscape = 27;
constexpr std::size_t kOutlineKey = 'o';
constexpr std::size_t kInspectKey = 'i';
constexpr std::uint32_t kLookEveryMs = 150;
/// The processor may rest between two frames: nothing here is in a hurry.
constexpr std::uint32_t kRestMs = 15;

/// Whether a text box takes the letters that are typed.
bool IsTyping(const Scene& scene) {
    return std::ranges::any_of(scene.Nodes(), [](const Node* node) {
        return node->Is(&Kind::takesKeys) && node->widget->HasFocus();
    });
}

/// Reads the picture again although a texture of that name is known: the file may have changed.
bool LoadChangedImage(Texture& image, const std::string& file) {
    TextureData data;
    return data.Load(file) && image.Load(data, TextureDetails(file, 0));
}

/// Deletes all textures and display lists: everything that the last layout left in the window.
void ClearOpenGL() {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    for (; texture > 0; --texture)
        glDeleteTextures(1, &texture);
    glDeleteLists(1, static_cast<GLsizei>(glGenLists(1)));
}

}  // namespace

LiveView::LiveView(const Pointer<Kernel>& theKernel, Options theOptions)
    : EventCatcher(theKernel), options(std::move(theOptions)) {
    kernel->AddChild(Pointer<EventCatcher>(this), kChannels, kPriority);
    watch.Watch({options.layout}, {});
}

bool LiveView::GotEvent(Event event) {
    switch (event.type) {
    case LoadGraphicsResourcesEvent:
        opened = true;
        SDL_WM_SetCaption(("guiview: " + options.layout).c_str(), nullptr);
        Toolkit::Get().readViewport(GLWidget::viewport);
        Load();
        return true;
    case UpdateEvent:
        Update(event.time);
        return true;
    case RenderEvent:
        Render();
        return true;
    case MouseEvent:
        MoveMouse(static_cast<float>(event.x), static_cast<float>(event.y));
        GLWidget::MouseClickWidgets(event.left, event.middle, event.right);
        return true;
    case KeyEvent:
        if (event.keyboard.down[kEscape])
            return false;
        TakeKeys(event.keyboard);
        return true;
    default:
        return true;
    }
}

void LiveView::Load() {
    const auto start = std::filesystem::file_time_type::clock::now();
    auto layout = LayoutSource::Read(options.layout, options.texts);
    if (!layout)
        return;
    const bool isForGame = options.forGame || IsForGame(layout->Declared());
    const Checked checked = CheckLayout(*layout, isForGame, options.texts);
    watch.Watch(checked.files, start);
    const bool broken = checked.findings.HasErrors();
    std::cout << checked.findings.AsText() << options.layout
              << (broken ? ": broken, not shown" : ": shown") << std::endl;
    if (broken)
        return;
    shown = std::move(layout);
    withGameTexts = isForGame;
    Build();
}

void LiveView::Build() {
    Toolkit::Get().Reset();
    ClearOpenGL();
    Toolkit::Get().loadImage = LoadChangedImage;
    Toolkit::Get().readViewport(GLWidget::viewport);
    const FolderVisit visit(shown->Folder());
    shown->Build();
    if (withGameTexts)
        FillGameTexts();
    FillTexts(options.texts);
}

void LiveView::Update(std::uint32_t milliseconds) {
    GLWidget::UpdateWidgets(static_cast<int>(milliseconds));
    sinceLook += milliseconds;
    if (sinceLook >= kLookEveryMs) {
        sinceLook = 0;
        if (watch.Changed())
            Load();
    }
    if (inspecting)
        PrintWidgetUnderMouse();
    SDL_Delay(kRestMs);
}

void LiveView::Render() {
    DrawScreen();
    if (!shown || (!outlines && !inspecting))
        return;
    const Scene scene(shown->Declared());
    if (outlines)
        DrawOutlines(scene);
    if (!inspecting)
        return;
    if (const Node* const node = UnderMouse(scene))
        DrawNote(DescribeNode(*node), mouse->y);
}

void LiveView::MoveMouse(float x, float y) {
    const auto width = static_cast<float>(GLWidget::viewport[2]);
    const auto height = static_cast<float>(GLWidget::viewport[3]);
    mouse = Vector((2.0f * x / width - 1.0f) * GLWidget::HalfWidth(),
                   (1.0f - 2.0f * y / height) * GLWidget::guiScale);
    GLWidget::MouseMoveWidgets(Vector(x, y));
}

void LiveView::TakeKeys(const KeyboardEvent& keys) {
    const bool typing = shown && IsTyping(Scene(shown->Declared()));
    GLWidget::TextKeyPressWidgets(keys.pressed);
    if (typing)
        return;
    if (keys.pressed[kOutlineKey])
        outlines = !outlines;
    if (keys.pressed[kInspectKey]) {
        inspecting = !inspecting;
        inspected.clear();
    }
}

const Node* LiveView::UnderMouse(const Scene& scene) const {
    return mouse ? scene.At(mouse->x, mouse->y) : nullptr;
}

void LiveView::PrintWidgetUnderMouse() {
    if (!shown)
        return;
    const Scene scene(shown->Declared());
    const Node* const node = UnderMouse(scene);
    const std::string described = node == nullptr ? std::string() : DescribeNode(*node);
    if (described != inspected && !described.empty())
        std::cout << described << std::endl;
    inspected = described;
}

}  // namespace guiview
