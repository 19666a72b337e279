// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/layout.h"

#include <algorithm>
#include <fstream>
#include <iostream>

#include "glwidget/button.h"
#include "glwidget/checkbox.h"
#include "glwidget/combobox.h"
#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/label.h"
#include "glwidget/optionbox.h"
#include "glwidget/slider.h"
#include "glwidget/tabwindow.h"
#include "glwidget/textbox.h"
#include "quarn2/strings.h"
#include "quarn2/trace.h"

namespace {

constexpr std::string_view kNone = "NULL";
constexpr std::string_view kComment = "//";
constexpr std::string_view kImageButton = "TEX";

/// Tags of the widgets that the toolkit makes, and deletes, itself.
constexpr std::string_view kToolkitPrefix = "__";

constexpr const char* kDefaultTheme = "default";
constexpr const char* kDefaultThemeFile = "default.theme";

/// A layout's own way to write text: "%" means itself, backslash n a line break.
std::string ReplaceEscapes(const std::string& text) {
    return str_replace("\\n", "\n", str_replace("%", "%%", text));
}

void RegisterDefaultTheme() {
    const auto known = GLWidget::themes.find(kDefaultTheme);
    const Theme* const previous = known != GLWidget::themes.end() ? known->second : nullptr;
    Theme* const theme = GLWidget::NewTheme(kDefaultTheme);
    std::ifstream file(kDefaultThemeFile);
    if (file) {
        Theme::Read(*theme, file, kDefaultThemeFile);
    } else {
        Theme::BuiltIn(*theme);
    }
    if (GLWidget::currentTheme == nullptr || GLWidget::currentTheme == previous)
        GLWidget::currentTheme = theme;
}

/// Looks no further than needed: a layout may nest as deep as it is long.
bool HasMoreAncestors(const GLWidget* widget, int count) {
    for (; widget != nullptr && count >= 0; --count)
        widget = widget->GetParent();
    return widget != nullptr;
}

bool IsTabWindow(GLWidget& widget) {
    return widget.GetType() == "TabWindow";
}

bool IsContainer(GLWidget& widget) {
    const std::string type = widget.GetType();
    return type == "GLWindow" || type == "Frame" || type == "TabWindow";
}

}  // namespace

constexpr Layout::Statement Layout::kStatements[] = {
    {"CONF", &Layout::Configure},                                 //
    {"THEM", &Layout::UseTheme},                                  //
    {"CADD", &Layout::AddWidget},                                 //
    {"TADD", &Layout::AddTabWidget}, {"NTAB", &Layout::NameTab},  //
    {"TEXT", &Layout::AddItem},                                   //
    {"SOLID", &Layout::Solidify},                                 //
    {"CENTRE", &Layout::Centre},                                  //
    {"CENTREX", &Layout::CentreX},                                //
    {"CENTREY", &Layout::CentreY},
};

constexpr Layout::Kind Layout::kKinds[] = {
    {"Win", &Layout::MakeWindow, true},     {"Frame", &Layout::MakeFrame, true},
    {"TWin", &Layout::MakeTabWindow, true}, {"Check", &Layout::MakeCheckbox, false},
    {"Opt", &Layout::MakeOptionbox, false}, {"Combo", &Layout::MakeCombobox, false},
    {"Butt", &Layout::MakeButton, false},   {"Slide", &Layout::MakeSlider, false},
    {"Text", &Layout::MakeTextbox, false},  {"Label", &Layout::MakeLabel, false},
};

bool Layout::Start(std::istream& file, const std::string& path) {
    RegisterDefaultTheme();
    return Layout(file, path).Build();
}

bool Layout::Build() {
    TraceFrame frame("Build", "Layout");
    std::string word;
    while (reader.Word(word)) {
        std::cerr << "Processing '" << word << "'\n";
        if (!word.starts_with(kComment))
            Process(word);
        reader.EndLine();
    }
    if (!solidified)
        Solidify();
    return true;
}

