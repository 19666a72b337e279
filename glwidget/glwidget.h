// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <list>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/fingerprint.h"
#include "glwidget/theme.h"
#include "glwidget/toolkit.h"
#include "quarn2/event.h"
#include "quarn2/font.h"
#include "quarn2/vector.h"

/// Base of every GUI element, and the toolkit's shared state and dispatch.
///
/// Ownership: a widget is made with new and lives until Destroy or Toolkit::Reset deletes it. It
/// does not own its children, its parent or its theme. Only a tab window owns the buttons of its
/// tabs, and a combobox its drop button. The children of a widget that is destroyed live on
/// without a parent.
///
/// MouseClick, MouseMove, TextKeyPress, Update, SetFocussed, AddChild and Solidify, as overridden
/// by an application, may make, add and destroy widgets, including their own widget and those that
/// hold it. They may also change `widgets`: take a widget out to hide it, or move it to the end to
/// raise it. A change of the tree counts from the next event on, but a widget that is destroyed
/// gets no more of this event and loses its tag at once; it leaves the tree and is deleted after
/// the event. Render must not change the tree.
///
/// GUI space: y grows upwards; the screen spans -A*S..A*S by -S..S, where S is `guiScale` and A
/// the viewport's width divided by its height. A widget's position is the lower-left corner of
/// its box; a child's is relative to its container's inner origin. A box is a Vector of
/// (left, bottom, right, top).
class GLWidget {
public:
    /// Registers the widget under `name`, replacing an earlier one of that name. Without a
    /// theme it takes the one named "default".
    /// @param parent  not owned, may be null
    GLWidget(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme);

    // kept: the order of the virtual operations
    virtual ~GLWidget();
    /// Renames a tab; does nothing if the widget has no tabs.
    virtual void SetTabText(int index, std::string_view newText);
    /// Replaces the shown text. A text box edits a copy of its own: the next key that the user
    /// presses while it is edited brings back what the user wrote.
    virtual void SetText(std::string_view newText);
    /// Appends an item to a list.
    virtual bool AddText(std::string_view newText);
    /// Moves `child`, which sits at the inner origin, to this widget's centre.
    virtual bool Centre(GLWidget* child, bool inX, bool inY);
    /// @return whether this widget was clicked
    virtual bool MouseClick(bool left, bool middle, bool right) = 0;
    /// @param screen  window pixels from the top left
    virtual bool MouseMove(const Vector& screen);
    /// Takes the keys that were pressed in this update.
    virtual bool TextKeyPress(const KeyFlags& keys);
    /// @param x, y  in GUI units of the parent
    virtual bool MouseMove(float x, float y);
    /// Lets highlight and flash grow or fade for that time.
    virtual bool Update(int milliseconds);
    /// Draws at the current model-view position and changes nothing. Needs RenderWidgets around it.
    /// A class that overrides it overrides AddAppearance too.
    virtual void Render() = 0;
    /// Moves the widget. @return its new position
    virtual Vector operator+=(const Vector& offset);
    /// Whether at most one of the unique children of a container is active.
    virtual bool Unique();
    /// The class's name.
    virtual std::string GetType();
    /// Adds a child, which is not owned. The first of the unique children becomes the active one.
    /// @return false, with a line on standard error, if the child holds this widget
    virtual bool AddChild(GLWidget* child);
    /// The box that layouts and most clicks use, in the parent's coordinates.
    virtual Vector Getbbox();
    /// The area that children may use; all zero if there is none.
    virtual Vector GetValidArea();
    /// Grows to hold the children, and moves to an edge of the screen if the position asks for
    /// that. Called once per tree.
    virtual bool Solidify();
    /// Tells a unique widget that `other` became the active one.
    virtual void SetFocussed(GLWidget* other) = 0;
    /// Makes a tab; only tab windows can.
    virtual bool AddTab(int index, std::string_view title);
    /// Puts a widget on a tab; only tab windows can.
    virtual bool AddToTab(int index, GLWidget* widget);
    /// Whether the mouse is over this widget.
    virtual bool Within();
    /// Whether `widget` is this one or lies below it, even on a hidden tab.
    virtual bool Holds(const GLWidget* widget) const;
    /// The box within which Render leaves no pixel as it was, in the parent's coordinates. All
    /// zero if there is none.
    virtual Vector GetOpaqueBox() const;
    /// Adds every value that Render reads and that can change, with those of the children. Without
    /// an override the widget counts as changed in every frame, and all widgets are drawn in each.
    virtual void AddAppearance(Fingerprint& print);

