// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "fuzz/layout_words.h"

#include <gmock/gmock.h>

#include "glwidget/toolkit.h"

namespace {

using testing::HasSubstr;
using testing::Not;

TEST(FuzzDictionary, HoldsEveryStatementAndEveryKindOfALayout) {
    const std::string words = LayoutWords();
    for (const Layout::Statement& statement : Layout::Statements())
        EXPECT_THAT(words, HasSubstr("\"" + std::string(statement.word) + " \"\n"));
    for (const Kind* kind : Kinds())
        EXPECT_THAT(words, HasSubstr("\"" + std::string(kind->word) + " \"\n"));
    EXPECT_THAT(words, HasSubstr("\"TEX \"\n"));
}

TEST(FuzzDictionary, HoldsAKindFromItsRegistrationOn) {
    static constexpr Kind kGadget{.word = "Gadget", .type = "Gadget"};
    EXPECT_THAT(LayoutWords(), Not(HasSubstr("Gadget")));
    RegisterKind(kGadget);
    EXPECT_THAT(LayoutWords(), HasSubstr("\"Gadget \"\n"));
    Toolkit::Get().Reset();
}

}  // namespace
