// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/country.h"

#include <algorithm>
#include <cstdlib>

#include "country/random.h"
#include "country/rates.h"
#include "quarn2/trace.h"

namespace {

constexpr float kResale = 0.8f;  // sell price as a fraction of the buy price

float RollPrice() {
    const double roll = RollUnit();
    return static_cast<float>(roll * 0.5f + 1.0f);
}

/// What the funds buy at the cheaper of two prices, at a level of 1.
float Order(float funds, float sellPrice, float buyPrice, float level) {
    return funds / std::min(sellPrice, buyPrice) * level;
}

}  // namespace

Country::Country(const std::string& countryName, int people)
    : Population(people), name(countryName) {
    TraceFrame frame("Country", "Country");
    Assert("country", __LINE__, "n != \"\"", !name.empty());
    Assert("country", __LINE__, "population >= 0", people >= 0);
    funds = static_cast<float>(std::rand() % 100 + 487);
    livestockBuyPrice = RollPrice();
    grainBuyPrice = RollPrice();
    livestockSellPrice = livestockBuyPrice * kResale;
    grainSellPrice = grainBuyPrice * kResale;
}

void Country::Process(float seconds) {
    TraceFrame frame("Process", "Country");
    Assert("country", __LINE__, "seconds >= 0.0f", seconds >= 0.0f);
    funds += Income(seconds);
    funds -= military.Cost(seconds);
    Population::Process(seconds);
}

float Country::Income(float seconds) const {
    TraceFrame frame("Income", "Country");
    const float wealth = 1.0f + 0.8f * economy.wealthFactor;
    const float upper = ((0.2f * population) * economy.upperIncome) * economy.taxRate * wealth;
    const float lower = ((0.8f * population) * economy.lowerIncome) * economy.taxRate * wealth;
    return OverTick((upper + lower) / kWeeksPerYear, seconds);
}

void Country::Sell(float livestockAmount, float grainAmount, const Country* partner) {
    TraceFrame frame("Sell", "Country");
    Assert("country", __LINE__, "c != 0", partner != nullptr);
    livestock.amount -= livestockAmount;
    grain.amount -= grainAmount;
    funds += partner->livestockSellPrice * livestockAmount;
    funds += partner->grainSellPrice * grainAmount;
}

void Country::Buy(float livestockAmount, float grainAmount, float fineGoods,
                  const Country* partner) {
    TraceFrame frame("Buy", "Country");
    Assert("country", __LINE__, "c != 0", partner != nullptr);
    if (!BuyPossible(livestockAmount, grainAmount, fineGoods, partner))
        return;
    livestock.amount += livestockAmount;
    grain.amount += grainAmount;
    // kept: the payment uses the partner's buy prices, the check its lower sell prices
    funds -= partner->livestockBuyPrice * livestockAmount;
    funds -= partner->grainBuyPrice * grainAmount;
}

bool Country::BuyPossible(float livestockAmount, float grainAmount, float fineGoods,
                          const Country* partner) {
    TraceFrame frame("BuyPossible", "Country");
    Assert("country", __LINE__, "c != 0", partner != nullptr);
    if (fineGoods > 0.0f && !tradePartners[partner])
        return false;
    return funds >= partner->livestockSellPrice * livestockAmount
                        + partner->grainSellPrice * grainAmount + fineGoods;
}

float Country::LivestockOrder(const Country& partner, float level) const {
    TraceFrame frame("LivestockOrder", "Country");
    return Order(funds, partner.livestockSellPrice, partner.livestockBuyPrice, level);
}

float Country::GrainOrder(const Country& partner, float level) const {
    TraceFrame frame("GrainOrder", "Country");
    return Order(funds, partner.grainSellPrice, partner.grainBuyPrice, level);
}

float Country::FineGoodsOrder(float level) const {
    TraceFrame frame("FineGoodsOrder", "Country");
    return level * funds;
}
