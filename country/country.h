// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>
#include <vector>

#include "country/economy.h"
#include "country/population.h"

/// Goods that changed hands, and the doubloons paid for them.
struct Deal {
    double goods = 0.0;
    double doubloons = 0.0;
};

/// What a country traded. Neither value of a deal is ever below 0: a negative purchase is a sale,
/// and a negative sale is a purchase.
struct Trades {
    Deal livestockBought;
    Deal livestockSold;
    Deal grainBought;
    Deal grainSold;
};

/// A people with its treasury, its prices and its name. Money is in doubloons. Prices are set
/// when the country is made. Trading with a country does not change that country.
class Country : public Population {
public:
    Economy economy;
    float livestockBuyPrice;      ///< per head, what a buyer pays this country
    float grainBuyPrice;          ///< per unit, what a buyer pays this country
    float fineGoodsPrice = 5.0f;  ///< nothing reads it
    float livestockSellPrice;     ///< per head, what this country pays a seller
    float grainSellPrice;         ///< per unit, what this country pays a seller
    float funds;                  ///< may go below 0
    Trades trades;                ///< since the last tick; no rule reads it
    std::string name;
    std::vector<Country*> continent;  ///< every country of the game, this one too; not owned
    /// Countries that sell fine goods to this one. One that is missing counts as false.
    std::map<const Country*, bool> tradePartners;

    /// Rolls the treasury and the two buying prices, in this order.
    Country(const std::string& name, int population);
    Country(const Country&) = delete;  // other countries keep its address
    Country& operator=(const Country&) = delete;

    /// One tick of `seconds` of game time: income, upkeep, and all that Population does.
    void Process(float seconds);

    /// Takes the amounts from the stores without checking that they are there: a stock may stay
    /// below 0 until the next tick.
    void Sell(float livestockAmount, float grainAmount, const Country* partner);

    /// Does nothing if BuyPossible refuses. Fine goods are neither paid for nor stored.
    void Buy(float livestockAmount, float grainAmount, float fineGoods, const Country* partner);

    /// Whether the funds are enough at the partner's sell prices and, if fine goods are wanted,
    /// whether the partner sells them to this country. Buy pays the buy prices, which are higher.
    bool BuyPossible(float livestockAmount, float grainAmount, float fineGoods,
                     const Country* partner);

    /// The size of an order, to buy or to sell, from a slider's level in [0, 1]. It follows from
    /// the funds and not from the stock, even if it is a sale.
    float LivestockOrder(const Country& partner, float level) const;
    float GrainOrder(const Country& partner, float level) const;
    /// In doubloons.
    float FineGoodsOrder(float level) const;

private:
    float Income(float seconds) const;
};
