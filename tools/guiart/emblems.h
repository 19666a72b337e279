// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "quarn2/texturedata.h"

/// Light pixels become white and dark ones black.
void MakeBlackAndWhite(TextureData& picture);

// Small pictures: a light figure on the red of sealing wax.

TextureData DrawFarmer();     ///< a sheaf
TextureData DrawButcher();    ///< a cleaver
TextureData DrawEducator();   ///< an open book
TextureData DrawWarrior();    ///< a shield and a sword
TextureData DrawDoctor();     ///< a staff and a serpent
TextureData DrawLivestock();  ///< the head of an ox
TextureData DrawGrain();      ///< an ear of grain
TextureData DrawLaw();        ///< a pair of scales

/// The banner with the arms of Merovinska, on parchment that themes colour.
TextureData DrawArms();

// News, told apart by their shapes: a light figure on a tile.
TextureData DrawAlarm();  ///< a triangle with an exclamation mark
TextureData DrawCalm();   ///< a sealed letter

/// A line with a leaf at each side, on newsprint.
TextureData DrawOrnament();

// The signs of the buttons beside sliders: light on brass, with a raised edge.
TextureData DrawMinus();
TextureData DrawPlus();

// Pictures in black and white, or black on yellow for what can be pressed.
TextureData DrawPlainArms();
TextureData DrawPlainOrnament();
TextureData DrawPlainMinus();
TextureData DrawPlainPlus();
/// A picture of light figures on a dark tile, white on black.
template <TextureData (*draw)()>
TextureData DrawPlain() {
    TextureData picture = draw();
    MakeBlackAndWhite(picture);
    return picture;
}

/// A wax seal, on the same parchment. Its middle is smooth, because a caption stands there.
TextureData DrawSeal();
