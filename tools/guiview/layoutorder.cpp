// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutorder.h"

#include <algorithm>
#include <map>
#include <set>

namespace guiview {

namespace {

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

/// The kinds that can do something, as in "Win, Frame or TWin".
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

/// Follows one layout from its first statement to its last.
class OrderCheck {
public:
    OrderCheck(const LayoutFile& file, Findings& list) : layout(file), findings(list) {}

    Declarations Run() {
        for (std::size_t i = 0; i < layout.statements.size(); ++i) {
            const Statement& statement = layout.statements[i];
            line = layout.lines[i].substr(0, std::min(statement.end, kMaxKept));
            const bool kept = Follow(statement) && statement.wellFormed;
            result.buildable += (kept ? line : std::string()) + '\n';
        }
        CheckConfiguration();
        for (const auto& [tag, window] : tabWindows)
            CheckTabs(tag, window);
        return std::move(result);
    }

private:
    /// What is known of a tag, also when its statement cannot be built.
    struct Tag {
        int line;
        const Kind* kind;  ///< null when its kind is unknown
        bool built;
        int ancestors;
    };

    struct TabWindowTags {
        std::map<int, Place> used;            ///< tabs by number, with their first statement
        std::map<int, Place> named;           ///< by NTAB
        std::map<int, std::string> on;        ///< the first widget on a tab
        std::vector<const Statement*> loose;  ///< widgets on none
    };

