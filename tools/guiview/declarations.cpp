// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/declarations.h"

#include <algorithm>
#include <map>
#include <set>

#include "tools/guiview/suggestion.h"

namespace guiview {

namespace {

/// The words of the kinds for which this is true, as in "Win, Frame or TWin".
std::string WordsOf(bool Kind::*ability) {
    std::vector<std::string_view> words;
    for (const Kind* kind : Kinds()) {
        if (kind->*ability && kind->form.empty())
            words.push_back(kind->word);
    }
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0)
            text += i + 1 < words.size() ? ", " : " or ";
        text += words[i];
    }
    return text;
}

/// Goes through one layout from its first statement to its last.
class StatementFollower {
public:
    StatementFollower(const LayoutFile& file, Findings& list) : layout(file), findings(list) {}

    Declarations Run() {
        NoteTags();
        for (std::size_t i = 0; i < layout.statements.size(); ++i) {
            const Statement& statement = layout.statements[i];
            line = layout.lines[i].substr(0, std::min(statement.end, kMaxKept));
            corrections = statement.corrections;
            const bool kept = Follow(statement) && (statement.wellFormed || themeKept);
            result.buildable += (kept ? CorrectedLine() : std::string()) + '\n';
        }
        CheckConfiguration();
        MarkIncomplete();
        for (const auto& [tag, window] : tabWindows)
            CheckTabs(tag, window);
        return std::move(result);
    }

private:
    /// What is known about a tag, even if its widget cannot be built.
    struct Tag {
        std::string name;
        int line;
        const Kind* kind;  ///< null when its kind is unknown
        bool built;
        int ancestors;
    };

    struct TabWindowTags {
        std::map<int, Location> used;         ///< all tabs, with their first statement
        std::map<int, Location> named;        ///< tabs that have an NTAB
        std::map<int, std::string> on;        ///< the first widget on each tab
        std::vector<const Statement*> loose;  ///< children that are on no tab
    };

    void NoteTags() {
        for (const Statement& statement : layout.statements) {
            const Word* const tag = statement.Find("tag");
            if (statement.rule != nullptr && statement.rule->creates && tag != nullptr)
                lineOfTag.try_emplace(tag->text, tag->location.line);
        }
    }

    /// The line with the right words in place of the misspelt ones.
    std::string CorrectedLine() {
        // From the end, so that the places before are still those of the file.
        std::ranges::sort(corrections, std::ranges::greater(),
                          [](const Correction& each) { return each.location.column; });
        std::string corrected = line;
        for (const Correction& each : corrections) {
            corrected.replace(static_cast<std::size_t>(each.location.column) - 1, each.length,
                              each.word);
        }
        return corrected;
    }

    void Correct(const Word& word, std::string right) {
        corrections.push_back({word.location, word.text.size(), std::move(right)});
    }

    /// A window from which a mistake keeps a child, a tab or an item is smaller than it should be,
    /// and so is everything around it.
    void MarkIncomplete() {
        for (auto widget = result.widgets.rbegin(); widget != result.widgets.rend(); ++widget) {
            if (!incomplete.contains(widget->tag))
                continue;
            widget->misplaced = true;
            incomplete.insert(widget->parent);
        }
        for (Declared& widget : result.widgets)
            widget.misplaced =
                widget.misplaced || (widget.centred && incomplete.contains(widget.parent));
    }

    /// @return whether the toolkit can run the statement
    bool Follow(const Statement& statement) {
        themeKept = false;
        if (statement.rule == nullptr)
            return false;
        if (statement.rule->creates)
            return FollowCreation(statement);
        const std::string_view word = statement.rule->word;
        if (word == "CONF")
            return configured = true;
        if (word == "THEM")
            return FollowTheme(statement);
        if (word == "NTAB")
            return FollowTab(statement);
        if (word == "TEXT")
            return FollowItem(statement);
        if (word == "SOLID")
            return FollowSolid(statement);
        if (word.starts_with("CENTRE"))
            return FollowCentre(statement);
        return false;
    }

