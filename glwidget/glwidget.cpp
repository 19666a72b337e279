// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/glwidget.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <sstream>
#include <typeinfo>
#include <utility>

#include "glwidget/configuration.h"
#include "glwidget/reader.h"
#include "glwidget/uncovered.h"
#include "quarn2/trace.h"

namespace {

/// A position beyond this, far outside the screen, means the edge of the screen on that side.
constexpr float kEdgeThreshold = 90.0f;

/// Never destroyed, because references to it are given out.
const std::string& kNoText = *new std::string;

/// Pixels; for less, drawing the ground in one more piece costs more than the covered part.
constexpr int kWorthCovering = 64 * 64;

/// The pixels that lie within a box of GUI units with a margin of up to a pixel; none if the box
/// has NaN in it.
PixelBox PixelsWithin(const Vector& box) {
    const std::int32_t(&viewport)[4] = GLWidget::viewport;
    const auto width = static_cast<float>(viewport[2]);
    const auto height = static_cast<float>(viewport[3]);
    const float scale = GLWidget::PixelsPerUnit();
    // In this order of the arguments, NaN stays NaN.
    const float left = std::max(std::ceil((box.x + GLWidget::HalfWidth()) * scale), 0.0f);
    const float bottom = std::max(std::ceil((box.y + GLWidget::guiScale) * scale), 0.0f);
    const float right = std::min(std::floor((box.z + GLWidget::HalfWidth()) * scale), width);
    const float top = std::min(std::floor((box.w + GLWidget::guiScale) * scale), height);
    if (!(left < right && bottom < top))
        return {};
    return {static_cast<int>(left), static_cast<int>(bottom), static_cast<int>(right),
            static_cast<int>(top)};
}

bool IsLarge(const PixelBox& box) {
    return (box.right - box.left) * (box.top - box.bottom) >= kWorthCovering;
}

bool ModelViewIsIdentity() {
    GLfloat values[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, values);
    for (int i = 0; i < 16; ++i) {
        if (values[i] != (i % 5 == 0 ? 1.0f : 0.0f))
            return false;
    }
    return true;
}

void ReportStart(const std::string& path) {
    std::cerr << "Starting GUI from " << path << '\n';
}

/// The newest widget of that name that is not destroyed, or null.
GLWidget* NewestNamed(const std::string& name) {
    const std::list<GLWidget*>& living = Toolkit::Get().living;
    const auto newest = std::find_if(living.rbegin(), living.rend(), [&](GLWidget* widget) {
        return widget->GetName() == name && !widget->IsDestroyed();
    });
    return newest != living.rend() ? *newest : nullptr;
}

}  // namespace

GLWidget::TagMap& GLWidget::tags = Toolkit::Get().tags;
GLWidget::ThemeMap& GLWidget::themes = Toolkit::Get().themes;
std::list<GLWidget*>& GLWidget::widgets = Toolkit::Get().widgets;
FontRender& GLWidget::font = Toolkit::Get().font;
std::uint32_t& GLWidget::fontLoads = Toolkit::Get().fontLoads;
std::int32_t (&GLWidget::viewport)[4] = Toolkit::Get().viewport;
std::uint32_t& GLWidget::msgboxResult = Toolkit::Get().msgboxResult;
bool& GLWidget::rendering = Toolkit::Get().rendering;
float& GLWidget::fadeRate = Toolkit::Get().fadeRate;
float& GLWidget::guiScale = Toolkit::Get().guiScale;
Theme*& GLWidget::currentTheme = Toolkit::Get().currentTheme;
Vector& GLWidget::optionRect = Toolkit::Get().optionRect;
Vector& GLWidget::optionMarkRect = Toolkit::Get().optionMarkRect;
Vector& GLWidget::checkRect = Toolkit::Get().checkRect;
Vector& GLWidget::checkMarkRect = Toolkit::Get().checkMarkRect;
Vector& GLWidget::sliderRect = Toolkit::Get().sliderRect;