    /// @return whether the toolkit can run the statement
    bool Follow(const Statement& statement) {
        if (statement.rule == nullptr)
            return false;
        if (statement.rule->creates)
            return FollowCreation(statement);
        const std::string_view word = statement.rule->word;
        if (word == "CONF")
            return FollowConfiguration();
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

    bool FollowConfiguration() {
        configured = true;
        return true;
    }

    bool FollowTheme(const Statement& statement) {
        const Word* const additional = statement.Find(kNone);
        if (additional != nullptr && additional->text != kNone) {
            Error(*additional, "the word after THEM's theme is " + Quoted(additional->text)
                                   + " and must be NULL");
            // what follows is still measured in this theme
            line = "THEM " + std::string(statement.Text("theme")) + " NULL";
        }
        return true;
    }

    bool FollowCreation(const Statement& statement) {
        const Word* const tag = statement.Find("tag");
        if (tag == nullptr)
            return false;
        bool usable = CheckTag(*tag);
        const Word* const parent = statement.Find("parent");
        const Tag* owner = nullptr;
        if (parent != nullptr && *parent != kNone) {
            owner = FindOwner(*tag, *parent);
            usable = usable && owner != nullptr && owner->built && CheckOwner(statement, *owner);
        }
        const int ancestors = owner == nullptr ? 0 : owner->ancestors + 1;
        if (ancestors > Layout::kMaxAncestors) {
            Error(*tag, Quoted(tag->text) + " is nested deeper than "
                            + std::to_string(Layout::kMaxAncestors) + " containers");
            usable = false;
        }
        usable = usable && statement.wellFormed && statement.inRange;
        if (*tag != kNone)
            tags.try_emplace(tag->text, Tag{tag->place.line, statement.kind, usable, ancestors});
        if (statement.kind != nullptr)
            CheckOrder(statement, *tag);
        if (usable)
            Declare(statement, *tag);
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
        Error(tag, "the tag " + Quoted(tag.text) + " is taken by line "
                       + std::to_string(earlier->second.line));
        return false;
    }

    bool IsOurs(const Word& tag) {
        if (!tag.text.starts_with(Layout::kToolkitPrefix))
            return true;
        Error(tag, "the tag " + Quoted(tag.text) + " belongs to the toolkit");
        return false;
    }

    const Tag* FindOwner(const Word& tag, const Word& parent) {
        if (parent.text == tag.text && !tags.contains(tag.text)) {
            Error(parent, Quoted(tag.text) + " names itself as its parent");
            return nullptr;
        }
        return FindTag(parent);
    }

    const Tag* FindTag(const Word& tag) {
        if (!IsOurs(tag))
            return nullptr;
        const auto found = tags.find(tag.text);
        if (found != tags.end())
            return &found->second;
        Error(tag, "unknown tag " + Quoted(tag.text));
        return nullptr;
    }

    bool CheckOwner(const Statement& statement, const Tag& owner) {
        const Word& parent = *statement.Find("parent");
        const std::string parentIs =
            "the parent " + Quoted(parent.text) + " is a " + std::string(owner.kind->word);
        if (!owner.kind->holdsChildren) {
            Error(parent, parentIs + ", no " + WordsOf(&Kind::holdsChildren));
            return false;
        }
        const Word* const tab = statement.Find("tab");
        if (tab != nullptr && !owner.kind->hasTabs) {
            Error(parent, parentIs + " and has no tabs");
            return false;
        }
        if (!owner.kind->hasTabs)
            return true;
        TabWindowTags& window = tabWindows[parent.text];
        if (tab == nullptr) {
            window.loose.push_back(&statement);
            return true;
        }
        if (statement.FindValid("tab") == nullptr)
            return false;
        const int number = statement.Whole("tab");
        window.used.try_emplace(number, tab->place);
        window.on.try_emplace(number, statement.Text("tag"));
        return true;
    }

    /// What depends on where in the file the widget stands.
    void CheckOrder(const Statement& statement, const Word& tag) {
        if (statement.kind->text != TextGround::None && !configured)
            beforeConfiguration.push_back(tag);
        if (!solidified)
            return;
        Error(tag, statement.kind->holdsChildren
                       ? Quoted(tag.text) + " comes after SOLID and is never put in its place"
                       : Quoted(tag.text) + " comes after SOLID: nothing makes room for it");
    }

    void Declare(const Statement& statement, const Word& tag) {
        Declared widget{&statement, tag.text, std::string(statement.Text("parent")),
                        {},         tag.text, solidified};
        if (statement.Find("tab") != nullptr)
            widget.tab = statement.Whole("tab");
        if (tag == kNone) {
            widget.handle = "NULL#" + std::to_string(tag.place.line);
            line.replace(static_cast<std::size_t>(tag.place.column) - 1, kNone.size(),
                         widget.handle);
        }
        result.widgets.push_back(std::move(widget));
    }

    bool FollowTab(const Statement& statement) {
        const Word* const tag = statement.Find("tag");
        if (tag == nullptr || *tag == kNone)
            return false;
        const Tag* const owner = FindTag(*tag);
        if (owner == nullptr || owner->kind == nullptr)
            return false;
        if (!owner->kind->hasTabs) {
            Error(*tag, Quoted(tag->text) + " is a " + std::string(owner->kind->word)
                            + " and has no tabs");
            return false;
        }
        const Word* const tab = statement.FindValid("tab");
        if (tab == nullptr)
            return false;
        const int number = statement.Whole("tab");
        TabWindowTags& window = tabWindows[tag->text];
        if (const auto held = window.on.find(number); held != window.on.end()) {
            Error(*tab, "NTAB empties tab " + tab->text + " of " + Quoted(tag->text)
                            + ", which holds " + Quoted(held->second) + ": it belongs before TADD");
        } else if (window.named.contains(number)) {
            Error(*tab, "tab " + tab->text + " of " + Quoted(tag->text)
                            + " has its title from line "
                            + std::to_string(window.named[number].line));
        }
        if (solidified)
            Error(statement.word, "NTAB comes after SOLID: the tabs are put in the wrong place");
        if (!configured)
            beforeConfiguration.push_back(*tag);
        window.used.try_emplace(number, tab->place);
        window.named.try_emplace(number, tab->place);
        return owner->built;
    }

    bool FollowItem(const Statement& statement) {
        const Word* const tag = statement.Find("tag");
        if (tag == nullptr || *tag == kNone)
            return false;
        const Tag* const owner = FindTag(*tag);
        if (owner == nullptr || owner->kind == nullptr)
            return false;
        if (!owner->kind->takesItems) {
            findings.Warn(layout.path, tag->place,
                          Quoted(tag->text) + " is a " + std::string(owner->kind->word)
                              + ": only a " + WordsOf(&Kind::takesItems) + " shows items");
        }
        return owner->built;
    }

    bool FollowSolid(const Statement& statement) {
        if (solidified) {
            Error(statement.word, "SOLID a second time moves what is in its place already");
            return false;
        }
        solidified = true;
        return true;
    }

    bool FollowCentre(const Statement& statement) {
        const Word* const tag = statement.Find("tag");
        if (tag == nullptr || *tag == kNone)
            return false;
        const Tag* const widget = FindTag(*tag);
        if (widget == nullptr || widget->kind == nullptr)
            return false;
        if (!solidified && widget->kind->holdsChildren) {
            findings.Warn(layout.path, tag->place,
                          Quoted(tag->text) + " has no size before SOLID and is not centred");
        }
        return widget->built;
    }

    void CheckConfiguration() {
        if (!configured && !beforeConfiguration.empty()) {
            Error(beforeConfiguration.front(), "there is no CONF to name the font of "
                                                   + Quoted(beforeConfiguration.front().text));
            return;
        }
        for (const Word& tag : beforeConfiguration) {
            Error(tag,
                  Quoted(tag.text) + " shows text and comes before CONF, which loads the font");
            for (Declared& widget : result.widgets)
                widget.misplaced = widget.misplaced || widget.Where().line == tag.place.line;
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
        for (const auto& [number, place] : window.used) {
            if (number != expected) {
                findings.Error(layout.path, place,
                               "tab " + std::to_string(expected) + " of " + Quoted(tag)
                                   + " is missing before tab " + std::to_string(number));
            }
            if (!window.named.contains(number)) {
                findings.Error(layout.path, place,
                               "tab " + std::to_string(number) + " of " + Quoted(tag)
                                   + " has no NTAB, so nobody can open it");
            }
            expected = number + 1;
        }
    }

    void Error(const Word& word, std::string message) {
        findings.Error(layout.path, word.place, std::move(message));
    }

    /// Longer lines are reported; what the toolkit makes of their end is not asked.
    static constexpr std::size_t kMaxKept = 9000;

    const LayoutFile& layout;
    Findings& findings;
    Declarations result;
    std::string line;  // as the toolkit gets it
    std::map<std::string, Tag, std::less<>> tags;
    std::map<std::string, TabWindowTags, std::less<>> tabWindows;
    std::vector<Word> beforeConfiguration;
    bool configured = false;
    bool solidified = false;
};

}  // namespace

Declarations FollowOrder(const LayoutFile& layout, Findings& findings) {
    return OrderCheck(layout, findings).Run();
}

}  // namespace guiview