    bool FollowTheme(const Statement& statement) {
        const Word* const additional = statement.Find(kNone);
        if (additional != nullptr && additional->text != kNone) {
            Error(*additional,
                  "the word after the theme must be NULL, not " + Quoted(additional->text));
        }
        themeKept = statement.Find("theme") != nullptr;
        themeUnknown = !themeKept;
        if (additional == nullptr || *additional != kNone) {
            // the widgets that follow are still measured in this theme
            line = "THEM " + std::string(statement.Text("theme")) + " NULL";
            corrections.clear();
        }
        return themeKept;
    }

    bool FollowCreation(const Statement& statement) {
        const Word* const tag = statement.Find("tag");
        if (tag == nullptr)
            return false;
        bool usable = CheckTag(*tag);
        const Word* const parent = statement.Find("parent");
        const Tag* owner = nullptr;
        std::string ownerTag(kNone);
        if (parent != nullptr && *parent != kNone) {
            owner = FindOwner(*tag, *parent);
            if (owner != nullptr)
                ownerTag = owner->name;
            usable = usable && owner != nullptr && owner->built && CheckOwner(statement, *owner);
        }
        const int ancestors = owner == nullptr ? 0 : owner->ancestors + 1;
        if (ancestors > Layout::kMaxAncestors) {
            Error(*tag, Quoted(tag->text) + " is inside of more than "
                            + std::to_string(Layout::kMaxAncestors) + " containers");
            usable = false;
        }
        usable = usable && statement.wellFormed && statement.inRange;
        if (*tag != kNone)
            tags.try_emplace(tag->text,
                             Tag{tag->text, tag->location.line, statement.kind, usable, ancestors});
        if (statement.kind != nullptr)
            CheckOrder(statement, *tag);
        if (usable) {
            Declare(statement, *tag, ownerTag);
        } else {
            incomplete.insert(ownerTag);
        }
        return usable;
    }

    bool CheckTag(const Word& tag) {
        if (tag == kNone)
            return true;
        if (!IsOurs(tag))
            return false;
        const auto earlier = tags.find(tag.text);
        if (earlier == tags.end())
            return true;
        Error(tag, "the tag " + Quoted(tag.text) + " is already used in line "
                       + std::to_string(earlier->second.line));
        return false;
    }

    bool IsOurs(const Word& tag) {
        if (!tag.text.starts_with(Layout::kToolkitPrefix))
            return true;
        Error(tag, "the tag " + Quoted(tag.text) + " is reserved for the toolkit");
        return false;
    }

    const Tag* FindOwner(const Word& tag, const Word& parent) {
        if (parent.text == tag.text && !tags.contains(tag.text)) {
            Error(parent, Quoted(tag.text) + " is its own parent");
            return nullptr;
        }
        return FindTag(parent, &Kind::holdsChildren);
    }

    /// @param ability  what the widget must be able to do, so that a misspelt tag can mean it; null
    ///     for nothing
    /// @return the widget with the tag, or the one that a misspelt tag probably means. Null, which
    ///     is reported at the first use of the tag, if there is none.
    const Tag* FindTag(const Word& tag, bool Kind::*ability = nullptr) {
        if (!IsOurs(tag))
            return nullptr;
        if (const auto found = tags.find(tag.text); found != tags.end())
            return &found->second;
        const bool first = unknown.insert(tag.text).second;
        if (const auto later = lineOfTag.find(tag.text); later != lineOfTag.end()) {
            if (first) {
                Error(tag, "the tag " + Quoted(tag.text) + " is not known before line "
                               + std::to_string(later->second));
            }
            return nullptr;
        }
        std::vector<std::string> known;
        for (const auto& [name, each] : tags) {
            if (ability == nullptr || (each.kind != nullptr && each.kind->*ability))
                known.push_back(name);
        }
        const std::optional<std::string> meant = Similar(tag.text, known);
        const Tag* const found = meant ? &tags.find(*meant)->second : nullptr;
        if (first) {
            const std::string suggestion = found == nullptr
                                               ? std::string()
                                               : "; did you mean " + Quoted(*meant) + " of line "
                                                     + std::to_string(found->line) + "?";
            Error(tag, "unknown tag " + Quoted(tag.text) + suggestion);
        }
        if (found != nullptr)
            Correct(tag, *meant);
        return found;
    }