GLWidget::GLWidget(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme)
    : parent(parent),
      position(position),
      theme(theme != nullptr ? theme : themes["default"]),
      name(name),
      livingPlace(Toolkit::Get().living.insert(Toolkit::Get().living.end(), this)) {
    TraceFrame frame("GLWidget", "GLWidget");
    Assert("glwidget", __LINE__, "theme != NULL", this->theme != nullptr);
    tags[name] = this;
    font.SetSize(GetTheme().fontSize.x, GetTheme().fontSize.y);
    // kept: any widget's construction clears the answer, which is read before widgets are made
    msgboxResult = 0;
    rendering = false;
    Toolkit::Get().readViewport(viewport);
}

GLWidget::~GLWidget() {
    Toolkit::Get().living.erase(livingPlace);
}

void GLWidget::SetTabText(int, std::string_view) {}

void GLWidget::SetText(std::string_view newText) {
    TraceFrame frame("SetText", "GLWidget");
    text = newText;
}

bool GLWidget::AddText(std::string_view newText) {
    TraceFrame frame("AddText", "GLWidget");
    texts.emplace_back(newText);
    return true;
}

bool GLWidget::Centre(GLWidget* child, bool inX, bool inY) {
    TraceFrame frame("Centre", "GLWidget");
    Assert("glwidget/glwidget", 679, "child != 0", child != nullptr);
    const Vector outer = Getbbox();
    const Vector inner = child->Getbbox();
    const float margins = 2.0f * theme->Margin();
    const float title = 2.0f * theme->fontSize.y;
    const float dx = (outer.z - outer.x - margins) / 2.0f - (inner.z - inner.x) / 2.0f;
    const float dy = (outer.w - outer.y - title - margins) / 2.0f - (inner.w - inner.y) / 2.0f;
    if (inX)
        *child += Vector(dx, 0.0f);
    if (inY)
        *child += Vector(0.0f, dy);
    return true;
}

bool GLWidget::MouseMove(const Vector& screen) {
    TraceFrame frame("MouseMove", "GLWidget");
    const auto width = static_cast<float>(viewport[2]);
    const auto height = static_cast<float>(viewport[3]);
    mouse = Vector((2.0f * screen.x / width - 1.0f) * guiScale * width / height,
                   (1.0f - 2.0f * screen.y / height) * guiScale);
    return MouseMove(mouse.x, mouse.y);
}

bool GLWidget::TextKeyPress(const KeyFlags& keys) {
    TraceFrame frame("TextKeyPress", "GLWidget");
    ForEach(children, [&](GLWidget& child) { child.TextKeyPress(keys); });
    return true;
}

bool GLWidget::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "GLWidget");
    mouse = Vector(x, y);
    focus = Within();
    ForEach(children, [&](GLWidget& child) { child.MouseMove(x, y); });
    return true;
}

bool GLWidget::Update(int milliseconds) {
    TraceFrame frame("Update", "GLWidget");
    // Unsigned, so that an age of 24 days wraps around instead of overflowing.
    age = static_cast<std::int32_t>(static_cast<std::uint32_t>(age)
                                    + static_cast<std::uint32_t>(milliseconds));
    const float step = static_cast<float>(milliseconds) * fadeRate;
    if (!theme->fade) {
        highlight = 1.0f;
    } else if (focus) {
        highlight = highlight < 1.0f ? highlight + step : 1.0f;
    } else {
        highlight = highlight > kFaded ? highlight - step : 0.0f;
    }
    flash = flash > kFaded ? flash - step : 0.0f;
    ForEach(children, [&](GLWidget& child) { child.Update(milliseconds); });
    return true;
}

Vector GLWidget::operator+=(const Vector& offset) {
    TraceFrame frame("operator+=", "GLWidget");
    position += offset;
    return position;
}

bool GLWidget::Unique() {
    return false;
}

std::string GLWidget::GetType() {
    return "GLWidget";
}

