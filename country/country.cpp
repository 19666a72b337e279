// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/country.h"

#include <algorithm>
#include <cmath>
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

/// Adds a trade to its deal.
/// @param goods  below 0 if the country gave them
void Book(Deal& bought, Deal& sold, float price, float goods) {
    const double amount = static_cast<double>(goods);
    const double doubloons = static_cast<double>(price * goods);
    Deal& deal = amount < 0.0 ? sold : bought;
    deal.goods += std::fabs(amount);
    deal.doubloons += std::fabs(doubloons);
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
    trades = {};
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
    Book(trades.livestockBought, trades.livestockSold, partner->livestockSellPrice,
         -livestockAmount);
    Book(trades.grainBought, trades.grainSold, partner->grainSellPrice, -grainAmount);
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
    Book(trades.livestockBought, trades.livestockSold, partner->livestockBuyPrice, livestockAmount);
    Book(trades.grainBought, trades.grainSold, partner->grainBuyPrice, grainAmount);
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
