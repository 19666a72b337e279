// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/military.h"

#include "country/random.h"
#include "country/rates.h"
#include "quarn2/trace.h"

float Military::Cost(float seconds) const {
    TraceFrame frame("Cost", "Military");
    Assert("military", __LINE__, "seconds >= 0.0f", seconds >= 0.0f);
    return (patrolling + 1.0f) * payRate * recruits * seconds / kSecondsPerYear;
}

void Military::Process(float seconds) {
    TraceFrame frame("Process", "Military");
    Assert("military", __LINE__, "seconds >= 0.0f", seconds >= 0.0f);
    if (training) {
        const double roll = RollUnit();
        averageSkill = static_cast<float>(averageSkill + (roll * 0.04f + 0.01f) * payRate);
    }
    if (recruiting) {
        const double roll = RollUnit();
        recruits = static_cast<float>(recruits + (roll * 200.0f + 100.0f) * recruits / 1000.0f);
    }
}
