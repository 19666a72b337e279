// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/glwidget.h"
#include "glwidget/reader.h"

/// Builds the widgets that a layout file describes, one statement per line. What a statement
/// lacks is taken as 0 or empty; unknown words are skipped.
class Layout {
public:
    /// Registers the theme "default" and builds the layout. @return true
    /// @param path  as which the file is reported
    static bool Start(std::istream& file, const std::string& path);

    /// @param file  as which it is reported
    Layout(std::istream& stream, std::string file) : reader(stream), path(std::move(file)) {}

    /// @return true
    bool Build();

    /// Containers that may stand around a widget. Drawing a child saves two matrices per
    /// container and three of its own; OpenGL promises room for 32.
    static constexpr int kMaxAncestors = 12;

private:
    struct Statement {
        std::string_view word;
        void (Layout::*run)();
    };
    static const Statement kStatements[];

    /// What every new widget is given.
    struct Place {
        std::string tag;
        GLWidget* parent;  // not owned, null at the top
        Vector position;
    };
    struct Kind {
        std::string_view word;
        GLWidget* (Layout::*make)(const Place&);
        bool deferred;  ///< may get children of its own before it is attached
    };
    static const Kind kKinds[];

    /// A widget and the tab that it belongs on, if any.
    struct Attachment {
        GLWidget* child;
        GLWidget* parent;
        std::optional<int> tab;
    };

    void Configure();
    void UseTheme();
    void AddWidget() { Create(std::nullopt); }
    void AddTabWidget();
    void NameTab();
    void AddItem();
    void Solidify();
    void Centre() { CentreWidget(true, true); }
    void CentreX() { CentreWidget(true, false); }
    void CentreY() { CentreWidget(false, true); }

    GLWidget* MakeWindow(const Place& place);
    GLWidget* MakeFrame(const Place& place);
    GLWidget* MakeTabWindow(const Place& place);
    GLWidget* MakeCheckbox(const Place& place);
    GLWidget* MakeOptionbox(const Place& place);
    GLWidget* MakeCombobox(const Place& place);
    GLWidget* MakeButton(const Place& place);
    GLWidget* MakeSlider(const Place& place);
    GLWidget* MakeTextbox(const Place& place);
    GLWidget* MakeLabel(const Place& place);

    void Process(std::string_view word);
    void Create(std::optional<int> tab);
    /// Whether the tree takes the widget; if not, it stays outside and a line says why.
    bool Fits(const Attachment& attachment) const;
    static void Attach(const Attachment& attachment);
    void CentreWidget(bool inX, bool inY);

    /// The widget that the next word names, or null for "NULL", for a missing word and for a
    /// tag that is not the layout's.
    GLWidget* NamedWidget();
    bool IsOwn(std::string_view tag) const;
    /// Reads two numbers; a line says whose are missing.
    template <typename T>
    void ReadPair(const Place& place, T& first, T& second);
    Vector ReadSize(const Place& place);
    void Report(const std::string& what) const;

    GuiReader reader;
    std::string path;
    std::vector<Attachment> deferred;
    bool solidified = false;
};
