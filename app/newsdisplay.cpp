// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/newsdisplay.h"

#include <algorithm>
#include <cmath>

#include "app/tags.h"
#include "glwidget/drawing.h"
#include "glwidget/label.h"
#include "quarn2/trace.h"

namespace {

/// Further than the screen is high.
constexpr float kOutOfScreen = 8.0f;

/// Lines are filled up to this part of a label's width. A label measures a line together with the
/// end of a longer one above it, and would break a line that has no room left.
constexpr float kFilledPart = 0.9f;

Label* LabelOf(std::string_view tag) {
    return dynamic_cast<Label*>(GLWidget::GetByTag(tag, false));
}

float LineStep(const Label& label) {
    return label.GetTheme().fontSize.y * FontRender::kLineStep;
}

std::size_t LinesOfRoom(Label& label) {
    const Vector box = label.Getbbox();
    return static_cast<std::size_t>(std::lround((box.w - box.y) / LineStep(label)));
}

std::size_t LinesOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

/// Breaks a text without line breaks at its blanks, so that each line is narrower than `width`.
void BreakLines(std::string& text, const Theme& theme, float width) {
    std::size_t lineBegin = 0;
    std::size_t lastBlank = std::string::npos;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] != ' ')
            continue;
        const bool fits = MeasureText(theme, text.substr(lineBegin, i - lineBegin)) <= width;
        if (!fits && lastBlank != std::string::npos) {
            text[lastBlank] = '\n';
            lineBegin = lastBlank + 1;
        }
        lastBlank = i;
    }
}

/// The newest entries, the newest one first, that fit in so many lines of the label. Empty lines
/// after them fill the label, because its last line is at its lower edge.
std::string ListFor(Label& label, const Chronicle& chronicle, std::size_t lines) {
    const Vector box = label.Getbbox();
    const float width = kFilledPart * (box.z - box.x);
    std::string list;
    std::size_t used = 0;
    for (std::size_t i = 0; i < chronicle.Size(); ++i) {
        const Chronicle::Entry& entry = chronicle.Newest(i);
        std::string text = entry.date.DayText() + ": ";
        entry.WriteTo(text);
        BreakLines(text, label.GetTheme(), width);
        if (i != 0 && used + LinesOf(text) > lines)
            break;
        if (i != 0)
            list += '\n';
        list += text;
        used += LinesOf(text);
    }
    if (chronicle.Size() == 0) {
        list = "Nothing has happened yet.";
        used = 1;
    }
    if (used < lines)
        list.append(lines - used, '\n');
    return list;
}

}  // namespace

void NewsDisplay::Show(const Chronicle& chronicle) {
    TraceFrame frame("Show", "NewsDisplay");
    const Chronicle::Entry* const news = chronicle.News();
    const bool isNew = isFirst || chronicle.Count() != entriesSeen;
    Label* const newsLabel = LabelOf(tag::kNews);
    if (isNew || newsSeen != (news != nullptr))
        WriteNews(news);
    if (newsLabel != nullptr)
        newsLabel->SetText(newsText);
    const bool isAlarm = news != nullptr && news->IsAlarm();
    alarm.Show(tag::kAlarmPicture, isAlarm);
    calm.Show(tag::kCalmPicture, !isAlarm);

    if (Label* const label = LabelOf(tag::kChronicle)) {
        if (isNew)
            chronicleText = ListFor(*label, chronicle, LinesOfRoom(*label));
        label->SetText(chronicleText);
    }
    ShowPaperNews(chronicle, isNew);
    entriesSeen = chronicle.Count();
    newsSeen = news != nullptr;
    isFirst = false;
}

void NewsDisplay::WriteNews(const Chronicle::Entry* news) {
    TraceFrame frame("WriteNews", "NewsDisplay");
    if (news == nullptr) {
        newsText = "No news.";
        return;
    }
    newsText = news->IsAlarm() ? "ALARM  " : "News  ";
    newsText += news->date.DayText();
    newsText += ": ";
    news->WriteTo(newsText);
}

void NewsDisplay::ShowPaperNews(const Chronicle& chronicle, bool isChanged) {
    TraceFrame frame("ShowPaperNews", "NewsDisplay");
    Label* const list = LabelOf(tag::kPaperNews);
    Label* const story = LabelOf(tag::kPaper);
    if (list == nullptr || story == nullptr)
        return;
    const std::size_t room = LinesOfRoom(*story);
    const std::size_t left = room - std::min(room, LinesOf(story->Wrapped()));
    if (isChanged || left != linesLeft) {
        const float lines = static_cast<float>(left) - static_cast<float>(linesLeft);
        *list += Vector(0.0f, -lines * LineStep(*story));
        linesLeft = left;
        paperText = ListFor(*list, chronicle, LinesOfRoom(*list) + left);
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