    bool CheckOwner(const Statement& statement, const Tag& owner) {
        const Word& parent = *statement.Find("parent");
        const std::string parentIs =
            "the parent " + Quoted(owner.name) + " is a " + std::string(owner.kind->word);
        if (!owner.kind->holdsChildren) {
            Error(parent, parentIs + ", not a " + WordsOf(&Kind::holdsChildren));
            return false;
        }
        const Word* const tab = statement.Find("tab");
        if (tab != nullptr && !owner.kind->hasTabs) {
            Error(parent, parentIs + " and has no tabs");
            return false;
        }
        if (!owner.kind->hasTabs)
            return true;
        TabWindowTags& window = tabWindows[owner.name];
        if (tab == nullptr) {
            window.loose.push_back(&statement);
            return true;
        }
        if (statement.FindValid("tab") == nullptr)
            return false;
        const int number = statement.Whole("tab");
        window.used.try_emplace(number, tab->location);
        window.on.try_emplace(number, statement.Text("tag"));
        return true;
    }

    /// Checks what depends on the widget's position in the file.
    void CheckOrder(const Statement& statement, const Word& tag) {
        if (statement.kind->text != TextGround::None && !configured)
            beforeConfiguration.push_back(tag);
        if (!solidified)
            return;
        Error(tag, statement.kind->holdsChildren
                       ? Quoted(tag.text) + " comes after SOLID and is never put in its place"
                       : Quoted(tag.text) + " comes after SOLID: its parent makes no room for it");
    }

    void Declare(const Statement& statement, const Word& tag, const std::string& parent) {
        Declared widget{&statement, tag.text, parent, {}, tag.text, solidified, themeUnknown};
        if (statement.Find("tab") != nullptr)
            widget.tab = statement.Whole("tab");
        if (tag == kNone) {
            widget.handle = "NULL#" + std::to_string(tag.location.line);
            Correct(tag, widget.handle);
        }
        result.widgets.push_back(std::move(widget));
    }

    /// The widget that the statement is for. Null, which may be reported, if it is for none or of
    /// an unknown kind.
    const Tag* FindTarget(const Statement& statement, bool Kind::*ability = nullptr) {
        const Word* const tag = statement.Find("tag");
        if (tag == nullptr || *tag == kNone)
            return nullptr;
        const Tag* const target = FindTag(*tag, ability);
        return target != nullptr && target->kind != nullptr ? target : nullptr;
    }

    bool FollowTab(const Statement& statement) {
        const Tag* const owner = FindTarget(statement, &Kind::hasTabs);
        if (owner == nullptr)
            return false;
        if (!statement.wellFormed)
            incomplete.insert(owner->name);
        const Word* const tag = statement.Find("tag");
        if (!owner->kind->hasTabs) {
            Error(*tag, Quoted(owner->name) + " is a " + std::string(owner->kind->word)
                            + " and has no tabs");
            return false;
        }
        const Word* const tab = statement.FindValid("tab");
        if (tab == nullptr)
            return false;
        const int number = statement.Whole("tab");
        TabWindowTags& window = tabWindows[owner->name];
        if (const auto held = window.on.find(number); held != window.on.end()) {
            Error(*tab, "NTAB removes " + Quoted(held->second) + " from tab " + tab->text + " of "
                            + Quoted(owner->name) + ": it must come before TADD");
        } else if (window.named.contains(number)) {
            Error(*tab, "tab " + tab->text + " of " + Quoted(owner->name)
                            + " already has a title from line "
                            + std::to_string(window.named[number].line));
        }
        if (solidified)
            Error(statement.word, "NTAB comes after SOLID: the tabs are in the wrong place");
        if (!configured)
            beforeConfiguration.push_back(*tag);
        window.used.try_emplace(number, tab->location);
        window.named.try_emplace(number, tab->location);
        return owner->built;
    }