void GLWidget::AddAppearance(Fingerprint& print) {
    print.Add(++Toolkit::Get().changes);
}

void GLWidget::AddBase(Fingerprint& print) const {
    print.Add(std::bit_cast<std::uintptr_t>(&typeid(*this)));
    print.AddPair(position);
    print.AddPair(size);
    print.Add(*theme);
    print.Add(std::clamp(highlight, 0.0f, 1.0f));
}

bool GLWidget::AddChild(GLWidget* a) {
    TraceFrame frame("AddChild", "GLWidget");
    Assert("glwidget/glwidget", 763, "a != 0", a != nullptr);
    if (a->Holds(this)) {
        std::cerr << "widget " << name << " cannot hold " << a->name << ", which holds it\n";
        return false;
    }
    children.push_back(a);
    const Dispatch dispatch;
    const auto inGroup = [](GLWidget* child) { return child->Unique() && !child->destroyed; };
    const auto found = std::ranges::find_if(children, inGroup);
    if (found == children.end())
        return true;
    // kept: every addition sets the group back to its first member
    GLWidget* const first = *found;
    first->Enable();
    ForEach(children, [&](GLWidget& child) {
        if (&child != first && child.Unique())
            child.SetFocussed(first);
    });
    return true;
}

Vector GLWidget::Getbbox() {
    return {position.x, position.y, position.x + size.x, position.y + size.y};
}

Vector GLWidget::GetValidArea() {
    return {0.0f, 0.0f, 0.0f, 0.0f};
}

bool GLWidget::Solidify() {
    TraceFrame frame("Solidify", "GLWidget");
    const Dispatch dispatch;
    ForEach(children, [](GLWidget& child) { child.Solidify(); });
    const float margin = theme->Margin();
    ForEach(children, [&](GLWidget& child) {
        const Vector box = child.Getbbox();
        size.x = std::max(size.x, box.z + 2.0f * margin);
        size.y = std::max(size.y, box.w + 2.0f * margin);
    });
    if (position.x > kEdgeThreshold)
        position.x = HalfWidth() - size.x - margin;
    if (position.x < -kEdgeThreshold)
        position.x = -HalfWidth() + margin;
    if (position.y > kEdgeThreshold)
        position.y = guiScale - size.y - margin;
    if (position.y < -kEdgeThreshold)
        position.y = -guiScale + margin;
    return true;
}

bool GLWidget::AddTab(int, std::string_view) {
    return true;
}

bool GLWidget::AddToTab(int, GLWidget*) {
    return true;
}

bool GLWidget::Within() {
    const Vector box = Getbbox();
    return mouse.x >= box.x && mouse.x <= box.z && mouse.y >= box.y && mouse.y <= box.w;
}

bool GLWidget::Holds(const GLWidget* widget) const {
    return widget == this || std::ranges::any_of(children, [&](const GLWidget* child) {
               return child->Holds(widget);
           });
}

Vector GLWidget::GetOpaqueBox() const {
    return {0.0f, 0.0f, 0.0f, 0.0f};
}

bool GLWidget::Enable() {
    active = true;
    flash = 0.0f;
    return true;
}

bool GLWidget::Focus() {
    focus = true;
    highlight = 1.0f;
    return true;
}

bool GLWidget::BeenClicked() {
    const bool was = clicked;
    clicked = false;
    return was;
}

bool GLWidget::BeenChanged() {
    const bool was = changed;
    changed = false;
    return was;
}

void GLWidget::SetLevel(float newLevel) {
    level = std::clamp(newLevel, 0.0f, 1.0f);
}

const std::string& GLWidget::GetCurrentText() const {
    const auto index = static_cast<std::size_t>(current);
    return current >= 0 && index < texts.size() ? texts[index] : kNoText;
}

bool GLWidget::MouseMoveWidgets(const Vector& screen) {
    TraceFrame frame("MouseMoveWidgets", "GLWidget");
    ForEachAtTop([&](GLWidget& widget) { widget.MouseMove(screen); });
    return true;
}

