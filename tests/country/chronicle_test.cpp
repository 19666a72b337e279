// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/chronicle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "country/rates.h"
#include "country/world.h"
#include "tests/country/plaincountry.h"
#include "tests/country/rolls.h"
#include "tests/support/allocations.h"

namespace {

using Event = Chronicle::Event;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr float kWeek = kSecondsPerWeek;

/// A country whose figures a test sets, and the chronicle of it.
class ChronicleTest : public testing::Test {
protected:
    /// What an advance adds whose tick is `tick(country)`.
    template <typename Tick>
    std::vector<std::string> After(Tick tick, long seconds = 604800) {
        const std::uint64_t count = chronicle.Count();
        chronicle.NoteBefore(country, date);
        country.trades = {};
        tick(country);
        date.Advance(seconds);
        chronicle.NoteAfter(country, date, seconds);
        return Sentences(chronicle.Count() - count);
    }

    /// The newest sentences, the oldest of them first.
    std::vector<std::string> Sentences(std::uint64_t number) const {
        std::vector<std::string> sentences;
        for (std::uint64_t index = number; index > 0; --index) {
            sentences.emplace_back();
            chronicle.Newest(index - 1).WriteTo(sentences.back());
        }
        return sentences;
    }

    std::vector<std::string> AfterNothing() {
        return After([](Country&) {});
    }