    bool FollowItem(const Statement& statement) {
        const Tag* const owner = FindTarget(statement, &Kind::takesItems);
        if (owner == nullptr)
            return false;
        const Word& tag = *statement.Find("tag");
        if (!owner->kind->takesItems) {
            findings.Warn(layout.path, tag.location,
                          Quoted(tag.text) + " is a " + std::string(owner->kind->word) + ": only a "
                              + WordsOf(&Kind::takesItems) + " shows items");
        }
        return owner->built;
    }

    bool FollowSolid(const Statement& statement) {
        if (solidified) {
            Error(statement.word, "a second SOLID moves widgets that are already in their place");
            return false;
        }
        solidified = true;
        return true;
    }

    bool FollowCentre(const Statement& statement) {
        const Tag* const widget = FindTarget(statement);
        if (widget == nullptr)
            return false;
        const Word& tag = *statement.Find("tag");
        for (Declared& each : result.widgets)
            each.centred = each.centred || each.tag == widget->name;
        if (!solidified && widget->kind->holdsChildren) {
            findings.Warn(layout.path, tag.location,
                          Quoted(tag.text) + " has no size before SOLID and is not centred");
        }
        return widget->built;
    }

    void CheckConfiguration() {
        if (!configured && !beforeConfiguration.empty()) {
            const Word& first = beforeConfiguration.front();
            Error(first,
                  Quoted(first.text) + " shows text, but there is no CONF, which loads the font");
            return;
        }
        for (const Word& tag : beforeConfiguration) {
            Error(tag,
                  Quoted(tag.text) + " shows text and comes before CONF, which loads the font");
            for (Declared& widget : result.widgets)
                widget.misplaced = widget.misplaced || widget.Where().line == tag.location.line;
        }
    }

    void CheckTabs(const std::string& tag, const TabWindowTags& window) {
        if (!window.used.empty()) {
            for (const Statement* statement : window.loose) {
                const Word& loose = *statement->Find("tag");
                Error(loose, Quoted(loose.text) + " is on no tab of " + Quoted(tag)
                                 + " and is never seen: use TADD");
            }
        }
        int expected = 0;
        for (const auto& [number, location] : window.used) {
            if (number != expected) {
                findings.Error(layout.path, location,
                               Quoted(tag) + " has a tab " + std::to_string(number) + " but no tab "
                                   + std::to_string(expected));
            }
            if (!window.named.contains(number)) {
                findings.Error(layout.path, location,
                               "tab " + std::to_string(number) + " of " + Quoted(tag)
                                   + " has no NTAB and cannot be opened");
            }
            expected = number + 1;
        }
    }

    void Error(const Word& word, std::string message) {
        findings.Error(layout.path, word.location, std::move(message));
    }

    /// Longer lines are reported anyway; the toolkit gets only their beginning.
    static constexpr std::size_t kMaxKept = 9000;

    const LayoutFile& layout;
    Findings& findings;
    Declarations result;
    std::string line;  // what the toolkit gets of the statement, after the corrections
    std::vector<Correction> corrections;
    std::map<std::string, int> lineOfTag;  // the first of each tag in the file
    std::set<std::string> unknown;         // tags that were reported
    std::set<std::string> incomplete;      // tags of widgets that lack something
    std::map<std::string, Tag, std::less<>> tags;
    std::map<std::string, TabWindowTags, std::less<>> tabWindows;
    std::vector<Word> beforeConfiguration;
    bool configured = false;
    bool solidified = false;
    bool themeKept = false;     // the statement chooses a theme, even if it is not well formed
    bool themeUnknown = false;  // the last THEM names none
};

}  // namespace

Declarations FollowStatements(const LayoutFile& layout, Findings& findings) {
    return StatementFollower(layout, findings).Run();
}

}  // namespace guiview
