// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// watchedgame FILE runs the game. After every frame it compares the labels with the country's
// numbers and, if something has changed, adds a line of JSON with the state of the game to the
// file. It does not change the behaviour of the game. With a second argument, "twice", it also
// draws every frame twice: as the game does, and with all widgets. It ends if the two pictures
// differ.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/app.h"
#include "glwidget/glwidget.h"
#include "quarn2/memory.h"
#include "quarn2/trace.h"
#include "tests/plays/twicedrawn.h"

namespace {

using Json = nlohmann::ordered_json;

template <typename... Parts>
std::string Joined(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

std::string Fixed(double value, int digits) {
    std::ostringstream text;
    text.setf(std::ios::fixed);
    text.precision(digits);
    text << value;
    std::string digitsAndSign = text.str();
    // The game shows a rounded negative number as 0, not as -0.
    if (digitsAndSign.find_first_of("123456789") == std::string::npos && digitsAndSign[0] == '-')
        digitsAndSign.erase(0, 1);
    return digitsAndSign;
}

class WatchedGame : public App {
public:
    WatchedGame(const char* path, bool drawTwice) : drawsTwice(drawTwice), file(path) {}

    bool GotEvent(Event event) override {
        const bool result = App::GotEvent(event);
        if (event.type == UpdateEvent && result)
            Watch();
        if (drawsTwice && event.type == LoadGraphicsResourcesEvent)
            twice.Join();
        if (drawsTwice && event.type == RenderEvent)
            twice.Compare();
        return result;
    }

private:
    void Watch() {
        CompareLabels();
        const Country& player = GetWorld()->player;
        Json state;
        state["date"] = GetWorld()->date.Text();
        state["elapsed"] = player.elapsed;
        state["population"] = player.population;
        state["funds"] = player.funds;
        state["livestock"] = player.livestock.amount;
        state["grain"] = player.grain.amount;
        state["hungry"] = player.livestock.IsHungry() || player.grain.IsHungry();
        state["famine"] = player.famineTime > 0.0f;
        state["plague"] = player.plagueTime > 0.0f;
        state["shares"] = Json::array();
        for (const Profession profession : kProfessions)
            state["shares"].push_back(player.Share(profession));
        state["orders"] = {Level("stockbuy"), Level("grainbuy"), Level("finebuy")};
        state["asked"] = GLWidget::GetByTag("__msgbox", false) != nullptr;
        state["story"] = Text("paperlab");
        state["news"] = OneLine("news");
        state["chronicle"] = Text("chronicle");
        state["compared"] = compared;
        state["wrong"] = wrong;
        std::string line = state.dump();
        // The number of comparisons changes in every frame.
        state.erase("compared");
        std::string current = state.dump();
        if (current == last)
            return;
        last = std::move(current);
        file << line << std::endl;
    }

    static float Level(std::string_view slider) { return GLWidget::GetByTag(slider)->GetLevel(); }
    static std::string Text(std::string_view tag) { return GLWidget::GetByTag(tag)->GetText(); }

    void Expect(std::string_view tag, const std::string& expected) {
        ++compared;
        if (const std::string shown = Text(tag); shown != expected && wrong.size() < kMaxFaults)
            wrong.push_back(Joined(tag, " shows '", shown, "' instead of '", expected, "'"));
    }

    void CompareLabels() {
        const World& realm = *GetWorld();
        const Country& player = realm.player;
        static constexpr std::string_view kNames[] = {"Farmers", "Butchers", "Educators",
                                                      "Warriors", "Doctors"};
        static constexpr std::string_view kLabels[] = {"farmerslab", "butcherslab", "educatorslab",
                                                       "warriorslab", "doctorslab"};
        std::string people =
            Joined("Population Statistics: \nTotal: ", std::lround(player.population));
        for (const Profession profession : kProfessions) {
            const auto i = static_cast<std::size_t>(profession);
            const float count = player.Count(profession);
            Expect(kLabels[i],
                   Joined(kNames[i], ": ",
                          Fixed(static_cast<double>(count / player.population) * 100.0, 0), "%"));
            people += Joined('\n', kNames[i], ": ", std::lround(count));
        }
        Expect("popinfo", Joined(people, "\nIdle: ", std::lround(player.IdleCount())));
        Expect("lrationlab",
               "Livestock Ration: " + Fixed(static_cast<double>(player.livestock.ration), 3));
        Expect("grationlab", "Grain Ration: " + Fixed(static_cast<double>(player.grain.ration), 3));
        Expect("storelab", Joined("Livestock: ", std::lround(player.livestock.amount),
                                  "\nGrain: ", std::lround(player.grain.amount)));
        Expect("funds", Joined("Government funds: ", player.funds + 0.0f, " doubloons"));
        Expect("date", "The date is " + realm.date.Text());
        const auto& stories = realm.newspaper.Stories();
        Expect("paperlab", "Page 1\n" + (stories.empty() ? std::string() : stories[0]));
        CompareNews(realm.chronicle);
        Expect("debuginfo", Statistics(player));
        Expect("continentinfo", Neighbours(realm));
        CompareOrders(player);
    }

    /// Labels break long sentences, and the chronicle shows as many entries as it has room for.
    void CompareNews(const Chronicle& chronicle) {
        std::string expected = "No news.";
        if (const Chronicle::Entry* const news = chronicle.News())
            expected = (news->IsAlarm() ? "ALARM  " : "News  ") + Sentence(*news);
        ExpectStart("news", expected);
        ExpectStart("chronicle", chronicle.Size() == 0 ? "Nothing has happened yet."
                                                       : Sentence(chronicle.Newest(0)));
    }

    static std::string Sentence(const Chronicle::Entry& entry) {
        std::string text = entry.date.DayText() + ": ";
        entry.WriteTo(text);
        return text;
    }

    static std::string OneLine(std::string_view tag) {
        std::string text = Text(tag);
        std::replace(text.begin(), text.end(), '\n', ' ');
        return text;
    }

    void ExpectStart(std::string_view tag, const std::string& expected) {
        ++compared;
        if (const std::string shown = OneLine(tag);
            !shown.starts_with(expected) && wrong.size() < kMaxFaults)
            wrong.push_back(Joined(tag, " shows '", shown, "' instead of '", expected, "'"));
    }

    static std::string Statistics(const Country& player) {
        const Military& military = player.military;
        return Joined("The Justice level is ", player.justice.justiceLevel, "\nThe Crime level is ",
                      player.justice.crimeLevel, "\n\nThe population's morale is ", player.morale,
                      "\nThe population's opinion is ", player.opinion,
                      "\nThe military's recruits: ", military.recruits,
                      "\nThe military's average skill: ", military.averageSkill,
                      "\nThe military's weekly cost: ", military.Cost(kWeek),
                      "\nThe military oppressing: ", military.oppressing,
                      "\nThe military patrolling: ", military.patrolling,
                      "\nThe famine chance: ", player.famineChance,
                      "    Famine: ", player.famineTime > 0.0f,
                      "    Famine Length: ", std::lround(player.famineTime),
                      "\nPlague: ", player.plagueTime > 0.0f,
                      "    Plague Length: ", std::lround(player.plagueTime),
                      "\nRevolt: ", player.revolt, "    Rebellion: ", player.rebellion);
    }

    static std::string Neighbours(const World& realm) {
        std::string text =
            "Continent Information: \n"
            "Buy Cost of Livestock, Grain. Sell Cost of Livestock, Grain.\n";
        int number = 0;
        for (const auto& country : realm.countries)
            text += Joined("Country ", ++number, ": ", country->name, " - ",
                           country->livestockBuyPrice, ' ', country->grainBuyPrice, ' ',
                           country->livestockSellPrice, ' ', country->grainSellPrice, '\n');
        return text;
    }

    /// A trade sets the order to 0 after the label was written. The next frame corrects the label.
    void CompareOrders(const Country& player) {
        const Country& neighbour = *GetPartner();
        const std::string expected[] = {
            "Livestock to Buy/Sell: "
                + Fixed(static_cast<double>(player.LivestockOrder(neighbour, Level("stockbuy"))),
                        0),
            "Grain to Buy/Sell: "
                + Fixed(static_cast<double>(player.GrainOrder(neighbour, Level("grainbuy"))), 0),
            "Fine Goods to Buy: "
                + Fixed(static_cast<double>(player.FineGoodsOrder(Level("finebuy"))), 0)};
        const float level = Level("stockbuy") + Level("grainbuy") + Level("finebuy");
        const bool emptied = level == 0.0f && lastLevel != 0.0f;
        lastLevel = level;
        if (emptied)
            return;
        Expect("stockbuylab", expected[0]);
        Expect("grainbuylab", expected[1]);
        Expect("finebuylab", expected[2]);
    }

    static constexpr std::size_t kMaxFaults = 20;
    static constexpr float kWeek = 604800.0f;

    bool drawsTwice;
    TwiceDrawn twice;
    std::ofstream file;
    std::string last;
    std::vector<std::string> wrong;
    long compared = 0;
    float lastLevel = 0.0f;
};

}  // namespace

int main(int argc, char** argv) {
    const bool drawTwice = argc == 3 && std::string_view(argv[2]) == "twice";
    if (argc != 2 && !drawTwice) {
        std::cerr << "usage: watchedgame FILE [twice]\n";
        return 2;
    }
    trace::Start();
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    TraceFrame frame("main", "");
    {
        const Pointer<App> game = new WatchedGame(argv[1], drawTwice);
        game->Init();
    }
    MMObject::CollectGarbage();
    MMObject::CollectAll();
    return 0;
}
