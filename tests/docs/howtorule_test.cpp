// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The advice on the game's tab "How to rule" keeps a country alive.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "country/rates.h"
#include "tools/countrysim/campaign.h"

namespace {

constexpr std::int64_t kWeeks = 200;

/// The shares and the level that the first step of the tab names, as the player sets them.
Policy AdviceOf(const std::string& layout) {
    std::ifstream file(layout);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    static const std::regex kAdvice(
        "Label howtosteps .* 1\\. Before the first week: justice (0\\.[0-9]+), "
        "doctors ([0-9]+)%, farmers ([0-9]+)%, butchers ([0-9]+)%\\.");
    std::smatch found;
    Policy policy;
    if (!std::regex_search(text, found, kAdvice)) {
        ADD_FAILURE() << layout << " has no such advice";
        return policy;
    }
    const auto share = [&](Profession profession, std::size_t index) {
        policy.shares[static_cast<std::size_t>(profession)] = std::stof(found[index]) / 100.0f;
    };
    policy.justice = std::stof(found[1]);
    share(Profession::Doctors, 2);
    share(Profession::Farmers, 3);
    share(Profession::Butchers, 4);
    return policy;
}

/// How many of 1000 countries live to the end.
/// @param interval  weeks after which the farmers and the butchers are set again; 0 for never
int Alive(const Policy& policy, std::int64_t interval) {
    Campaign campaign;
    campaign.weeks = static_cast<double>(kWeeks);
    campaign.step = kSecondsPerWeek;
    campaign.policy = policy;
    for (std::int64_t week = interval; interval > 0 && week < kWeeks; week += interval) {
        campaign.changes.push_back({week + 1, Lever::Farmers, policy.shares[0]});
        campaign.changes.push_back({week + 1, Lever::Butchers, policy.shares[1]});
    }
    int alive = 0;
    for (campaign.seed = 1; campaign.seed <= 1000; ++campaign.seed)
        alive += Summarise(campaign).weeks >= kWeeks ? 1 : 0;
    return alive;
}

class HowToRuleTest : public testing::TestWithParam<const char*> {};

TEST_P(HowToRuleTest, FollowedAsWrittenItKeepsNearlyAllCountriesAlive) {
    EXPECT_GE(Alive(AdviceOf(GetParam()), 4), 950);
}

TEST_P(HowToRuleTest, ItAlsoHelpsPlayersWhoForgetToSetTheWorkersAgain) {
    EXPECT_GE(Alive(AdviceOf(GetParam()), 0), 950);
}

TEST_P(HowToRuleTest, JusticeNeedNotBeExact) {
    Policy policy = AdviceOf(GetParam());
    for (const float justice : {*policy.justice - 0.01f, *policy.justice + 0.01f}) {
        policy.justice = justice;
        EXPECT_GE(Alive(policy, 4), 950) << justice;
    }
}

TEST(HowToRule, WithoutTheAdviceNoCountryLives) {
    EXPECT_EQ(Alive(Policy{}, 0), 0);
}

INSTANTIATE_TEST_SUITE_P(Layouts, HowToRuleTest,
                         testing::Values("data/my.gui.debug", "data/sets/large/my.gui.debug"));

}  // namespace
