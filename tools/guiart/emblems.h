// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "quarn2/texturedata.h"

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

/// A wax seal, on the same parchment. Its middle is smooth, because a caption stands there.
TextureData DrawSeal();
