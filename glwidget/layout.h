// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <istream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/field.h"
#include "glwidget/glwidget.h"
#include "glwidget/kinds.h"
#include "glwidget/reader.h"

/// Builds the widgets that a layout file describes, one statement per line. What a statement
/// lacks is taken as 0 or empty; unknown words are skipped.
class Layout {
public:
    /// Registers the theme "default" and builds the layout. @return true
    /// @param path  the name of the file in messages
    static bool Start(std::istream& file, const std::string& path);

    /// @param file  its name in messages
    Layout(std::istream& stream, std::string file) : reader(stream), path(std::move(file)) {}

    /// @return true
    bool Build();

    /// How many containers a widget may lie in. Drawing it saves two matrices per container and
    /// three more; OpenGL guarantees room for 32.
    static constexpr int kMaxAncestors = 12;

    /// What a layout writes in place of a widget's tag if there is no widget.
    static constexpr std::string_view kNone = "NULL";
    /// Tags that begin with this belong to the widgets that the toolkit makes, and deletes, itself.
    static constexpr std::string_view kToolkitPrefix = "__";
    static constexpr std::string_view kComment = "//";

    /// A statement by its word, with the fields that follow it.
    struct Statement {
        std::string_view word;
        std::span<const Field> fields;
        void (Layout::*run)();
        bool creates = false;  ///< the fields of the widget's kind follow
    };
    static std::span<const Statement> Statements();
    /// Null for a word that begins no statement.
    static const Statement* FindStatement(std::string_view word);

private:
    static const Statement kStatements[];

    /// A widget and the tab that it belongs on, if any.
    struct Attachment {
        GLWidget* child;
        GLWidget* parent;
        std::optional<int> tab;
    };

    void Ignore() {}
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

    void Process(std::string_view word);
    /// No longer waits for widgets that were destroyed before they were attached.
    void ForgetDestroyed();
    void Create(std::optional<int> tab);
    /// Whether the widget can be attached; if not, a line on standard error says why.
    bool Fits(const Attachment& attachment) const;
    static void Attach(const Attachment& attachment);
    void CentreWidget(bool inX, bool inY);

    /// The widget that the next word names, or null for "NULL", for a missing word and for a
    /// tag that is not the layout's.
    GLWidget* NamedWidget();
    bool IsOwn(std::string_view tag) const;
    void Report(const std::string& what) const;

    GuiReader reader;
    std::string path;
    std::vector<Attachment> deferred;
    bool solidified = false;
};