void Layout::Process(std::string_view word) {
    const auto statement = std::find_if(std::begin(kStatements), std::end(kStatements),
                                        [&](const Statement& row) { return row.word == word; });
    if (statement != std::end(kStatements))
        (this->*statement->run)();
}

void Layout::Configure() {
    std::string file;
    if (reader.Word(file))
        GLWidget::Init(file);
}

void Layout::UseTheme() {
    std::string name;
    std::string additional;
    static_cast<void>(reader.Word(name) && reader.Word(additional));
    Assert("glwidget/glwidget", 459, "additional == \"NULL\"", additional == kNone);
    GLWidget::currentTheme = GLWidget::ThemeNamed(name, name);
}

void Layout::AddTabWidget() {
    int tab = 0;
    reader.Read(tab);
    Create(tab);
}

void Layout::Create(std::optional<int> tab) {
    std::string kind;
    std::string parentTag;
    Place place{};
    if (!reader.Word(kind) || !reader.Word(place.tag) || !reader.Word(parentTag))
        return;
    reader.Read(place.position.x);
    reader.Read(place.position.y);
    if (!IsOwn(place.tag) || !IsOwn(parentTag))
        return;
    if (parentTag != kNone)
        place.parent = GLWidget::GetByTag(parentTag);

    std::cerr << "adding a '" << kind << "' - " << place.tag << '\n';
    const auto row = std::find_if(std::begin(kKinds), std::end(kKinds),
                                  [&](const Kind& known) { return known.word == kind; });
    if (row == std::end(kKinds))
        return;
    GLWidget* const widget = (this->*row->make)(place);
    if (place.parent == nullptr) {
        GLWidget::widgets.push_back(widget);
        return;
    }
    const Attachment attachment{widget, place.parent, tab};
    if (!Fits(attachment))
        return;
    if (row->deferred) {
        deferred.push_back(attachment);
    } else {
        Attach(attachment);
    }
}

bool Layout::Fits(const Attachment& attachment) const {
    const std::string& tag = attachment.child->GetName();
    GLWidget& parent = *attachment.parent;
    const std::string parentIs = "'" + parent.GetName() + "' is a " + parent.GetType();
    if (HasMoreAncestors(attachment.child, kMaxAncestors)) {
        Report("'" + tag + "' is nested deeper than " + std::to_string(kMaxAncestors)
               + " containers and is left out");
        return false;
    }
    if (attachment.tab && !IsTabWindow(parent)) {
        Report(parentIs + " and has no tabs, '" + tag + "' is left out");
        return false;
    }
    if (!IsContainer(parent))
        Report(parentIs + " and does not show '" + tag + "'");
    return true;
}

void Layout::Attach(const Attachment& attachment) {
    if (attachment.tab) {
        attachment.parent->AddToTab(*attachment.tab, attachment.child);
    } else {
        attachment.parent->AddChild(attachment.child);
    }
}

void Layout::NameTab() {
    GLWidget* const widget = NamedWidget();
    int index = 0;
    reader.Read(index);
    if (widget == nullptr)
        return;
    if (IsTabWindow(*widget)) {
        widget->AddTab(index, reader.Rest());
    } else {
        Report("'" + widget->GetName() + "' is a " + widget->GetType() + " and has no tabs");
    }
}

void Layout::AddItem() {
    if (GLWidget* const widget = NamedWidget())
        widget->AddText(ReplaceEscapes(reader.Rest()));
}

void Layout::Solidify() {
    for (const Attachment& attachment : deferred)
        Attach(attachment);
    deferred.clear();
    for (GLWidget* widget : GLWidget::widgets)
        widget->Solidify();
    solidified = true;
}

void Layout::CentreWidget(bool inX, bool inY) {
    GLWidget* const widget = NamedWidget();
    if (widget == nullptr)
        return;
    if (GLWidget* const parent = widget->GetParent()) {
        parent->Centre(widget, inX, inY);
        return;
    }
    const Vector box = widget->Getbbox();
    *widget += Vector(inX ? -(box.z - box.x) / 2.0f : 0.0f, inY ? -(box.w - box.y) / 2.0f : 0.0f);
}

