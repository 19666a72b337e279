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
    {"peoplesheet", 8, 42, 308, 344},
    {"papersheet", 316, 42, 558, 344},
    {"tradesheet", 566, 42, 792, 344},
    {"figuresheet", 8, 352, 308, 592},
    {"tablesheet", 316, 352, 704, 592},
    {"weeksheet", 712, 352, 792, 592},
};
inline constexpr SheetPlace kLargeSheetPlaces[] = {
    {"bar", 8, 6, 792, 44},
    {"tablesheet", 8, 52, 520, 592},
    {"papersheet", 528, 52, 792, 512},
    {"weeksheet", 528, 520, 792, 592},
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
