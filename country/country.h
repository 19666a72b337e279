// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>
#include <vector>

#include "country/economy.h"
#include "country/population.h"

/// A people with its treasury, its prices and its name. Money is in doubloons. Prices are fixed
/// when the country is made; trading with a country changes nothing in it.
class Country : public Population {
public:
    Economy economy;
    float livestockBuyPrice;      ///< per head, what a buyer pays this country
    float grainBuyPrice;          ///< per unit, what a buyer pays this country
    float fineGoodsPrice = 5.0f;  ///< read by nothing
    float livestockSellPrice;     ///< per head, what this country pays a seller
    float grainSellPrice;         ///< per unit, what this country pays a seller
    float funds;                  ///< may go below 0
    std::string name;
    std::vector<Country*> continent;  ///< every country of the game, this one too; not owned
    /// Countries that sell fine goods to this one. One that is missing counts as false.
    std::map<const Country*, bool> tradePartners;

    /// Draws the treasury and the two buying prices, in this order.
    Country(const std::string& nameOfCountry, int people);
    Country(const Country&) = delete;  // others refer to it
    Country& operator=(const Country&) = delete;

    /// One tick of `seconds` of game time: income, upkeep, and all that Population does.
    void Process(float seconds);

    /// Hands over the amounts without asking whether they are in store: a stock may stay below 0
    /// until its next tick.
    void Sell(float livestockAmount, float grainAmount, const Country* partner);

    /// Does nothing when BuyPossible refuses. Fine goods are neither paid for nor stored.
    void Buy(float livestockAmount, float grainAmount, float fineGoods, const Country* partner);

    /// Whether the funds last at the prices that the partner pays, and the partner sells fine
    /// goods to this country if any are wanted. Buy pays more than this asks for.
    bool BuyPossible(float livestockAmount, float grainAmount, float fineGoods,
                     const Country* partner);

    /// The size of an order, for buying and selling alike, from a slider's level in [0, 1]. Even
    /// a sale goes by the funds and not by the stock.
    float LivestockOrder(const Country& partner, float level) const;
    float GrainOrder(const Country& partner, float level) const;
    /// In doubloons.
    float FineGoodsOrder(float level) const;

private:
    float Income(float seconds) const;
};