    Country country{"Merovinska", 38685};
    Country partner{"Thrakoup", 30000};
    Date date{"1358/05/16 00:00:00"};
    Chronicle chronicle{country};
};

TEST_F(ChronicleTest, AdvanceWithoutAnEventAddsNoEntry) {
    EXPECT_THAT(AfterNothing(), IsEmpty());
    EXPECT_EQ(chronicle.Size(), 0u);
    EXPECT_EQ(chronicle.News(), nullptr);
}

TEST_F(ChronicleTest, ChangeOfWhatThePeopleSayOfTheirFoodIsNotedOnce) {
    const auto say = [&](FoodState state) {
        return After([=](Country& changed) { changed.foodState = state; });
    };
    EXPECT_THAT(say(FoodState::StarvingFast), ElementsAre("The people are starving fast!"));
    EXPECT_THAT(say(FoodState::StarvingFast), IsEmpty());
    EXPECT_THAT(say(FoodState::StarvingSlowly), ElementsAre("The people are starving slowly!"));
    EXPECT_THAT(say(FoodState::Hungry), ElementsAre("The people are hungry!"));
    EXPECT_THAT(say(FoodState::Content), ElementsAre("The people have enough to eat."));
    EXPECT_THAT(say(FoodState::WellFed), ElementsAre("The people are well fed!"));
    EXPECT_THAT(say(FoodState::Gorging), ElementsAre("The people are gorging themselves!"));
}

TEST_F(ChronicleTest, EmptyStoresAndFilledStoresAreNoted) {
    EXPECT_THAT(After([](Country& changed) { changed.grain.amount = 0.0f; }),
                ElementsAre("The granary is empty."));
    EXPECT_THAT(AfterNothing(), IsEmpty());
    EXPECT_THAT(After([](Country& changed) { changed.livestock.amount = -3.0f; }),
                ElementsAre("The herd is gone."));
    EXPECT_THAT(After([](Country& changed) { changed.livestock.amount = 0.0f; }), IsEmpty());
    EXPECT_THAT(After([](Country& changed) {
                    changed.grain.amount = 1234.5678f;
                    changed.livestock.amount = 1.0f;
                }),
                ElementsAre("The herd has 1 head again.", "The granary has 1235 units again."));
}

TEST_F(ChronicleTest, StoreWithLessThanOneUnitDoesNotCountAsFilledAgain) {
    After([](Country& changed) { changed.grain.amount = 0.0f; });
    EXPECT_THAT(After([](Country& changed) { changed.grain.amount = 0.99f; }), IsEmpty());
    EXPECT_THAT(After([](Country& changed) { changed.grain.amount = 0.0f; }), IsEmpty());
    EXPECT_THAT(After([](Country& changed) { changed.grain.amount = 1.0f; }),
                ElementsAre("The granary has 1 unit again."));
    EXPECT_THAT(After([](Country& changed) { changed.grain.amount = 0.01f; }), IsEmpty());
}

TEST_F(ChronicleTest, HerdOfWhichTheButchersTakeMoreThanAThirdIsSlaughtered) {
    country.SetShare(Profession::Butchers, 0.5f);
    country.Normalise(Profession::Butchers);  // 3868.5 heads a week need a herd of 11605.5
    country.livestock.amount = 11600.0f;
    EXPECT_THAT(After([](Country& changed) { changed.livestock.Process(kWeek); }),
                ElementsAre("The butchers took more than a third of the herd. All 11600 heads were "
                            "slaughtered."));
    EXPECT_EQ(country.livestock.amount, 0.0f);
    EXPECT_THAT(After([](Country& changed) { changed.livestock.Process(kWeek); }), IsEmpty());
}

TEST_F(ChronicleTest, HerdThatThePlayerLeavesToFewerButchersIsNotSlaughtered) {
    country.Normalise(Profession::Butchers);
    AfterNothing();
    country.SetShare(Profession::Butchers, 0.1f);
    country.Normalise(Profession::Butchers);
    EXPECT_THAT(AfterNothing(), IsEmpty());
}

TEST_F(ChronicleTest, ButchersOfALargeHerdAreLimitedOrShrinkIt) {
    country.livestock.amount = 200000.0f;
    country.livestock.production = 0.21f;  // 127008 heads a week
    EXPECT_THAT(After([](Country& changed) { changed.livestock.Process(kWeek); }),
                ElementsAre("The butchers wanted more than a third of the herd. Now they raise "
                            "66528 heads a week."));
    country.livestock.amount = 100000.0f;
    country.livestock.production = 0.08f;
    EXPECT_THAT(After([](Country& changed) { changed.livestock.Process(kWeek); }),
                ElementsAre("The butchers wanted more than a third of the herd. Now they slaughter "
                            "12096 heads a week."));
    EXPECT_GT(country.livestock.amount, 0.0f);
}

TEST_F(ChronicleTest, EndOfTheGraceIsNotedOnce) {
    country.elapsed = Population::kGracePeriod;
    EXPECT_THAT(AfterNothing(), IsEmpty());
    const auto nextSecond = [](Country& changed) { changed.elapsed += 10.0f; };
    EXPECT_THAT(After(nextSecond),
                ElementsAre("The year of grace is over. Famine, plague and rebellion can begin."));
    EXPECT_THAT(After(nextSecond), IsEmpty());
}

TEST_F(ChronicleTest, FamineIsNotedWithItsWeeksAndItsDead) {
    EXPECT_THAT(After([](Country& changed) {
                    changed.famineTime = 18.26f * kWeek;
                    ++changed.disasters.famines;
                }),
                ElementsAre("A famine begins. It will last 18.3 weeks."));
    EXPECT_THAT(After([](Country& changed) { changed.disasters.deadOfFamine += 1001.7; }),
                IsEmpty());
    EXPECT_THAT(After([](Country& changed) {
                    changed.famineTime = 20.0f * kWeek;
                    ++changed.disasters.famines;
                    changed.disasters.deadOfFamine += 1000.0;
                }),
                ElementsAre("The famine goes on. It will last 20 weeks more."));
    EXPECT_THAT(After([](Country& changed) { changed.famineTime = 0.0f; }, 302400),
                ElementsAre("The famine is over. It lasted 2.5 weeks and killed 2002 people."));
    EXPECT_THAT(AfterNothing(), IsEmpty());
}

TEST_F(ChronicleTest, PlagueIsNotedWithItsWeeksAndItsDead) {
    country.disasters.deadOfPlague = 77.0;  // of an earlier one
    EXPECT_THAT(After([](Country& changed) {
                    changed.plagueTime = 8.0f * kWeek;
                    ++changed.disasters.plagues;
                }),
                ElementsAre("A plague begins. If a fifth of the people are doctors, it will last "
                            "8 weeks."));
    EXPECT_THAT(After([](Country& changed) {
                    changed.plagueTime = 9.0f * kWeek;
                    ++changed.disasters.plagues;
                }),
                ElementsAre("The plague begins again. If a fifth of the people are doctors, it "
                            "will last 9 weeks."));
    EXPECT_THAT(After([](Country& changed) {
                    changed.plagueTime = 0.0f;
                    changed.disasters.deadOfPlague += 1.0;
                }),
                ElementsAre("The plague is over. It lasted 2 weeks and killed 1 person."));
}

TEST_F(ChronicleTest, RebellionIsNotedWithTheDeadOfBothDisasters) {
    EXPECT_THAT(After([](Country& changed) { changed.rebellion = true; }),
                ElementsAre("The people rebel. Farmers and butchers stop working."));
    EXPECT_THAT(After([](Country& changed) {
                    changed.disasters.deadOfPlague += 300.0;
                    changed.disasters.deadOfFamine += 1000.0;
                }),
                IsEmpty());
    EXPECT_THAT(After([](Country& changed) { changed.rebellion = false; }),
                ElementsAre("The rebellion is over. It lasted 2 weeks. Famine and plague killed "
                            "1300 people in it."));
}

TEST_F(ChronicleTest, EveryDisasterEndsWhenNobodyIsLeftAndNothingIsNotedAfterwards) {
    After([](Country& changed) {
        changed.rebellion = true;
        changed.famineTime = changed.plagueTime = 18.0f * kWeek;
        ++changed.disasters.famines;
        ++changed.disasters.plagues;
    });
    EXPECT_THAT(After([](Country& changed) {
                    changed.population = -2.0f;
                    changed.foodState = FoodState::StarvingFast;
                    changed.grain.amount = 0.0f;
                }),
                ElementsAre("The rebellion is over. It lasted 1 week. Famine and plague killed 0 "
                            "people in it.",
                            "The plague is over. It lasted 1 week and killed 0 people.",
                            "The famine is over. It lasted 1 week and killed 0 people.",
                            "Nobody is left in the country."));
    country.Sell(10.0f, 0.0f, &partner);
    EXPECT_THAT(After([](Country& changed) { changed.livestock.amount = 0.0f; }), IsEmpty());
}

TEST_F(ChronicleTest, DebtIsNotedWhenItBeginsAndWhenItEnds) {
    EXPECT_THAT(After([](Country& changed) { changed.funds = -0.26f; }),
                ElementsAre("The treasury has a debt of 0.3 doubloons."));
    EXPECT_THAT(After([](Country& changed) { changed.funds = -500.0f; }), IsEmpty());
    EXPECT_THAT(After([](Country& changed) { changed.funds = 1.0f; }),
                ElementsAre("The debt is paid. The treasury has 1 doubloon."));
    country.funds = -125.4f;  // by a trade
    EXPECT_THAT(After([](Country& changed) { changed.funds = 20.0f; }),
                ElementsAre("The treasury has a debt of 125 doubloons.",
                            "The debt is paid. The treasury has 20 doubloons."));
}

TEST_F(ChronicleTest, TradesAreNotedBeforeTheTickWithTheDateOfTheTrade) {
    partner.livestockBuyPrice = 1.0f;
    partner.livestockSellPrice = 0.8f;
    partner.grainSellPrice = 0.8f;
    country.funds = 700.0f;
    country.Buy(625.0f, 0.0f, 0.0f, &partner);
    country.Sell(0.0f, 1000.0f, &partner);
    country.Sell(0.0f, 10.0f, &partner);
    EXPECT_THAT(AfterNothing(),
                ElementsAre("The country sold 1010 units of grain for 808 doubloons.",
                            "The country bought 625 heads of livestock for 625 doubloons."));
    EXPECT_EQ(chronicle.Newest(0).date.Text(), "1358/5/16 0:0:0");
    EXPECT_THAT(AfterNothing(), IsEmpty());
    country.Sell(1.0f, 0.0f, &partner);
    country.Buy(0.0f, 0.04f, 0.0f, &partner);
    const std::vector<std::string> sentences = AfterNothing();
    ASSERT_EQ(sentences.size(), 2u);
    EXPECT_EQ(sentences[0].find("The country sold 1 head of livestock for "), 0u);
    EXPECT_EQ(sentences[1].find("The country bought 0 units of grain for "), 0u);
}

TEST_F(ChronicleTest, EntryHasTheDateAfterTheAdvance) {
    After([](Country& changed) { changed.rebellion = true; });
    EXPECT_EQ(chronicle.Newest(0).date.Text(), "1358/5/23 0:0:0");
    EXPECT_EQ(chronicle.Newest(0).second, 604800);
}

TEST_F(ChronicleTest, NewestEntryIsNewsForEightWeeks) {
    After([](Country& changed) { changed.rebellion = true; });
    After([](Country& changed) { changed.rebellion = false; });
    for (int week = 0; week < 8; ++week)
        AfterNothing();
    ASSERT_NE(chronicle.News(), nullptr);
    EXPECT_EQ(chronicle.News()->event, Event::RebellionEnded);
    After([](Country&) {}, 1);
    EXPECT_EQ(chronicle.News(), nullptr);
    EXPECT_EQ(chronicle.Size(), 2u);
}

TEST_F(ChronicleTest, TroubleIsNewsAgainAfterEightWeeksWhileItLasts) {
    After([](Country& changed) { changed.rebellion = true; });
    After([](Country& changed) { changed.grain.amount = 0.0f; });
    After([](Country& changed) { changed.grain.amount = 1000.0f; });
    ASSERT_EQ(chronicle.News()->event, Event::GranaryFilled);
    for (int week = 0; week < 8; ++week)
        AfterNothing();
    EXPECT_EQ(chronicle.News()->event, Event::GranaryFilled);
    for (int week = 0; week < 20; ++week) {
        AfterNothing();
        ASSERT_NE(chronicle.News(), nullptr);
        EXPECT_EQ(chronicle.News()->event, Event::RebellionBegun);
        EXPECT_EQ(chronicle.News()->date.Text(), "1358/5/23 0:0:0");
    }
    After([](Country& changed) { changed.rebellion = false; });
    EXPECT_EQ(chronicle.News()->event, Event::RebellionEnded);
    for (int week = 0; week < 9; ++week)
        AfterNothing();
    EXPECT_EQ(chronicle.News(), nullptr);
}

TEST_F(ChronicleTest, NewestOfTheTroublesThatLastIsNews) {
    After([](Country& changed) { changed.funds = -5.0f; });
    After([](Country& changed) { changed.livestock.amount = 0.0f; });
    After([](Country& changed) { changed.rebellion = true; });
    After([](Country& changed) { changed.rebellion = false; });
    for (int week = 0; week < 9; ++week)
        AfterNothing();
    ASSERT_NE(chronicle.News(), nullptr);
    EXPECT_EQ(chronicle.News()->event, Event::HerdEmpty);
    After([](Country& changed) { changed.livestock.amount = 1000.0f; });
    for (int week = 0; week < 9; ++week)
        AfterNothing();
    ASSERT_NE(chronicle.News(), nullptr);
    EXPECT_EQ(chronicle.News()->event, Event::DebtBegun);
}

TEST_F(ChronicleTest, ThatNobodyIsLeftStaysNews) {
    After([](Country& changed) { changed.population = 0.0f; });
    for (int week = 0; week < 20; ++week)
        AfterNothing();
    ASSERT_NE(chronicle.News(), nullptr);
    EXPECT_EQ(chronicle.News()->event, Event::NobodyLeft);
}

TEST_F(ChronicleTest, LastThousandEntriesAreKept) {
    for (int number = 0; number < 2503; ++number)
        After([=](Country& changed) {
            changed.grain.amount = number % 2 == 0 ? 0.0f : static_cast<float>(number);
        });
    EXPECT_EQ(chronicle.Count(), 2503u);
    EXPECT_EQ(chronicle.Size(), 1000u);
    EXPECT_EQ(chronicle.Newest(0).event, Event::GranaryEmpty);
    for (std::size_t index = 1; index < 1000; index += 2)
        EXPECT_EQ(chronicle.Newest(index).numbers[0], 2502.0 - static_cast<double>(index));
    EXPECT_EXIT(chronicle.Newest(1000), testing::ExitedWithCode(0),
                "Assert failed on chronicle:[0-9]+ - \"index < Size\\(\\)\"");
}

TEST_F(ChronicleTest, NumbersThatAreNotFiniteAreWritten) {
    EXPECT_THAT(
        After([](Country& changed) { changed.funds = -std::numeric_limits<float>::infinity(); }),
        ElementsAre("The treasury has a debt of inf doubloons."));
    EXPECT_THAT(After([](Country& changed) { changed.funds = 3e38f; }),
                ElementsAre(testing::StartsWith("The debt is paid. The treasury has 30000000")));
    AfterNothing();
    After([](Country& changed) { changed.population = std::nanf(""); });
    EXPECT_EQ(chronicle.Newest(0).event, Event::NobodyLeft);
}

TEST_F(ChronicleTest, BadEventsAreAlarms) {
    const std::map<Event, bool> alarms = {
        {Event::FamineBegun, true},    {Event::FamineEnded, false}, {Event::PlagueBegun, true},
        {Event::PlagueEnded, false},   {Event::DebtBegun, true},    {Event::DebtEnded, false},
        {Event::Hungry, true},         {Event::Content, false},     {Event::Gorging, false},
        {Event::GranaryEmpty, true},   {Event::HerdFilled, false},  {Event::HerdSlaughtered, true},
        {Event::RebellionBegun, true}, {Event::NobodyLeft, true},   {Event::GrainSold, false},
    };
    for (const auto& [event, alarm] : alarms)
        EXPECT_EQ((Chronicle::Entry{event, date, 0, {}}.IsAlarm()), alarm);
}

TEST_F(ChronicleTest, NotingRollsNothing) {
    ExpectRolls(0, [&] {
        After([](Country& changed) {
            changed.grain.amount = 0.0f;
            changed.rebellion = true;
        });
    });
}

TEST_F(ChronicleTest, AdvanceWithoutAnEventAllocatesNothing) {
    After([](Country& changed) { changed.rebellion = true; });
    const std::size_t before = AllocationCount();
    for (int tick = 0; tick < 1000; ++tick) {
        chronicle.NoteBefore(country, date);
        chronicle.NoteAfter(country, date, 330);
    }
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(ChronicleTest, FullChronicleAllocatesNothing) {
    const auto change = [&] { country.grain.amount = country.grain.amount > 0.0f ? 0.0f : 9.0f; };
    for (std::size_t number = 0; number < Chronicle::kMaxEntries; ++number) {
        change();
        chronicle.NoteAfter(country, date, 330);
    }
    const std::size_t before = AllocationCount();
    for (int number = 0; number < 5000; ++number) {
        change();
        chronicle.NoteAfter(country, date, 330);
    }
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(chronicle.Count(), 6000u);
}

/// The entries that PlainCountry, a second implementation of the rules, gives reason for.
class ExpectedEntries {
public:
    struct Expected {
        Event event;
        std::array<double, 2> numbers;
        bool operator==(const Expected&) const = default;
    };

    /// One tick from `before` to `after`.
    std::vector<Expected> Tick(const PlainCountry& before, const PlainCountry& after, long ticks) {
        found.clear();
        if (dead)
            return found;
        second += ticks;
        Debt(after.funds);
        if (before.elapsed <= 29030400.0f && after.elapsed > 29030400.0f)
            Add(Event::GraceEnded);
        if (after.population > 0.0f) {
            if (after.food != food)
                Add(kFoods.at(after.food));
            Herd(before, after, static_cast<float>(ticks));
            Store(granary, after.grain, Event::GranaryEmpty, Event::GranaryFilled);
        }
        food = after.food;
        const double deadOfBoth = after.deadOfFamine + after.deadOfPlague;
        if (after.rebellion && !before.rebellion) {
            rebellion = {second, deadOfBoth};
            Add(Event::RebellionBegun);
        }
        Disaster(before.plagueTime, after.plagueTime, after.plagues - before.plagues, plague,
                 after.deadOfPlague, Event::PlagueBegun, Event::PlagueRenewed, Event::PlagueEnded);
        Disaster(before.famineTime, after.famineTime, after.famines - before.famines, famine,
                 after.deadOfFamine, Event::FamineBegun, Event::FamineRenewed, Event::FamineEnded);
        if (!(after.population > 0.0f)) {
            dead = true;
            if (after.rebellion)
                End(rebellion, Event::RebellionEnded, deadOfBoth);
            if (after.plagueTime > 0.0f)
                End(plague, Event::PlagueEnded, after.deadOfPlague);
            if (after.famineTime > 0.0f)
                End(famine, Event::FamineEnded, after.deadOfFamine);
            Add(Event::NobodyLeft);
        }
        return found;
    }

    /// Before a tick, after the trade.
    std::vector<Expected> Trade(float unitsSold, float income, float headsBought, float expense,
                                float funds) {
        found.clear();
        if (dead)
            return found;
        if (unitsSold > 0.0f)
            Add(Event::GrainSold, static_cast<double>(unitsSold), static_cast<double>(income));
        if (headsBought > 0.0f)
            Add(Event::LivestockBought, static_cast<double>(headsBought),
                static_cast<double>(expense));
        Debt(funds);
        return found;
    }

private:
    struct Begin {
        long second;
        double dead;
    };
    static inline const std::map<FoodState, Event> kFoods = {
        {FoodState::StarvingFast, Event::StarvingFast},
        {FoodState::StarvingSlowly, Event::StarvingSlowly},
        {FoodState::Hungry, Event::Hungry},
        {FoodState::Content, Event::Content},
        {FoodState::WellFed, Event::WellFed},
        {FoodState::Gorging, Event::Gorging},
    };

    void Add(Event event, double first = 0.0, double other = 0.0) {
        found.push_back({event, {first, other}});
    }
    void Debt(float funds) {
        if (funds < 0.0f && !debt)
            Add(Event::DebtBegun, -static_cast<double>(funds));
        if (funds >= 0.0f && debt)
            Add(Event::DebtEnded, static_cast<double>(funds));
        debt = funds < 0.0f;
    }
    void Herd(const PlainCountry& before, const PlainCountry& after, float seconds) {
        if (after.livestockProduction < before.livestockProduction && before.livestock >= 1.0f) {
            const float heads = after.livestockProduction * 604800.0f;
            if (before.livestock + after.livestockProduction * seconds <= 0.0f) {
                Add(Event::HerdSlaughtered, static_cast<double>(before.livestock));
                herd = false;
            } else if (heads < 0.0f) {
                Add(Event::HerdShrinking, -static_cast<double>(heads));
            } else {
                Add(Event::HerdLimited, static_cast<double>(heads));
            }
        }
        Store(herd, after.livestock, Event::HerdEmpty, Event::HerdFilled);
    }
    void Store(bool& filled, float amount, Event empty, Event full) {
        const bool before = filled;
        filled = amount >= 1.0f || (filled && amount > 0.0f);
        if (before && !filled)
            Add(empty);
        if (!before && filled)
            Add(full, static_cast<double>(amount));
    }
    void Disaster(float timeBefore, float timeAfter, int begun, Begin& begin, double deadAfter,
                  Event begins, Event goesOn, Event ends) {
        if (timeBefore > 0.0f && !(timeAfter > 0.0f))
            End(begin, ends, deadAfter);
        if (begun == 0)
            return;
        Add(timeBefore > 0.0f ? goesOn : begins, static_cast<double>(timeAfter / 604800.0f));
        if (!(timeBefore > 0.0f))
            begin = {second, deadAfter};
    }
    void End(const Begin& begin, Event event, double deadAfter) {
        Add(event, static_cast<double>(second - begin.second) / 604800.0, deadAfter - begin.dead);
    }

    std::vector<Expected> found;
    long second = 0;
    bool dead = false;
    bool debt = false;
    bool herd = true;
    bool granary = true;
    FoodState food = FoodState::Content;
    Begin famine{}, plague{}, rebellion{};
};

/// The last entries of the world's chronicle, the oldest of them first.
std::vector<ExpectedEntries::Expected> Newest(const Chronicle& chronicle, std::uint64_t number) {
    std::vector<ExpectedEntries::Expected> entries;
    for (std::uint64_t index = number; index > 0; --index) {
        const Chronicle::Entry& entry = chronicle.Newest(index - 1);
        entries.push_back({entry.event, entry.numbers});
    }
    return entries;
}

/// Plays whole campaigns with random settings. Every number must be exactly that of the second
/// implementation.
TEST(ChronicleOfWorldTest, EntriesAreThoseOfASecondSimpleImplementationOfTheRules) {
    std::mt19937 random(7);
    const auto upTo = [&](float highest) {
        return std::uniform_real_distribution<float>(0.0f, highest)(random);
    };
    std::map<Event, int> happened;
    for (unsigned campaign = 1; campaign <= 105; ++campaign) {
        std::srand(campaign);
        World world;
        Country& player = world.player;
        player.SetMessageStream(nullptr);
        const bool plain = campaign % 3 == 0;  // as the game starts
        for (const Profession profession : kProfessions) {
            player.SetShare(profession, plain ? start::Share(profession) : upTo(0.5f));
            player.Normalise(profession);
        }
        player.justice.justiceLevel = plain ? 0.5f : upTo(1.0f);
        if (!plain) {
            player.livestock.ration = upTo(2.5f) * player.livestock.baseRation;
            player.grain.ration = upTo(2.5f) * player.grain.baseRation;
        }
        if (campaign % 13 == 0) {
            player.livestock.amount = 5000000.0f;
            player.livestock.production = 3.2f;
        } else if (campaign % 13 == 1) {
            player.livestock.amount = 100000.0f;
            player.livestock.production = 0.08f;
        }
        PlainCountry after(player);
        ExpectedEntries expected;
        // Weeks, three weeks, or the steps of the clock around the end of the grace.
        const int kind = static_cast<int>(campaign % 5);
        const float step = kind == 1 ? 3.0f * kWeek : kWeek;
        if (kind == 0)
            player.elapsed = after.elapsed = 29000000.0f;
        for (int tick = 0; tick < (kind == 0 ? 1000 : 120); ++tick) {
            const float seconds = kind == 0 ? static_cast<float>(300 + tick % 60) : step;
            if (campaign % 2 == 0 && tick % 10 == 0)
                player.Normalise(Profession::Farmers);
            const Country& partner = *world.countries[0];
            float units = 0.0f;
            float heads = 0.0f;
            if (campaign % 7 == 0 && tick % 5 == 0) {
                units = std::max(player.grain.amount, 0.0f);
                player.Sell(0.0f, units, &partner);
            }
            if (campaign % 7 == 0 && tick % 5 == 3) {
                heads = std::max(player.LivestockOrder(partner, 0.5f), 0.0f);
                player.Buy(heads, 0.0f, 0.0f, &partner);
            }
            if (campaign % 11 == 0 && tick == 20)
                player.funds = -200.0f;
            PlainCountry before = after;
            before.funds = player.funds;
            before.grain = player.grain.amount;
            before.livestock = player.livestock.amount;
            before.livestockProduction = player.livestock.production;
            before.grainProduction = player.grain.production;
            for (const Profession profession : kProfessions)
                before.shares[static_cast<int>(profession)] = player.Share(profession);

            const auto seed = static_cast<unsigned>(random());
            std::srand(seed);
            const std::uint64_t count = world.chronicle.Count();
            world.Advance(seconds);
            std::srand(seed);
            after = before;
            after.Tick(seconds);

            auto wanted = expected.Trade(units, partner.grainSellPrice * units, heads,
                                         partner.livestockBuyPrice * heads, before.funds);
            const auto ofTick = expected.Tick(before, after, std::lround(seconds));
            wanted.insert(wanted.end(), ofTick.begin(), ofTick.end());
            ASSERT_EQ(Newest(world.chronicle, world.chronicle.Count() - count), wanted)
                << "campaign " << campaign << ", tick " << tick;
            for (const auto& entry : wanted)
                ++happened[entry.event];
        }
    }
    // These trades are covered by the tests above.
    for (std::size_t index = 0; index < Chronicle::kEventCount; ++index) {
        const auto event = static_cast<Event>(index);
        const bool byHand = event == Event::LivestockSold || event == Event::GrainBought;
        EXPECT_TRUE(happened[event] > 0 || byHand) << index;
    }
}

TEST(ChronicleOfWorldTest, AdvanceWithAChronicleIsTheAdvanceOfCountryNewspaperAndDate) {
    std::srand(3);
    World world;
    world.player.SetMessageStream(nullptr);
    std::srand(3);
    World plain;
    plain.player.SetMessageStream(nullptr);
    std::srand(9);
    for (int week = 0; week < 100; ++week)
        world.Advance(kWeek);
    const int next = std::rand();
    std::srand(9);
    for (int week = 0; week < 100; ++week) {
        plain.player.Process(kWeek);
        plain.newspaper.Update(kWeek);
        plain.date.Advance(604800);
    }
    EXPECT_EQ(next, std::rand());
    EXPECT_EQ(world.player.population, plain.player.population);
    EXPECT_EQ(world.player.morale, plain.player.morale);
    EXPECT_EQ(world.newspaper.Stories(), plain.newspaper.Stories());
    EXPECT_EQ(world.date, plain.date);
    EXPECT_GT(world.chronicle.Count(), 0u);
}

}  // namespace
