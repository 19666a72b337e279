// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/app/game_fixture.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "app/tags.h"
#include "glwidget/glwidget.h"
#include "tests/support/font_access.h"

namespace {

struct Statement {
    std::string_view kind;
    std::string_view tag;
    std::string_view fields;
};

/// Every tag of the game, far enough from each other that a click meets one widget.
constexpr Statement kStatements[] = {
    {"Butt", "exitbut", "Exit"},     {"Butt", "update", "Week"},
    {"Butt", "buybut", "Buy"},       {"Butt", "sellbut", "Sell"},
    {"Butt", "PrevPage", "Back"},    {"Butt", "lration--", "--"},
    {"Butt", "lration++", "++"},     {"Butt", "gration--", "--"},
    {"Butt", "gration++", "++"},     {"Butt", "farmers--", "--"},
    {"Butt", "farmers++", "++"},     {"Butt", "butchers--", "--"},
    {"Butt", "butchers++", "++"},    {"Butt", "educators--", "--"},
    {"Butt", "educators++", "++"},   {"Butt", "warriors--", "--"},
    {"Butt", "warriors++", "++"},    {"Butt", "doctors--", "--"},
    {"Butt", "doctors++", "++"},     {"Slide", "justiceslide", "1 0"},
    {"Slide", "lration", "1 0"},     {"Slide", "gration", "1 0"},
    {"Slide", "stockbuy", "1 0"},    {"Slide", "grainbuy", "1 0"},
    {"Slide", "finebuy", "1 0"},     {"Slide", "farmers", "1 0"},
    {"Slide", "butchers", "1 0"},    {"Slide", "educators", "1 0"},
    {"Slide", "warriors", "1 0"},    {"Slide", "doctors", "1 0"},
    {"Label", "farmerslab", "-"},    {"Label", "butcherslab", "-"},
    {"Label", "educatorslab", "-"},  {"Label", "warriorslab", "-"},
    {"Label", "doctorslab", "-"},    {"Label", "lrationlab", "-"},
    {"Label", "grationlab", "-"},    {"Label", "stockbuylab", "-"},
    {"Label", "grainbuylab", "-"},   {"Label", "finebuylab", "-"},
    {"Label", "storelab", "-"},      {"Label", "popinfo", "-"},
    {"Label", "continentinfo", "-"}, {"Label", "funds", "-"},
    {"Label", "date", "-"},          {"Label", "paperlab", "-"},
    {"Label", "debuginfo", "-"},     {"Label", "fps", "-"},
    {"Combo", "countrysel", ""},     {"Win", "newspaper", "0 Paper"},
};

constexpr float kSpacing = 10.0f;

}  // namespace

void GameTest::SetUp() {
    GLWidget::readViewport = [](std::int32_t(&viewport)[4]) {
        viewport[0] = viewport[1] = 0;
        viewport[2] = 800;
        viewport[3] = 600;
    };
    FontAccess::SetAdvances(GLWidget::font, 0.5f);
    testing::internal::CaptureStderr();
    listening = true;
    app = new App;
}

void GameTest::TearDown() {
    const std::string said = Said();
    if (HasFailure())
        std::fputs(said.c_str(), stderr);
}

std::string GameTest::Said() {
    if (!listening)
        return {};
    listening = false;
    return testing::internal::GetCapturedStderr();
}

void GameTest::WriteLayout(const char* path, std::initializer_list<std::string_view> leftOut) {
    std::ofstream layout(path);
    float y = 0.0f;
    for (const Statement& statement : kStatements) {
        y += kSpacing;
        if (std::find(leftOut.begin(), leftOut.end(), statement.tag) == leftOut.end())
            layout << "CADD " << statement.kind << ' ' << statement.tag << " NULL 0 " << -y << ' '
                   << statement.fields << '\n';
    }
}

void GameTest::StartLayout(std::initializer_list<std::string_view> leftOut) {
    WriteLayout("layout", leftOut);
    GLWidget::StartGUI("layout");
}

void GameTest::StartGame(unsigned seed) {
    StartLayout();
    std::srand(seed);
    app->CreateWorld();
}

GLWidget& GameTest::Widget(std::string_view tag) {
    return *GLWidget::GetByTag(tag);
}

std::string GameTest::Text(std::string_view tag) {
    return Widget(tag).GetText();
}

void GameTest::Click(std::string_view tag) {
    GLWidget& widget = Widget(tag);
    const Vector box = widget.Getbbox();
    widget.MouseMove((box.x + box.z) / 2.0f, (box.y + box.w) / 2.0f);
    widget.MouseClick(true, false, false);
    widget.MouseClick(false, false, false);
}

void GameTest::SetLevel(std::string_view slider, float level) {
    Widget(slider).SetLevel(level);
}