template <typename T>
void Layout::ReadPair(const Place& place, T& first, T& second) {
    if (!reader.Read(first) || !reader.Read(second))
        Report("the size of '" + place.tag + "' is not two numbers, what is missing is taken as 0");
}

GLWidget* Layout::MakeWindow(const Place& place) {
    bool movable = false;
    reader.Read(movable);
    const std::string title = reader.Rest();
    std::cerr << "adding window " << place.tag << ' ' << movable << '\n';
    return new GLWindow(place.tag, place.parent, place.position, GLWidget::currentTheme, title,
                        movable);
}

GLWidget* Layout::MakeFrame(const Place& place) {
    bool bordered = false;
    reader.Read(bordered);
    return new Frame(place.tag, place.parent, place.position, GLWidget::currentTheme, bordered);
}

GLWidget* Layout::MakeTabWindow(const Place& place) {
    const auto theme =
        std::find_if(GLWidget::themes.begin(), GLWidget::themes.end(),
                     [](const auto& entry) { return entry.second == GLWidget::currentTheme; });
    std::cerr << "adding tabwindow " << place.tag << ' '
              << (place.parent != nullptr ? place.parent->GetName() : kNone) << ' '
              << place.position << ' '
              << (theme != GLWidget::themes.end() ? theme->first : kDefaultTheme) << '\n';
    auto* const window =
        new TabWindow(place.tag, place.parent, place.position, GLWidget::currentTheme);
    std::cerr << "added tabwindow\n";
    return window;
}

GLWidget* Layout::MakeCheckbox(const Place& place) {
    return new Checkbox(place.tag, place.parent, place.position, GLWidget::currentTheme,
                        reader.Rest());
}

GLWidget* Layout::MakeOptionbox(const Place& place) {
    return new Optionbox(place.tag, place.parent, place.position, GLWidget::currentTheme,
                         reader.Rest());
}

GLWidget* Layout::MakeCombobox(const Place& place) {
    return new Combobox(place.tag, place.parent, place.position, GLWidget::currentTheme);
}

GLWidget* Layout::MakeButton(const Place& place) {
    std::string caption;
    static_cast<void>(reader.Word(caption));
    if (caption == kImageButton) {
        return new Button(place.tag, place.parent, place.position, GLWidget::currentTheme,
                          ReadSize(place));
    }
    return new Button(place.tag, place.parent, place.position, GLWidget::currentTheme, caption);
}

GLWidget* Layout::MakeSlider(const Place& place) {
    return new Slider(place.tag, place.parent, place.position, GLWidget::currentTheme,
                      ReadSize(place));
}

GLWidget* Layout::MakeTextbox(const Place& place) {
    int columns = 0;
    int rows = 0;
    ReadPair(place, columns, rows);
    return new Textbox(place.tag, place.parent, place.position, GLWidget::currentTheme, columns,
                       rows);
}

GLWidget* Layout::MakeLabel(const Place& place) {
    return new Label(place.tag, place.parent, place.position, GLWidget::currentTheme,
                     ReplaceEscapes(reader.Rest()));
}

GLWidget* Layout::NamedWidget() {
    std::string tag;
    if (!reader.Word(tag) || tag == kNone || !IsOwn(tag))
        return nullptr;
    return GLWidget::GetByTag(tag);
}

bool Layout::IsOwn(std::string_view tag) const {
    if (!tag.starts_with(kToolkitPrefix))
        return true;
    Report("the tag '" + std::string(tag) + "' belongs to the toolkit");
    return false;
}

Vector Layout::ReadSize(const Place& place) {
    Vector size;
    ReadPair(place, size.x, size.y);
    if (size.x < 0.0f || size.y < 0.0f)
        Report("'" + place.tag + "' has a negative size, which is taken as 0");
    return {std::max(size.x, 0.0f), std::max(size.y, 0.0f)};
}

void Layout::Report(const std::string& what) const {
    std::cerr << path << ": " << what << '\n';
}
