// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/textbox.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <iostream>

#include "glwidget/container.h"
#include "glwidget/drawing.h"
#include "quarn2/strings.h"
#include "quarn2/trace.h"

namespace {

// Indexes of the key flags: SDL's key symbols.
constexpr std::size_t kBackspaceKey = 8;
constexpr std::size_t kReturnKey = 13;
constexpr std::size_t kDeleteKey = 127;
constexpr std::size_t kUpKey = 273;
constexpr std::size_t kDownKey = 274;
constexpr std::size_t kRightKey = 275;
constexpr std::size_t kLeftKey = 276;
constexpr std::size_t kHomeKey = 278;
constexpr std::size_t kEndKey = 279;
constexpr std::size_t kFirstCharacter = 32;
constexpr std::size_t kLastCharacter = 125;  // kept: 126 cannot be typed

/// A line is broken when less than the width of this is left in the box.
constexpr char kBreakMargin[] = "ww";

/// Width of the frame while the box is edited, as a multiple of the theme's line width.
constexpr float kEditedFrame = 2.0f;

/// Larger than any distance between two positions in a line.
constexpr float kFarthest = 1000.0f;

std::int32_t Limited(const std::string& box, const char* what, std::int32_t wanted,
                     std::int32_t most) {
    const std::int32_t allowed = std::clamp(wanted, 0, most);
    if (allowed != wanted) {
        std::cerr << "textbox " << box << " has " << allowed << ' ' << what << ", not " << wanted
                  << '\n';
    }
    return allowed;
}

/// Clips drawing to a box whose lower left corner is the model-view origin.
class ClipScope {
public:
    ClipScope(float width, float height) {
        glPushAttrib(GL_TRANSFORM_BIT);
        Clip(GL_CLIP_PLANE0, 1.0, 0.0, 0.0);
        Clip(GL_CLIP_PLANE1, -1.0, 0.0, width);
        Clip(GL_CLIP_PLANE2, 0.0, 1.0, 0.0);
        Clip(GL_CLIP_PLANE3, 0.0, -1.0, height);
    }
    ~ClipScope() { glPopAttrib(); }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

private:
    static void Clip(GLenum plane, double x, double y, double distance) {
        const GLdouble equation[4] = {x, y, 0.0, distance};
        glClipPlane(plane, equation);
        glEnable(plane);
    }
};

}  // namespace

Textbox::Textbox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
                 std::int32_t columns, std::int32_t rows)
    : GLWidget(name, parent, position, theme) {
    TraceFrame frame("Textbox", "Textbox");
    std::cerr << "textbox " << columns << ' ' << rows << '\n';
    const std::int32_t columnsTaken = Limited(name, "columns", columns, kMaxColumns);
    const std::int32_t rowsTaken = Limited(name, "rows", rows, kMaxRows);
    const Vector& glyph = GetTheme().fontSize;
    const std::string widest(static_cast<std::size_t>(columnsTaken), 'w');
    this->rows = rowsTaken;
    size = Vector(MeasureText(GetTheme(), widest) + glyph.x,
                  glyph.y * FontRender::kLineStep * static_cast<float>(rowsTaken));
    std::cerr << "dim: " << size << '\n';
}

bool Textbox::MouseClick(bool left, bool, bool) {
    TraceFrame frame("MouseClick", "Textbox");
    const bool over = Within();
    // kept: a click elsewhere does not end the editing
    if (over && left)
        focus = true;
    return over && focus;
}

bool Textbox::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "Textbox");
    mouse = Vector(x, y);
    return true;
}

void Textbox::SetFocussed(GLWidget* other) {
    TraceFrame frame("SetFocussed", "Textbox");
    if (other != this)
        focus = false;
}

bool Textbox::TextKeyPress(const KeyFlags& keys) {
    TraceFrame frame("TextKeyPress", "Textbox");
    if (!focus)
        return true;
    // Several keys may be pressed in one update; they are handled in this order.
    if (keys[kBackspaceKey] && !before.empty())
        before.pop_back();
    if (keys[kDeleteKey] && !after.empty())
        after.erase(0, 1);
    if (keys[kLeftKey] && !before.empty())
        PutCaret(before.size() - 1);
    if (keys[kRightKey] && !after.empty())
        PutCaret(before.size() + 1);
    if (keys[kHomeKey])
        PutCaret(0);
    if (keys[kEndKey])
        PutCaret(before.size() + after.size());
    if (keys[kUpKey])
        MoveUp();
    if (keys[kDownKey])
        MoveDown();
    if (keys[kReturnKey] && LineCount() < rows)
        before += '\n';
    BreakLine();
    Type(keys);
    text.assign(before).append(after);
    return true;
}