bool GLWidget::MouseClickWidgets(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClickWidgets", "GLWidget");
    ForEachAtTop([&](GLWidget& widget) { widget.MouseClick(left, middle, right); });
    return true;
}

bool GLWidget::TextKeyPressWidgets(const KeyFlags& keys) {
    TraceFrame frame("TextKeyPressWidgets", "GLWidget");
    ForEachAtTop([&](GLWidget& widget) { widget.TextKeyPress(keys); });
    return true;
}

bool GLWidget::UpdateWidgets(int milliseconds) {
    TraceFrame frame("UpdateWidgets", "GLWidget");
    ForEachAtTop([&](GLWidget& widget) { widget.Update(milliseconds); });
    Toolkit::Get().parts.completeMessageBox();
    return true;
}

bool GLWidget::RenderWidgets() {
    TraceFrame frame("RenderWidgets", "GLWidget");
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    const double halfWidth = HalfWidth();
    const double halfHeight = guiScale;
    glOrtho(-halfWidth, halfWidth, -halfHeight, halfHeight, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);

    glPushAttrib(GL_ENABLE_BIT);
    glDisable(GL_LIGHTING);
    glDisable(GL_COLOR_MATERIAL);
    glEnable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glEnable(GL_DEPTH_TEST);

    rendering = true;
    ForEachAtTop([](GLWidget& widget) {
        if (&widget == widgets.front()) {
            RenderVisible(widget);
        } else {
            widget.Render();
        }
    });
    rendering = false;

    glPopAttrib();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    return true;
}

/// Draws the widget that lies below all others, only where it can be seen. A screen-sized picture
/// below sheets that cover nearly all of it would otherwise be a fifth of a frame.
void GLWidget::RenderVisible(GLWidget& ground) {
    if (!IsLarge(PixelsWithin(ground.GetOpaqueBox())) || glIsEnabled(GL_SCISSOR_TEST) == GL_TRUE
        || !ModelViewIsIdentity()) {
        ground.Render();
        return;
    }
    Uncovered visible(viewport[2], viewport[3]);
    for (const GLWidget* widget : widgets) {
        if (widget == &ground || widget->destroyed)
            continue;
        const PixelBox box = PixelsWithin(widget->GetOpaqueBox());
        if (IsLarge(box))
            visible.Cover(box);
    }
    glPushAttrib(GL_SCISSOR_BIT);
    glEnable(GL_SCISSOR_TEST);
    for (const PixelBox& box : visible.Boxes()) {
        glScissor(viewport[0] + box.left, viewport[1] + box.bottom, box.right - box.left,
                  box.top - box.bottom);
        ground.Render();
    }
    glPopAttrib();
}

std::uint64_t GLWidget::Appearance() {
    TraceFrame frame("Appearance", "GLWidget");
    const Toolkit& toolkit = Toolkit::Get();
    Fingerprint print;
    print.Add(toolkit.fontLoads);
    for (const std::int32_t edge : toolkit.viewport)
        print.Add(edge);
    print.Add(toolkit.guiScale);
    for (const Vector& rect : {optionRect, optionMarkRect, checkRect, checkMarkRect, sliderRect})
        print.Add(rect);
    print.Add(widgets.size());
    for (GLWidget* widget : widgets)
        widget->AddAppearance(print);
    return print.Number();
}

GLWidget* GLWidget::GetByTag(std::string_view tag, bool complain) {
    TraceFrame frame("GetByTag", "GLWidget");
    auto entry = tags.find(tag);
    // kept: asking for an unknown tag gives it an empty entry
    if (entry == tags.end())
        entry = tags.emplace(tag, nullptr).first;
    if (complain && entry->second == nullptr) {
        std::cerr << "Invalid Tag Widget: '" << tag << "'\n";
        Assert("glwidget/glwidget", 539, "tags[Tag] != NULL", false);
    }
    return entry->second;
}

