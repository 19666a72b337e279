// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/kinds.h"

#include <algorithm>
#include <iostream>
#include <iterator>

#include "glwidget/button.h"
#include "glwidget/chart.h"
#include "glwidget/checkbox.h"
#include "glwidget/combobox.h"
#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/label.h"
#include "glwidget/optionbox.h"
#include "glwidget/reader.h"
#include "glwidget/slider.h"
#include "glwidget/tabwindow.h"
#include "glwidget/textbox.h"
#include "glwidget/toolkit.h"
#include "quarn2/trace.h"

namespace {

using enum FieldType;
using enum ThemeLine;

GLWidget* MakeWindow(const Creation& line) {
    const bool movable = line.Flag("movable");
    std::cerr << "adding window " << line.tag << ' ' << movable << '\n';
    return new GLWindow(line.tag, line.parent, line.position, line.theme, line.Text("title"),
                        movable);
}

GLWidget* MakeTabWindow(const Creation& line) {
    const auto theme = std::ranges::find_if(
        GLWidget::themes, [&](const auto& entry) { return entry.second == line.theme; });
    std::cerr << "adding tabwindow " << line.tag << ' '
              << (line.parent != nullptr ? line.parent->GetName() : "NULL") << ' ' << line.position
              << ' ' << (theme != GLWidget::themes.end() ? theme->first : "default") << '\n';
    auto* const window = new TabWindow(line.tag, line.parent, line.position, line.theme);
    std::cerr << "added tabwindow\n";
    return window;
}

GLWidget* MakeTextbox(const Creation& line) {
    line.ReportMissingSize("columns", "rows");
    return new Textbox(line.tag, line.parent, line.position, line.theme, line.Whole("columns"),
                       line.Whole("rows"));
}

template <typename Widget>
GLWidget* MakePlain(const Creation& line) {
    return new Widget(line.tag, line.parent, line.position, line.theme);
}

template <typename Widget>
GLWidget* MakeCaptioned(const Creation& line) {
    return new Widget(line.tag, line.parent, line.position, line.theme, line.Text("caption"));
}

template <typename Widget>
GLWidget* MakeSized(const Creation& line) {
    return new Widget(line.tag, line.parent, line.position, line.theme,
                      line.Size("width", "height"));
}

// Larger than the screen: a size in pixels, for example, is a mistake. The toolkit takes it.
constexpr float kMax = 10.0f;
constexpr Field kWindow[] = {{Flag, "movable"}, {Text, "title"}};
constexpr Field kFrame[] = {{Flag, "border"}};
constexpr Field kLabel[] = {{Text, "text"}};
constexpr Field kCaption[] = {{Text, "caption"}};
constexpr Field kButton[] = {{Caption, "caption"}};
constexpr Field kImage[] = {{Number, "width", Field::kAboveZero, kMax},
                            {Number, "height", Field::kAboveZero, kMax}};
constexpr Field kTrack[] = {{Number, "width", 0.0f, kMax}, {Number, "height", 0.0f, kMax}};
constexpr Field kChart[] = {{Number, "width", Field::kAboveZero, kMax},
                            {Number, "height", Field::kAboveZero, kMax},
                            {Text, "caption"}};
constexpr Field kGrid[] = {{Whole, "columns", 1, Textbox::kMaxColumns},
                           {Whole, "rows", 1, Textbox::kMaxRows}};

constexpr Kind kKinds[] = {
    {.word = "Win",
     .type = "GLWindow",
     .fields = kWindow,
     .holdsChildren = true,
     .text = TextGround::Title,
     .draws = {TextColour, LineColour, FillColour, Opacity, Border, Corner, FontSize, Brightness,
               Fade},
     .make = MakeWindow},
    {.word = "Frame",
     .type = "Frame",
     .fields = kFrame,
     .holdsChildren = true,
     .draws = {LineColour, Opacity, LineWidth, Border, Corner, Brightness},
     .make = [](const Creation& line) -> GLWidget* {
         return new Frame(line.tag, line.parent, line.position, line.theme, line.Flag("border"));
     }},
    {.word = "TWin",
     .type = "TabWindow",
     .holdsChildren = true,
     .hasTabs = true,
     .draws = {LineColour, FillColour, Opacity, LineWidth, Border, Corner, FontSize, Brightness,
               Fade},
     .buttonTheme = TabWindow::kButtonTheme,
     .buttonThemeOwner = "the tabs'",
     .make = MakeTabWindow},
    {.word = "Check",
     .type = "Checkbox",
     .fields = kCaption,
     .takesClicks = true,
     .text = TextGround::Around,
     .draws = {TextColour, FillColour, FontSize, Brightness, BoxSize, Picture, Fade},
     .make = MakeCaptioned<Checkbox>},
    {.word = "Opt",
     .type = "Optionbox",
     .fields = kCaption,
     .takesClicks = true,
     .text = TextGround::Around,
     .draws = {TextColour, FillColour, FontSize, Brightness, BoxSize, Picture, Fade},
     .make = MakeCaptioned<Optionbox>},
    {.word = "Combo",
     .type = "Combobox",
     .takesItems = true,
     .takesClicks = true,
     .text = TextGround::Fill,
     .draws = {TextColour, LineColour, FillColour, Opacity, LineWidth, Border, Corner, FontSize,
               Brightness, Fade},
     .buttonTheme = Combobox::kButtonTheme,
     .buttonThemeOwner = "the drop button's",
     .make = MakePlain<Combobox>},
    {.word = "Butt",
     .type = "Button",
     .fields = kButton,
     .takesClicks = true,
     .text = TextGround::Fill,
     .draws = {TextColour, LineColour, FillColour, LineWidth, Corner, FontSize, Brightness,
               PressOffset, Fade},
     .make = MakeCaptioned<Button>},
    {.word = "Butt",
     .form = "TEX",
     .type = "Button",
     .fields = kImage,
     .takesClicks = true,
     .isBackground = true,
     .draws = {LineColour, FillColour, LineWidth, Corner, Brightness, PressOffset, Picture, Fade},
     .make = MakeSized<Button>},
    {.word = "Slide",
     .type = "Slider",
     .fields = kTrack,
     .eitherOr = true,
     .takesClicks = true,
     .draws = {FillColour, LineWidth, Brightness, BoxSize, Picture, Fade},
     .make = MakeSized<Slider>},
    {.word = "Text",
     .type = "Textbox",
     .fields = kGrid,
     .takesClicks = true,
     .takesKeys = true,
     .text = TextGround::Fill,
     .draws = {TextColour, LineColour, FillColour, Opacity, LineWidth, Corner, FontSize, Brightness,
               Fade},
     .make = MakeTextbox},
    {.word = "Label",
     .type = "Label",
     .fields = kLabel,
     .text = TextGround::Around,
     .draws = {TextColour, FontSize},
     .make = [](const Creation& line) -> GLWidget* {
         return new Label(line.tag, line.parent, line.position, line.theme,
                          ReplaceEscapes(line.Text("text")));
     }},
    {.word = "Chart",
     .type = "Chart",
     .fields = kChart,
     .text = TextGround::Fill,
     .draws = {TextColour, LineColour, FillColour, Opacity, LineWidth, Corner, FontSize, Brightness,
               Fade},
     .seriesThemes = Chart::kSeriesThemes,
     .make = [](const Creation& line) -> GLWidget* {
         return new Chart(line.tag, line.parent, line.position, line.theme,
                          line.Size("width", "height"), line.Text("caption"));
     }},
};

template <typename Condition>
const Kind* FindIf(Condition condition) {
    const auto own = std::ranges::find_if(kKinds, condition);
    if (own != std::end(kKinds))
        return own;
    const std::vector<const Kind*>& registered = Toolkit::Get().kinds;
    const auto further =
        std::ranges::find_if(registered, [&](const Kind* kind) { return condition(*kind); });
    return further == registered.end() ? nullptr : *further;
}

}  // namespace

