// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "country/chronicle.h"

class Label;

/// Shows what happened: the news of the chronicle, and lists of the newest entries. The layout need
/// not have any of these widgets. A frame in which nothing happened allocates nothing.
class NewsDisplay {
public:
    /// Call it after the newspaper's label has been written.
    void Show(const Chronicle& chronicle);

private:
    /// A widget that is moved out of the screen while it is not shown.
    class Picture {
    public:
        void Show(std::string_view tag, bool show);

    private:
        bool shown = true;
    };

    void WriteNews(const Chronicle::Entry* news, Label* label);
    void ShowPaperNews(const Chronicle& chronicle, bool isChanged);

    Picture alarm;
    Picture calm;
    std::string newsText;
    std::string chronicleText;
    std::string paperText;
    std::uint64_t entriesSeen = 0;
    std::optional<std::pair<Chronicle::Event, std::int64_t>> newsSeen;  // event and second
    bool isFirst = true;
    std::size_t linesLeft = 0;  ///< by the newspaper's story, of its room
};
