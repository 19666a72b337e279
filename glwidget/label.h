// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "glwidget/glwidget.h"

/// `Label text`, the rest of the line: static text, broken into lines at the widget's width. A text
/// that says what it said before costs a comparison; its breaks are found again only when something
/// they depend on changed.
class Label : public GLWidget {
public:
    /// Sized for the given text. Writes lines, height and text on standard error.
    Label(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
          const std::string& text);

    /// Replaces every "%%" by "%". The size stays.
    void SetText(std::string_view newText) override;
    /// @return true
    bool MouseClick(bool, bool, bool) override { return true; }
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "Label"; }
    void SetFocussed(GLWidget*) override {}

    /// The text with its line breaks, as it is drawn.
    const std::string& Wrapped();

private:
    /// What the line breaks depend on besides the text.
    struct Measure {
        float width = 0.0f;
        float glyphWidth = 0.0f;
        std::uint32_t fontLoads = 0;

        bool operator==(const Measure&) const = default;
    };

    std::string given;        // the last argument of SetText, from which `text` was made
    bool givenKnown = false;  // SetText has been called

    std::string wrapped;
    std::uint32_t breaks = 0;  // line ends in `wrapped`
    Measure measure;
    bool wrappedKnown = false;
};