Theme* GLWidget::NewTheme(std::string_view themeName) {
    Theme* const theme = Toolkit::Get().ownedThemes.emplace_back(std::make_shared<Theme>()).get();
    themes.insert_or_assign(std::string(themeName), theme);
    return theme;
}

Theme* GLWidget::ThemeNamed(std::string_view themeName, const std::string& file) {
    TraceFrame frame("ThemeNamed", "GLWidget");
    const auto known = themes.find(themeName);
    if (known != themes.end() && known->second != nullptr)
        return known->second;
    Theme* const theme = NewTheme(themeName);
    Theme::Read(*theme, file);
    return theme;
}

void GLWidget::Destroy(GLWidget* widget) {
    if (widget == nullptr || widget->destroyed)
        return;
    widget->destroyed = true;
    widget->focus = false;
    const auto entry = tags.find(widget->name);
    if (entry != tags.end() && entry->second == widget)
        entry->second = NewestNamed(widget->name);
    if (Toolkit::Get().dispatches > 0) {
        Toolkit::Get().destroyed.push_back(widget);
    } else {
        UnlinkAndDelete({widget});
    }
}

void GLWidget::DeleteAll() {
    const std::list<GLWidget*>& living = Toolkit::Get().living;
    while (!living.empty()) {  // the destructor of an application's widget may make further ones
        const std::vector<GLWidget*> all(living.begin(), living.end());
        for (GLWidget* widget : all)
            widget->destroyed = true;
        UnlinkAndDelete(all);
    }
}

void GLWidget::UnlinkAndDelete(const std::vector<GLWidget*>& all) {
    const Gone gone(all.begin(), all.end());
    widgets.remove_if([&](const GLWidget* widget) { return gone.contains(widget); });
    for (GLWidget* widget : Toolkit::Get().living)
        widget->Forget(gone);
    for (const GLWidget* widget : all)
        delete widget;
}

void GLWidget::Forget(const Gone& gone) {
    std::erase_if(children, [&](const GLWidget* child) { return gone.contains(child); });
    if (gone.contains(parent))
        parent = nullptr;
}

GLWidget::Dispatch::Dispatch() {
    ++Toolkit::Get().dispatches;
}

GLWidget::Dispatch::~Dispatch() {
    Toolkit& toolkit = Toolkit::Get();
    if (--toolkit.dispatches > 0)
        return;
    if (!toolkit.destroyed.empty())
        UnlinkAndDelete(std::exchange(toolkit.destroyed, {}));
}

bool GLWidget::MessageBox(const std::string& message, int buttons) {
    TraceFrame frame("MessageBox", "GLWidget");
    return Toolkit::Get().parts.showMessageBox(message, buttons);
}

bool GLWidget::Init(const std::string& path) {
    std::istringstream file = OpenGuiFile(path);
    return Init(file);
}

bool GLWidget::Init(std::istream& file) {
    TraceFrame frame("Init", "GLWidget");
    ReadConfiguration(file, Toolkit::Get());
    return true;
}

bool GLWidget::StartGUI(const std::string& path) {
    TraceFrame frame("StartGUI", "GLWidget");
    ReportStart(path);
    std::istringstream file = OpenGuiFile(path);
    return Toolkit::Get().parts.buildLayout(file, path);
}

bool GLWidget::StartGUI(std::istream& file, const std::string& path) {
    TraceFrame frame("StartGUI", "GLWidget");
    ReportStart(path);
    return Toolkit::Get().parts.buildLayout(file, path);
}

bool GLWidget::Quit() {
    TraceFrame frame("Quit", "GLWidget");
    return true;
}

float GLWidget::HalfWidth() {
    if (viewport[3] == 0)  // it has not been read yet
        return guiScale;
    return static_cast<float>(viewport[2]) / static_cast<float>(viewport[3]) * guiScale;
}

float GLWidget::PixelsPerUnit() {
    return static_cast<float>(viewport[3]) / (2.0f * guiScale);
}
