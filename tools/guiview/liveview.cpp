// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/liveview.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "glwidget/glwidget.h"
#include "tools/guiview/childprocess.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/overlay.h"
#include "tools/guiview/pictureshot.h"
#include "tools/guiview/scene.h"
#include "tools/guiview/status.h"

namespace guiview {

namespace {

constexpr std::uint32_t kChannels = 0x17e;  // 1 to 6 and 8, as the game
constexpr std::uint32_t kPriority = 500;
constexpr std::size_t kEscape = 27;
constexpr char kOutlineKey = 'o';
constexpr char kInspectKey = 'i';
/// The environment variable that holds the keys of what is switched on.
constexpr const char* kSwitchedOn = "GUIVIEW_KEYS";
constexpr std::uint32_t kLookEveryMs = 150;
/// Nothing here is in a hurry: the processor may rest between two frames.
constexpr std::uint32_t kRestMs = 15;

/// The type of a text box holds whatever letters are struck.
bool IsTyping(const Scene& scene) {
    return std::ranges::any_of(scene.Nodes(), [](const Node* node) {
        return node->IsKind(Kind::Text) && node->widget->HasFocus();
    });
}

}  // namespace

LiveView::LiveView(const Pointer<Kernel>& theKernel, Options theOptions)
    : EventCatcher(nullptr),
      kernel(theKernel),
      options(std::move(theOptions)),
      watch(options.layout) {
    if (const char* const before = std::getenv(kSwitchedOn)) {
        outlines = std::strchr(before, kOutlineKey) != nullptr;
        inspecting = std::strchr(before, kInspectKey) != nullptr;
    }
    kernel->AddChild(Pointer<EventCatcher>(this), kChannels, kPriority);
}

bool LiveView::GotEvent(Event event) {
    switch (event.type) {
    case LoadGraphicsResourcesEvent:
        Open();
        return true;
    case UpdateEvent:
        if (Update(event.time))
            return true;
        kernel->SendEvent(Pointer<EventCatcher>(this), Event(QuitEvent));
        return false;
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

void LiveView::Open() {
    opened = true;
    SDL_WM_SetCaption(("guiview: " + options.layout).c_str(), nullptr);
    Toolkit::Get().readViewport(GLWidget::viewport);
    if (!CheckFiles(Report::Always))
        return;  // nothing to show yet; the next change may bring it
    shown = LayoutSource::Read(options.layout);
    if (!shown)
        return;
    const FolderVisit visit(shown->Folder());
    shown->Build();
    if (options.forGame)
        FillGameTexts();
    FillTexts(options.texts);
}

bool LiveView::Update(std::uint32_t milliseconds) {
    GLWidget::UpdateWidgets(static_cast<int>(milliseconds));
    sinceLook += milliseconds;
    if (sinceLook >= kLookEveryMs) {
        sinceLook = 0;
        startAnew = watch.Changed() && CheckFiles(Report::WhenBroken);
        if (startAnew)
            RememberKeys();
    }
    if (inspecting)
        PrintWidgetUnderMouse();
    SDL_Delay(kRestMs);
    return !startAnew;
}

void LiveView::RememberKeys() const {
    std::string keys;
    if (outlines)
        keys += kOutlineKey;
    if (inspecting)
        keys += kInspectKey;
    setenv(kSwitchedOn, keys.c_str(), 1);
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

bool LiveView::CheckFiles(Report report) const {
    std::vector<std::string> arguments{"/proc/self/exe", "--check", "--json"};
    if (options.forGame)
        arguments.emplace_back("--game");
    for (const auto& [tag, text] : options.texts)
        arguments.push_back(std::string("--text=").append(tag).append("=").append(text));
    arguments.push_back(options.layout);
    ChildProcess check(arguments, false);
    const auto list = nlohmann::json::parse(check.ReadAll(), nullptr, false);
    const auto status = check.Wait();
    if (!status || *status == kUnusable || !list.is_array())
        return false;
    const bool broken = std::ranges::any_of(
        list, [](const auto& finding) { return finding.value("severity", "") == "error"; });
    if (report == Report::Always || broken) {
        for (const auto& finding : list) {
            std::cout << finding.value("file", "") << ':' << finding.value("line", 1) << ':'
                      << finding.value("column", 1) << ": " << finding.value("severity", "") << ": "
                      << finding.value("message", "") << '\n';
        }
        std::cout << options.layout << (broken ? ": broken, not shown" : ": shown") << std::endl;
    }
    return !broken;
}

}  // namespace guiview
