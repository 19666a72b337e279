// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// gameposes OUT, started in a data folder, draws the game in several poses, that is, situations of
// a play, into PNG files in the folder OUT. Three of the pictures show the whole screen: at the
// start, after a week, and with the longest texts. The others show only the part of the screen that
// has changed.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/app.h"
#include "app/tags.h"
#include "country/country.h"
#include "country/rates.h"
#include "country/world.h"
#include "glwidget/glwidget.h"
#include "tests/support/gl_window.h"
#include "tests/support/png_files.h"
#include "tests/support/widget_places.h"
#include "tools/guiview/gamecheck.h"

namespace {

constexpr unsigned kSeed = 1358;
constexpr int kReignWeeks = 66;
constexpr std::uint32_t kWidth = 800;
constexpr std::uint32_t kHeight = 600;
constexpr std::uint32_t kMargin = 6;  ///< pixels around the part that differs
constexpr std::size_t kPixelBytes = 4;
constexpr float kPettyCrime = 0.07f;  ///< the stories are then the longest
/// Milliseconds; longer than any highlight or flash.
constexpr int kSettleMs = 10000;

const std::uint8_t* PixelOf(const Pixels& picture, std::uint32_t x, std::uint32_t y) {
    return &picture.rgba[(std::size_t{y} * picture.width + x) * kPixelBytes];
}

/// The part of `picture` that differs from `before`, with a margin. Empty if they are equal.
Pixels Difference(const Pixels& picture, const Pixels& before) {
    std::uint32_t left = kWidth, top = kHeight, right = 0, bottom = 0;
    for (std::uint32_t y = 0; y < kHeight; ++y) {
        for (std::uint32_t x = 0; x < kWidth; ++x) {
            const std::uint8_t* const pixel = PixelOf(picture, x, y);
            if (std::equal(pixel, pixel + kPixelBytes, PixelOf(before, x, y)))
                continue;
            left = std::min(left, x);
            top = std::min(top, y);
            right = std::max(right, x + 1);
            bottom = std::max(bottom, y + 1);
        }
    }
    if (right == 0)
        return {};
    left -= std::min(left, kMargin);
    top -= std::min(top, kMargin);
    right = std::min(right + kMargin, kWidth);
    bottom = std::min(bottom + kMargin, kHeight);
    Pixels part{right - left, bottom - top, {}};
    for (std::uint32_t y = top; y < bottom; ++y)
        part.rgba.insert(part.rgba.end(), PixelOf(picture, left, y),
                         PixelOf(picture, left, y) + (right - left) * kPixelBytes);
    return part;
}

class PoseDrawer {
public:
    explicit PoseDrawer(std::string newFolder) : folder(std::move(newFolder)) {
        GLWidget::StartGUI("my.gui.debug");
        std::srand(kSeed);
        app->CreateWorld();
        app->Update(0);
        MoveAway();
    }

    bool TakeAll() {
        const Pixels start = Look();
        Save("start", start);
        TakeTabs("tab_", start);

        const Pixels idle = Show(tag::kWeek);
        MoveTo(tag::kWeek);
        SaveDifference("hovered", idle);
        Hold(true);
        SaveDifference("pressed", idle);
        Hold(false);
        app->Update(0);
        MoveAway();
        Save("week", Look());

        Reign();
        const std::string list = "__" + std::string(tag::kPartner) + "dropbox";
        const Pixels closed = Show(list);
        MoveTo(list);
        Click();
        SaveDifference("list", closed);
        Click();  // closes the list
        MoveAway();

        TakeLongest();
        TakeRefusal();
        return complete;
    }

private:
    void MoveAway() { GLWidget::MouseMoveWidgets(Vector(2000.0f, 2000.0f)); }

    void MoveTo(std::string_view tag) {
        const auto place = places.find(std::string(tag));
        if (place != places.end()) {
            MoveToMiddle(place->second);
            return;
        }
        std::cerr << "gameposes: '" << tag << "' cannot be reached\n";
        complete = false;
    }

    /// Opens the tab of a widget, if it is in one that is not open.
    /// @return the screen after that, with the mouse outside of the window
    Pixels Show(std::string_view tag) {
        places = ReachableWidgets();
        for (const std::string& button : TabButtons()) {
            if (places.contains(std::string(tag)))
                break;
            if (!places.contains(button))
                continue;
            ClickAt(places.at(button));
            places = ReachableWidgets();
        }
        MoveAway();
        return Look();
    }

