// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// A widget whose protected fields a test can use.
template <class Widget>
class Opened : public Widget {
public:
    using Widget::active;
    using Widget::buttons;
    using Widget::changed;
    using Widget::children;
    using Widget::depth;
    using Widget::dragging;
    using Widget::flash;
    using Widget::focus;
    using Widget::highlight;
    using Widget::level;
    using Widget::mouse;
    using Widget::position;
    using Widget::size;
    using Widget::text;
    using Widget::texts;
    using Widget::Widget;
};