std::vector<const Kind*> Kinds() {
    std::vector<const Kind*> all;
    for (const Kind& kind : kKinds)
        all.push_back(&kind);
    const std::vector<const Kind*>& registered = Toolkit::Get().kinds;
    all.insert(all.end(), registered.begin(), registered.end());
    return all;
}

const Kind* FindKind(std::string_view word, std::string_view form) {
    return FindIf([&](const Kind& kind) { return kind.word == word && kind.form == form; });
}

const Kind* KindOfType(std::string_view type) {
    return FindIf([&](const Kind& kind) { return kind.type == type; });
}

void RegisterKind(const Kind& kind) {
    TraceFrame frame("RegisterKind", "");
    Assert("glwidget/kinds", __LINE__, "FindKind(kind.word, kind.form) == nullptr",
           FindKind(kind.word, kind.form) == nullptr);
    Toolkit::Get().kinds.push_back(&kind);
}

const Kind& Creation::Read(GuiReader& reader, const Kind& kind) {
    values.clear();
    for (const Field& field : kind.fields) {
        values.push_back(ReadValue(reader, field));
        const std::string& word = values.back().text;
        if (field.type != Caption || word.empty())
            continue;
        if (const Kind* const form = FindKind(kind.word, word))
            return Read(reader, *form);
    }
    return kind;
}

Creation::Value Creation::ReadValue(GuiReader& reader, const Field& field) {
    Value value{field.name, {}};
    const auto read = [&](auto number) {
        value.given = reader.Read(number);
        value.number = static_cast<double>(number);
    };
    switch (field.type) {
    case FieldType::Name:
    case Caption:
        value.given = reader.Word(value.text);
        break;
    case FieldType::Text:
        value.text = reader.Rest();
        break;
    case FieldType::Number:
        read(0.0f);
        break;
    case FieldType::Whole:
        read(0);
        break;
    case FieldType::Flag:
        read(false);
        break;
    }
    return value;
}

const Creation::Value& Creation::Find(std::string_view field) const {
    const auto found = std::ranges::find(values, field, &Value::name);
    Assert("glwidget/kinds", __LINE__, "the kind has a field of this name", found != values.end());
    return *found;
}

const std::string& Creation::Text(std::string_view field) const {
    return Find(field).text;
}

float Creation::Number(std::string_view field) const {
    return static_cast<float>(Find(field).number);
}

Vector Creation::Size(std::string_view width, std::string_view height) const {
    ReportMissingSize(width, height);
    const Vector size(Number(width), Number(height));
    if (size.x < 0.0f || size.y < 0.0f)
        Report("'" + tag + "' has a negative size, which is taken as 0");
    return {std::max(size.x, 0.0f), std::max(size.y, 0.0f)};
}

void Creation::ReportMissingSize(std::string_view first, std::string_view second) const {
    if (!Find(first).given || !Find(second).given)
        Report("the size of '" + tag + "' is not two numbers, what is missing is taken as 0");
}

void Creation::Report(const std::string& what) const {
    std::cerr << file << ": " << what << '\n';
}
