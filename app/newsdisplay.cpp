// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/newsdisplay.h"

#include <algorithm>

#include "app/lines.h"
#include "app/tags.h"
#include "glwidget/label.h"
#include "quarn2/trace.h"

namespace {

/// Further than the screen is high.
constexpr float kOutOfScreen = 8.0f;

Label* LabelOf(std::string_view tag) {
    return dynamic_cast<Label*>(GLWidget::GetByTag(tag, false));
}

/// @param part  of the label's width, for the longest lines
std::string ListOf(Label& label, const Chronicle& chronicle, std::size_t room, float part) {
    std::string list;
    for (std::size_t i = 0; i < chronicle.Size(); ++i) {
        const Chronicle::Entry& entry = chronicle.Newest(i);
        std::string text = entry.date.DayText() + ": ";
        entry.WriteTo(text);
        lines::Break(text, label, part);
        if (i != 0 && lines::CountOf(list) + lines::CountOf(text) > room)
            break;
        if (i != 0)
            list += '\n';
        list += text;
    }
    if (chronicle.Size() == 0)
        list = "Nothing has happened yet.";
    lines::FillUp(list, room);
    return list;
}

/// The newest entries, the newest one first, that fit in so many lines of the label. Empty lines
/// after them fill the label, because its last line is at its lower edge.
std::string ListFor(Label& label, const Chronicle& chronicle, std::size_t room) {
    std::string list;
    for (const float part : lines::kParts) {
        list = ListOf(label, chronicle, room, part);
        if (lines::IsShownAsItIs(list, label))
            break;
    }
    return list;
}

}  // namespace

void NewsDisplay::Show(const Chronicle& chronicle) {
    TraceFrame frame("Show", "NewsDisplay");
    const Chronicle::Entry* const news = chronicle.News();
    const bool isNew = isFirst || chronicle.Count() != entriesSeen;
    Label* const newsLabel = LabelOf(tag::kNews);
    const auto shown =
        news != nullptr ? std::optional(std::pair(news->event, news->second)) : std::nullopt;
    if (isNew || shown != newsSeen)
        WriteNews(news, newsLabel);
    if (newsLabel != nullptr)
        newsLabel->SetText(newsText);
    const bool isAlarm = news != nullptr && news->IsAlarm();
    alarm.Show(tag::kAlarmPicture, isAlarm);
    calm.Show(tag::kCalmPicture, !isAlarm);

    if (Label* const label = LabelOf(tag::kChronicle)) {
        if (isNew)
            chronicleText = ListFor(*label, chronicle, lines::RoomOf(*label));
        label->SetText(chronicleText);
    }
    ShowPaperNews(chronicle, isNew);
    entriesSeen = chronicle.Count();
    newsSeen = shown;
    isFirst = false;
}

void NewsDisplay::WriteNews(const Chronicle::Entry* news, Label* label) {
    TraceFrame frame("WriteNews", "NewsDisplay");
    newsText = "No news.";
    if (news != nullptr) {
        newsText = news->IsAlarm() ? "ALARM  " : "News  ";
        newsText += news->date.DayText();
        newsText += ": ";
        news->WriteTo(newsText);
    }
    if (label != nullptr) {
        lines::BreakToFit(newsText, *label);
        lines::FillUp(newsText, lines::RoomOf(*label));
    }
}

void NewsDisplay::ShowPaperNews(const Chronicle& chronicle, bool isChanged) {
    TraceFrame frame("ShowPaperNews", "NewsDisplay");
    Label* const list = LabelOf(tag::kPaperNews);
    Label* const story = LabelOf(tag::kPaper);
    if (list == nullptr || story == nullptr)
        return;
    const std::size_t room = lines::RoomOf(*story);
    const std::size_t left = room - std::min(room, lines::CountOf(story->Wrapped()));
    if (isChanged || left != linesLeft) {
        const float down = static_cast<float>(left) - static_cast<float>(linesLeft);
        *list += Vector(0.0f, -down * lines::StepOf(*story));
        linesLeft = left;
        paperText = ListFor(*list, chronicle, lines::RoomOf(*list) + left);
    }
    list->SetText(paperText);
}

void NewsDisplay::Picture::Show(std::string_view tag, bool show) {
    GLWidget* const picture = GLWidget::GetByTag(tag, false);
    if (picture == nullptr || show == shown)
        return;
    *picture += Vector(0.0f, show ? -kOutOfScreen : kOutOfScreen);
    shown = show;
}
