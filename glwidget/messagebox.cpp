#include <array>
#include <string_view>

#include "glwidget/glwidget.h"
#include "quarn2/trace.h"

namespace {

struct Answer {
    std::string_view tag;
    std::string_view caption;
    std::uint32_t code;
};

constexpr Answer kOk{"__msgbox_ok", "OK", 1};
constexpr Answer kCancel{"__msgbox_cancel", "Cancel", 2};
constexpr Answer kYes{"__msgbox_yes", "Yes", 4};
constexpr Answer kNo{"__msgbox_no", "No", 8};
constexpr std::array kAnswers{kOk, kCancel, kYes, kNo};

}  // namespace

void GLWidget::CompleteMessageBox() {
    TraceFrame frame("CompleteMessageBox", "GLWidget");
    bool answered = false;
    for (const Answer& answer : kAnswers) {
        const auto entry = tags.find(answer.tag);
        if (entry == tags.end() || entry->second == nullptr || !entry->second->BeenClicked())
            continue;
        msgboxResult = answer.code;
        answered = true;
    }
    if (!answered)
        return;
    // kept: the label is registered as "__msgbox_message", so it and the frame stay behind
    for (const std::string_view tag : {std::string_view("__msgbox"), kOk.tag, kCancel.tag, kYes.tag,
                                       kNo.tag, std::string_view("__msgbox_msg")}) {
        GLWidget* const gone = GetByTag(tag, false);
        if (gone == nullptr)
            continue;
        widgets.remove(gone);
        Forget(gone);
        Destroy(gone);
    }
}