    GLWidget(const GLWidget&) = delete;
    GLWidget& operator=(const GLWidget&) = delete;

    /// Makes the widget active. @return true
    bool Enable();
    /// Gives the widget the focus. @return true
    bool Focus();
    bool HasFocus() const { return focus; }
    /// Below -0.5: drawn after the siblings.
    float GetDepth() const { return depth; }

    // What the application polls, once per frame.
    /// Whether the widget was clicked since the last call.
    bool BeenClicked();
    /// Whether the value was changed since the last call.
    bool BeenChanged();
    /// The active flag: for a button, held down after a press over it.
    bool Clicked() const { return active; }
    /// A slider's value, 0 to 1.
    float GetLevel() const { return level; }
    /// Clamped to [0, 1].
    void SetLevel(float newLevel);
    /// Whether the mouse holds the knob or the window.
    bool Dragging() const { return dragging; }
    /// The selected item's text, or the empty string.
    const std::string& GetCurrentText() const;
    const std::string& GetText() const { return text; }
    const std::string& GetName() const { return name; }
    /// Null at the top.
    GLWidget* GetParent() const { return parent; }
    const Theme& GetTheme() const { return *theme; }
    const std::vector<std::string>& GetTexts() const { return texts; }
    const std::vector<GLWidget*>& GetChildren() const { return children; }

    // The application calls these once per event or frame. Each returns true.
    /// @param screen  window pixels from the top left
    static bool MouseMoveWidgets(const Vector& screen);
    static bool MouseClickWidgets(bool left, bool middle, bool right);
    static bool TextKeyPressWidgets(const KeyFlags& keys);
    /// @param milliseconds  since the last call
    static bool UpdateWidgets(int milliseconds);
    /// Draws all widgets into the current OpenGL context.
    static bool RenderWidgets();
    /// The fingerprint of all that RenderWidgets would draw. While it stays the same, so does every
    /// pixel, as long as the application leaves textures and glyphs as they were loaded.
    static std::uint64_t Appearance();

    /// The widget registered under `tag`, or null. With `complain`, an unknown tag is reported on
    /// standard error and fails an assertion.
    static GLWidget* GetByTag(std::string_view tag, bool complain = true);

    /// Shows a message box and returns at once; a later UpdateWidgets closes it and leaves the
    /// answer in `msgboxResult`. The other widgets get their events meanwhile. While a box is
    /// open, a further message is dropped.
    /// @param buttons  1 OK; 3 OK, Cancel; 12 Yes, No; 14 Yes, No, Cancel. Any other set has no
    ///     buttons: that box never closes.
    static bool MessageBox(const std::string& message, int buttons);

    /// Reads the toolkit configuration: font, sheet rectangles, fade rate. A value that is
    /// missing or malformed stays as it was.
    static bool Init(const std::string& path);
    /// Reads the toolkit configuration from a stream.
    static bool Init(std::istream& file);
    /// Builds the widgets of a layout file.
    static bool StartGUI(const std::string& path);
    /// @param path  the name of the file in messages
    static bool StartGUI(std::istream& file, const std::string& path);
    /// Frees nothing; Toolkit::Reset does. @return true
    static bool Quit();

    /// Registers a new theme with the built-in values and without a texture. An earlier theme of
    /// that name lives on for the widgets that draw with it.
    static Theme* NewTheme(std::string_view themeName);
    /// The theme of that name; on first use it is made and read from `file`.
    static Theme* ThemeNamed(std::string_view themeName, const std::string& file);

    /// Deletes a widget, at once or after the event that is under way. No other widget then has
    /// it as child or parent. Its tag goes back to the newest of the other widgets of that name,
    /// if there is one. Null is allowed.
    static void Destroy(GLWidget* widget);
    bool IsDestroyed() const { return destroyed; }
    /// Deletes every widget. Programs call Toolkit::Reset instead.
    static void DeleteAll();