void Textbox::PutCaret(std::size_t place) {
    before += after;
    after.assign(before, place);
    before.resize(place);
}

void Textbox::MoveUp() {
    const std::string_view line = LineBeforeCaret();
    const std::size_t lineStart = before.size() - line.size();
    if (lineStart == 0)
        return;
    const std::string_view above = std::string_view(before).substr(0, lineStart - 1);
    const std::size_t aboveStart = above.rfind('\n') + 1;  // 0 if there is no line break
    PutCaret(aboveStart + NearestPlace(above.substr(aboveStart), LineWidth(line)));
}

void Textbox::MoveDown() {
    const std::size_t lineEnd = after.find('\n');
    if (lineEnd == std::string::npos)
        return;
    const std::string_view below = std::string_view(after).substr(lineEnd + 1);
    const std::size_t place =
        NearestPlace(below.substr(0, below.find('\n')), LineWidth(LineBeforeCaret()));
    PutCaret(before.size() + lineEnd + 1 + place);
}

std::size_t Textbox::NearestPlace(std::string_view line, float width) const {
    float nearest = kFarthest;
    std::size_t place = 0;
    for (; place <= line.size(); ++place) {
        const float distance = std::fabs(LineWidth(line.substr(0, place)) - width);
        // Widths only grow, so the positions after this one are not nearer.
        if (!(distance < nearest))
            break;
        nearest = distance;
    }
    return place == 0 ? line.size() : place - 1;
}

void Textbox::BreakLine() {
    const bool tooWide = LineWidth(LineBeforeCaret()) + LineWidth(kBreakMargin) > size.x;
    if (tooWide && LineCount() + 1 < rows)
        before += '\n';
}

void Textbox::Type(const KeyFlags& keys) {
    for (std::size_t code = kFirstCharacter; code <= kLastCharacter; ++code) {
        if (keys[code])
            before += static_cast<char>(code);
    }
}

std::string_view Textbox::LineBeforeCaret() const {
    return std::string_view(before).substr(before.rfind('\n')
                                           + 1);  // all if there is no line break
}

std::int32_t Textbox::LineCount() const {
    return static_cast<std::int32_t>(substr_count(before, "\n") + substr_count(after, "\n") + 1);
}

float Textbox::LineWidth(std::string_view line) const {
    float width = 0.0f;
    for (std::size_t i = 0; i < line.size(); ++i) {
        width += font.Advance(line[i]) * theme->fontSize.x;
        if (line.substr(i, 2) == "%%")  // drawn as one
            ++i;
    }
    return width;
}

void Textbox::Render() {
    TraceFrame frame("Render", "Textbox");
    Assert("textbox", __LINE__, "rendering", rendering);
    const MatrixScope matrix;
    EnableBlending();
    DisableDepthTest();
    SetTexturing(false);
    glLineWidth(theme->lineWidth);
    Translate(position.x, position.y);
    DrawBox();
    const ClipScope clip(size.x, size.y);
    DrawContent();
}

void Textbox::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.Add(rows);
    print.Add(text);
    print.Add(focus);
    if (focus)
        print.Add(before);  // the caret stands after it
}

void Textbox::DrawBox() const {
    const MatrixScope matrix;
    Translate(size.x / 2.0f, size.y / 2.0f);
    // The corners are cut as in a box of one row, so that no text stands over the cut.
    const float cut = theme->corner / static_cast<float>(std::max(rows, 1));
    // The frame shows at once that the box is edited; the highlight would fade in slowly.
    if (focus)
        glLineWidth(kEditedFrame * theme->lineWidth);
    container::DrawPanel(*theme, focus ? theme->bright : Brightness(*theme, highlight), size.x,
                         size.y, cut);
    glLineWidth(theme->lineWidth);
}

void Textbox::DrawContent() const {
    const float step = FontRender::kLineStep * theme->fontSize.y;
    const float margin = theme->fontSize.x / 2.0f;
    const float caret = LineWidth(LineBeforeCaret());
    // If the edited line is wider than the box, it is moved so that the caret stays visible.
    const float beyond = focus ? std::max(0.0f, caret - (size.x - 2.0f * margin)) : 0.0f;
    Translate(margin - beyond, size.y - step + theme->fontSize.y / 4.0f);
    SetColour(theme->textColour);
    if (focus)
        DrawCaret(caret, -step * static_cast<float>(substr_count(before, "\n")));
    PrintText(*theme, text);
}

void Textbox::DrawCaret(float x, float baseline) const {
    DrawLine(x, baseline - theme->fontSize.y / 4.0f, x, baseline + theme->fontSize.y);
}