    void Click() {
        Hold(true);
        Hold(false);
    }

    void Hold(bool down) { GLWidget::MouseClickWidgets(down, false, false); }

    Pixels Look() {
        GLWidget::UpdateWidgets(kSettleMs);
        GLWidget::UpdateWidgets(kSettleMs);  // the first may make a highlight too bright
        app->Render(true);
        const std::vector<std::uint8_t> rows = window.Pixels();
        Pixels picture{kWidth, kHeight, Bytes(rows.size())};
        const std::size_t rowBytes = kWidth * kPixelBytes;
        for (std::size_t y = 0; y < kHeight; ++y)
            std::copy_n(&rows[(kHeight - 1 - y) * rowBytes], rowBytes, &picture.rgba[y * rowBytes]);
        for (std::size_t alpha = kPixelBytes - 1; alpha < picture.rgba.size(); alpha += kPixelBytes)
            picture.rgba[alpha] = 0xFF;
        return picture;
    }

    void Save(const std::string& name, const Pixels& picture) {
        const Bytes bytes = EncodeWithLibpng(picture);
        std::ofstream file(folder + "/" + name + ".png", std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        if (!file.flush()) {
            std::cerr << "gameposes: " << folder << '/' << name << ".png cannot be written\n";
            complete = false;
        }
    }

    void SaveDifference(const std::string& name, const Pixels& before) {
        const Pixels part = Difference(Look(), before);
        if (part.rgba.empty()) {
            std::cerr << "gameposes: " << name << " looks the same as before\n";
            complete = false;
            return;
        }
        Save(name, part);
    }

    static std::string FileName(std::string tag) {
        std::replace(tag.begin(), tag.end(), ' ', '_');
        return tag;
    }

    /// Saves a picture of every tab but the first that can be reached only from the open tab.
    void TakeInnerTabs(const std::string& prefix, const Pixels& before) {
        bool isFirst = true;
        for (const auto& [button, place] : ReachableWidgets()) {
            const std::vector<std::string> buttons = TabButtons();
            const bool isTab = std::find(buttons.begin(), buttons.end(), button) != buttons.end();
            if (!isTab || places.contains(button))
                continue;
            if (!isFirst) {
                ClickAt(place);
                MoveAway();
                Save(prefix + FileName(button.substr(2)), Difference(Look(), before));
            }
            isFirst = false;
        }
    }

    /// Saves a picture of every tab that is not open, and opens at the end the tab that was open.
    void TakeTabs(const std::string& prefix, const Pixels& before) {
        places = ReachableWidgets();
        std::string first;
        for (const std::string& button : TabButtons()) {
            const auto place = places.find(button);
            if (place == places.end())
                continue;
            ClickAt(place->second);
            MoveAway();
            const Pixels part = Difference(Look(), before);
            if (part.rgba.empty())
                first = button;
            else
                Save(prefix + FileName(button.substr(2)), part);
            TakeInnerTabs(prefix, before);
        }
        if (!first.empty())
            ClickAt(places.at(first));
        MoveAway();
    }

    /// Saves the screen after a reign with many events.
    void Reign() {
        for (int week = 0; week < kReignWeeks; ++week)
            app->GetWorld()->Advance(kSecondsPerWeek);
        app->Update(0);
        const Pixels reign = Look();
        Save("reign", reign);
        TakeTabs("reign_", reign);
    }

    void TakeLongest() {
        // A long story leaves the newspaper no room for other news.
        app->GetWorld()->player.justice.crimeLevel = kPettyCrime;
        app->GetWorld()->newspaper.Print();
        app->Update(0);
        guiview::FillGameTexts();
        const Pixels longest = Look();
        Save("longest", longest);
        TakeTabs("longest_", longest);
        app->Update(0);
    }

    void TakeRefusal() {
        for (const std::string_view order : {tag::kStockOrder, tag::kGrainOrder})
            GLWidget::GetByTag(order)->SetLevel(1.0f);
        app->Update(0);
        const Pixels before = Show(tag::kBuy);
        MoveTo(tag::kBuy);
        Click();
        app->Update(0);
        MoveAway();
        SaveDifference("refused", before);
    }

    const GLWindowForTests window;
    const Pointer<App> app = new App;
    std::map<std::string, WidgetPlace> places;
    std::string folder;
    bool complete = true;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: gameposes OUT\n";
        return 2;
    }
    return PoseDrawer(argv[1]).TakeAll() ? 0 : 1;
}
