// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiart/gallery.h"

#include "tools/guiart/emblems.h"
#include "tools/guiart/surfaces.h"
#include "tools/guisheet.h"

namespace {

constexpr GalleryPicture kPictures[] = {
    {"gui.tga", DrawGuiSheet},
    {"desk.tga", DrawDesk},
    {"parchment.tga", DrawParchment},
    {"newsprint.tga", DrawNewsprint},
    {"cloth.tga", DrawCloth},
    {"arms.tga", DrawArms},
    {"seal.tga", DrawSeal},
    {"farmer.tga", DrawFarmer},
    {"butcher.tga", DrawButcher},
    {"educator.tga", DrawEducator},
    {"warrior.tga", DrawWarrior},
    {"doctor.tga", DrawDoctor},
    {"livestock.tga", DrawLivestock},
    {"grain.tga", DrawGrain},
    {"law.tga", DrawLaw},
    {"sets/large/desk.tga", DrawLargeDesk},
};

}  // namespace

std::span<const GalleryPicture> Gallery() {
    return kPictures;
}
