// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/field.h"
#include "glwidget/theme.h"
#include "quarn2/vector.h"

class GLWidget;
class GuiReader;
struct Kind;

/// What a layout says of a widget that it creates.
class Creation {
public:
    std::string file;            ///< the layout, as it is reported
    std::string tag;             ///< the widget's name
    GLWidget* parent = nullptr;  ///< not owned, null at the top
    Vector position;
    Theme* theme = nullptr;  ///< not owned

    /// Reads the kind's own fields from the line. What is missing is 0, false or empty.
    /// @return the row of the form that the line has: `kind` or another one of its word
    const Kind& Read(GuiReader& reader, const Kind& kind);

    // The kind's own fields by name.
    const std::string& Text(std::string_view field) const;
    float Number(std::string_view field) const;
    int Whole(std::string_view field) const { return static_cast<int>(Find(field).number); }
    bool Flag(std::string_view field) const { return Find(field).number != 0.0; }

    /// Two fields that are a size, none of them negative. Reports what is missing or negative.
    Vector Size(std::string_view width, std::string_view height) const;
    /// Reports when one of the two is missing.
    void ReportMissingSize(std::string_view first, std::string_view second) const;

private:
    struct Value {
        std::string_view name;
        std::string text;
        double number = 0.0;
        bool given = false;
    };
    static Value ReadValue(GuiReader& reader, const Field& field);
    const Value& Find(std::string_view field) const;
    void Report(const std::string& what) const;

    std::vector<Value> values;
};

/// What the text of a kind of widget is drawn on.
enum class TextGround {
    None,   ///< there is no text
    Fill,   ///< the widget's own fill, bright under the mouse
    Title,  ///< the fill of a window, bright under the mouse when the window can be moved
    Around  ///< what lies below the widget, or the window around it
};

/// A set of lines of a theme.
class ThemeLines {
public:
    constexpr ThemeLines() = default;
    constexpr ThemeLines(std::initializer_list<ThemeLine> lines) {
        for (const ThemeLine line : lines)
            bits |= 1U << static_cast<unsigned>(line);
    }
    constexpr bool Has(ThemeLine line) const {
        return (bits >> static_cast<unsigned>(line) & 1U) != 0;
    }

private:
    std::uint32_t bits = 0;
};

/// A kind of widget: everything that the layout reader, the checks of a layout and the documents
/// know of it. A new kind is a new row of the table in kinds.cpp or, outside of the toolkit, a
/// row that the program registers.
struct Kind {
    std::string_view word;  ///< in a layout
    /// The word after x and y that chooses this row among those of one `word`; empty for the
    /// first, whose one field is then a Caption.
    std::string_view form = {};
    std::string_view type;  ///< the class's name, as GetType says it
    std::span<const Field> fields = {};
    bool eitherOr = false;       ///< one of its two fields is 0, the other is not
    bool holdsChildren = false;  ///< and is attached only when the layout is solidified
    bool hasTabs = false;
    bool takesItems = false;  ///< TEXT adds one
    bool takesClicks = false;
    bool takesKeys = false;     ///< while it has the focus
    bool isBackground = false;  ///< shows the theme's picture; widgets may be drawn on it
    TextGround text = TextGround::None;
    ThemeLines draws = {};  ///< what of its theme can be seen of it, or changes its size
    /// The theme of the buttons that it makes for itself, null for none, and whose theme it is.
    const char* buttonTheme = nullptr;
    std::string_view buttonThemeOwner = {};
    /// The themes of the lines that it draws: text and lines in their colours, on its own fill.
    /// Their files may be missing.
    std::span<const char* const> seriesThemes = {};
    GLWidget* (*make)(const Creation& creation) = nullptr;
};

/// Every kind: those of the toolkit, then those that the program has registered. A pointer stays
/// valid as long as its row lives.
std::vector<const Kind*> Kinds();

/// The kind of that word and form, or null.
const Kind* FindKind(std::string_view word, std::string_view form = {});

/// The first kind of that class, or null.
const Kind* KindOfType(std::string_view type);

/// Makes a further kind known to layouts until the toolkit is reset. The caller keeps the row
/// alive until then. Its word and form must be new.
void RegisterKind(const Kind& kind);
