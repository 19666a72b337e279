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
    {"alarm.tga", DrawAlarm},
    {"calm.tga", DrawCalm},
    {"ornament.tga", DrawOrnament},
    {"minus.tga", DrawMinus},
    {"plus.tga", DrawPlus},
    {"sets/large/desk.tga", DrawLargeDesk},
    {"sets/high-contrast/farmer.tga", DrawPlain<DrawFarmer>},
    {"sets/high-contrast/butcher.tga", DrawPlain<DrawButcher>},
    {"sets/high-contrast/educator.tga", DrawPlain<DrawEducator>},
    {"sets/high-contrast/warrior.tga", DrawPlain<DrawWarrior>},
    {"sets/high-contrast/doctor.tga", DrawPlain<DrawDoctor>},
    {"sets/high-contrast/livestock.tga", DrawPlain<DrawLivestock>},
    {"sets/high-contrast/grain.tga", DrawPlain<DrawGrain>},
    {"sets/high-contrast/law.tga", DrawPlain<DrawLaw>},
    {"sets/high-contrast/alarm.tga", DrawPlain<DrawAlarm>},
    {"sets/high-contrast/calm.tga", DrawPlain<DrawCalm>},
    {"sets/high-contrast/arms.tga", DrawPlainArms},
    {"sets/high-contrast/ornament.tga", DrawPlainOrnament},
    {"sets/high-contrast/minus.tga", DrawPlainMinus},
    {"sets/high-contrast/plus.tga", DrawPlainPlus},
};

}  // namespace

std::span<const GalleryPicture> Gallery() {
    return kPictures;
}