    /// Exists while an event is handed to widgets. Widgets that are destroyed meanwhile
    /// are deleted at the end of the outermost of these objects, so that the operations of a
    /// widget can still use its fields.
    class Dispatch {
    public:
        Dispatch();
        ~Dispatch();
        Dispatch(const Dispatch&) = delete;
        Dispatch& operator=(const Dispatch&) = delete;
    };

    /// Calls `handle` with every widget of a list, except those that are added or destroyed
    /// meanwhile.
    template <typename Handle>
    static void ForEach(const std::vector<GLWidget*>& list, Handle handle) {
        const Dispatch dispatch;
        const std::size_t count = list.size();
        for (std::size_t i = 0; i < std::min(count, list.size()); ++i) {
            if (!list[i]->destroyed)
                handle(*list[i]);
        }
    }
    /// The same with every top-level widget. A widget that is taken out of `widgets` meanwhile is
    /// still called.
    template <typename Handle>
    static void ForEachAtTop(Handle handle) {
        const Dispatch dispatch;
        // A list of its own, because `widgets` may change meanwhile. Its memory is kept.
        std::vector<GLWidget*>& list = Toolkit::Get().atTop;
        const std::size_t first = list.size();
        list.insert(list.end(), widgets.begin(), widgets.end());
        const std::size_t end = list.size();
        for (std::size_t i = first; i < end; ++i) {
            if (!list[i]->destroyed)
                handle(*list[i]);
        }
        list.resize(first);
    }

    // Shared by all widgets: fields of the one Toolkit, which says what they mean.
    using TagMap = Toolkit::TagMap;
    using ThemeMap = Toolkit::ThemeMap;
    static TagMap& tags;
    static ThemeMap& themes;
    static std::list<GLWidget*>& widgets;
    static FontRender& font;
    static std::uint32_t& fontLoads;
    static std::int32_t (&viewport)[4];
    static std::uint32_t& msgboxResult;  ///< every widget's construction clears it
    static bool& rendering;
    static float& fadeRate;
    static float& guiScale;  ///< S above
    static Theme*& currentTheme;
    static Vector& optionRect;
    static Vector& optionMarkRect;
    static Vector& checkRect;
    static Vector& checkMarkRect;
    static Vector& sliderRect;

    /// Half the screen's width in GUI units; half its height is `guiScale`.
    static float HalfWidth();
    /// Window pixels per GUI unit.
    static float PixelsPerUnit();

protected:
    /// At or below this a highlight or a flash has faded out.
    static constexpr float kFaded = 0.0001f;

    /// The mouse's buttons.
    struct Buttons {
        bool left = false;
        bool middle = false;
        bool right = false;
    };

    GLWidget* parent;  // not owned
    std::vector<std::string> texts;
    std::int32_t current = 0;  ///< selected item of `texts`
    std::int32_t age = 0;      ///< milliseconds
    float depth = 0.0f;        ///< below -0.5: drawn after the siblings
    float highlight = 0.0f;    ///< 0 to 1
    float flash = 0.0f;        ///< 0 to 1
    float level = 0.0f;        ///< 0 to 1
    Buttons buttons;           ///< as of the last click event
    Vector position;           ///< lower left corner, in the parent's inner coordinates
    Vector size;               ///< width and height
    Vector mouse;              ///< in the parent's coordinates
    bool focus = false;
    bool active = false;   ///< held, ticked or chosen
    bool clicked = false;  ///< until BeenClicked is called
    bool changed = false;  ///< until BeenChanged is called
    std::string text;
    Theme* theme;  // not owned
    std::string name;
    bool dragging = false;
    std::vector<GLWidget*> children;  // not owned; in the order of events

    /// Adds what nearly every kind draws with: class, position, size, theme and, as it is drawn,
    /// the highlight.
    void AddBase(Fingerprint& print) const;

    using Gone = std::set<const GLWidget*>;
    /// Removes every link to widgets that are about to be deleted. One of them may be this one.
    virtual void Forget(const Gone& gone);

private:
    static void RenderVisible(GLWidget& ground);
    static void UnlinkAndDelete(const std::vector<GLWidget*>& all);

    bool destroyed = false;                      ///< will be deleted after the event
    std::list<GLWidget*>::iterator livingPlace;  ///< in Toolkit::living
};
