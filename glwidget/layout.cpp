// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/layout.h"

#include <algorithm>
#include <iostream>
#include <sstream>
#include <utility>

#include "glwidget/tabwindow.h"
#include "quarn2/readfile.h"
#include "quarn2/trace.h"

namespace {

constexpr const char* kDefaultTheme = "default";
constexpr const char* kDefaultThemeFile = "default.theme";

void RegisterDefaultTheme() {
    const auto known = GLWidget::themes.find(kDefaultTheme);
    const Theme* const previous = known != GLWidget::themes.end() ? known->second : nullptr;
    Theme* const theme = GLWidget::NewTheme(kDefaultTheme);
    std::string text;
    const FileProblem problem = ReadWholeFile(kDefaultThemeFile, GuiReader::kMaxFileBytes, text);
    if (problem == FileProblem::None) {
        std::istringstream file(std::move(text));
        Theme::Read(*theme, file, kDefaultThemeFile);
    } else {
        // Without such a file the built-in values are usual and not reported.
        if (problem != FileProblem::Missing)
            std::cerr << Describe(kDefaultThemeFile, problem, GuiReader::kMaxFileBytes) << '\n';
        Theme::BuiltIn(*theme);
    }
    if (GLWidget::currentTheme == nullptr || GLWidget::currentTheme == previous)
        GLWidget::currentTheme = theme;
}

/// Stops after `count` steps: the widgets of a long layout may all be nested in each other.
bool HasMoreAncestors(const GLWidget* widget, int count) {
    for (; widget != nullptr && count >= 0; --count)
        widget = widget->GetParent();
    return widget != nullptr;
}

bool HasTabs(GLWidget& widget) {
    const Kind* const kind = KindOfType(widget.GetType());
    return kind != nullptr && kind->hasTabs;
}

bool HoldsChildren(GLWidget& widget) {
    const Kind* const kind = KindOfType(widget.GetType());
    return kind != nullptr && kind->holdsChildren;
}

using enum FieldType;

constexpr Field kTag{Name, "tag"};
constexpr Field kTab{Whole, "tab", 0, TabWindow::kMaxTabs - 1};
constexpr Field kKind{Name, "kind"};
constexpr Field kParent{Name, "parent"};
// A coordinate beyond the edges of the screen moves the widget there; more than this is a mistake.
constexpr float kFarthest = 100.0f;
constexpr Field kX{Number, "x", -kFarthest, kFarthest};
constexpr Field kY{Number, "y", -kFarthest, kFarthest};

constexpr Field kFile[] = {{Name, "file"}};
constexpr Field kTheme[] = {{Name, "theme"}, {Name, Layout::kNone}};
constexpr Field kCreate[] = {kKind, kTag, kParent, kX, kY};
constexpr Field kCreateOnTab[] = {kTab, kKind, kTag, kParent, kX, kY};
constexpr Field kTitle[] = {kTag, kTab, {Text, "title"}};
constexpr Field kItem[] = {kTag, {Text, "text"}};
constexpr Field kTagAlone[] = {kTag};

}  // namespace

constexpr Layout::Statement Layout::kStatements[] = {
    {"CONF", kFile, &Layout::Configure},
    {"THEM", kTheme, &Layout::UseTheme},
    {"CADD", kCreate, &Layout::AddWidget, true},
    {"TADD", kCreateOnTab, &Layout::AddTabWidget, true},
    {"NTAB", kTitle, &Layout::NameTab},
    {"TEXT", kItem, &Layout::AddItem},
    {"SOLID", {}, &Layout::Solidify},
    {"CENTRE", kTagAlone, &Layout::Centre},
    {"CENTREX", kTagAlone, &Layout::CentreX},
    {"CENTREY", kTagAlone, &Layout::CentreY},
    {"CHLD", {}, &Layout::Ignore},
};

std::span<const Layout::Statement> Layout::Statements() {
    return kStatements;
}

const Layout::Statement* Layout::FindStatement(std::string_view word) {
    const auto found = std::ranges::find(kStatements, word, &Statement::word);
    return found == std::end(kStatements) ? nullptr : found;
}

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
    const GLWidget::Dispatch dispatch;
    if (const Statement* const statement = FindStatement(word))
        (this->*statement->run)();
    if (!Toolkit::Get().destroyed.empty())
        ForgetDestroyed();
}

void Layout::ForgetDestroyed() {
    std::erase_if(deferred, [](const Attachment& attachment) {
        return attachment.child->IsDestroyed() || attachment.parent->IsDestroyed();
    });
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
    std::string word;
    std::string parentTag;
    Creation line;
    if (!reader.Word(word) || !reader.Word(line.tag) || !reader.Word(parentTag))
        return;
    reader.Read(line.position.x);
    reader.Read(line.position.y);
    if (!IsOwn(line.tag) || !IsOwn(parentTag))
        return;
    if (parentTag != kNone)
        line.parent = GLWidget::GetByTag(parentTag);

    std::cerr << "adding a '" << word << "' - " << line.tag << '\n';
    const Kind* const named = FindKind(word);
    if (named == nullptr)
        return;
    line.file = path;
    line.theme = GLWidget::currentTheme;
    const Kind& kind = line.Read(reader, *named);
    GLWidget* const widget = kind.make(line);
    if (line.parent == nullptr) {
        GLWidget::widgets.push_back(widget);
        return;
    }
    const Attachment attachment{widget, line.parent, tab};
    if (!Fits(attachment))
        return;
    if (kind.holdsChildren) {
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
    if (attachment.tab && !HasTabs(parent)) {
        Report(parentIs + " and has no tabs, '" + tag + "' is left out");
        return false;
    }
    if (!HoldsChildren(parent))
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
    if (HasTabs(*widget)) {
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
    const GLWidget::Dispatch dispatch;
    for (const Attachment& attachment : deferred)
        Attach(attachment);
    deferred.clear();
    GLWidget::ForEachAtTop([](GLWidget& widget) { widget.Solidify(); });
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

void Layout::Report(const std::string& what) const {
    std::cerr << path << ": " << what << '\n';
}
