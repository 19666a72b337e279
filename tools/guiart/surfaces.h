// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include "quarn2/texturedata.h"

/// Where a sheet lies on the desk, in pixels of the screen from its upper left corner.
struct SheetPlace {
    std::string_view tag;  ///< of the widget that shows it
    int left, top, right, bottom;
};

/// The sheets that cast a shadow, in the game's layout and in the one with large text.
inline constexpr SheetPlace kSheetPlaces[] = {
    {"bar", 8, 6, 792, 34},
    {"newssheet", 8, 40, 792, 76},
    {"peoplesheet", 8, 84, 308, 340},
    {"foodsheet", 316, 84, 558, 340},
    {"tradesheet", 566, 84, 792, 340},
    {"tablesheet", 8, 348, 704, 592},
    {"weeksheet", 712, 348, 792, 592},
};
inline constexpr SheetPlace kLargeSheetPlaces[] = {
    {"bar", 8, 6, 792, 44},
    {"newssheet", 8, 52, 792, 108},
    {"tablesheet", 8, 116, 792, 500},
    {"storesheet", 8, 508, 792, 592},
};

/// A desk of dark boards for the whole screen, with the shadows of the sheets.
TextureData DrawDesk();
TextureData DrawLargeDesk();

/// Nearly white, so that themes can colour it: mottled, and darker towards the edges.
TextureData DrawParchment();

/// Paler and plainer than parchment, with a line below the newspaper's title.
TextureData DrawNewsprint();

/// A strip of red cloth between two seams.
TextureData DrawCloth();
