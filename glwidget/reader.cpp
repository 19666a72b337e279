// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/reader.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "quarn2/readfile.h"

std::istringstream OpenGuiFile(const std::string& path) {
    std::string text;
    const FileProblem problem = ReadWholeFile(path, GuiReader::kMaxFileBytes, text);
    if (problem != FileProblem::None)
        std::cerr << Describe(path, problem, GuiReader::kMaxFileBytes) << '\n';
    return std::istringstream(std::move(text));
}

#include "quarn2/strings.h"

bool GuiReader::Word(std::string& word) {
    std::string read;
    if (!(stream >> read))
        return false;
    word = std::move(read);
    return true;
}

void GuiReader::ReadThree(Vector& value) {
    Read(value.x);
    Read(value.y);
    Read(value.z);
}

void GuiReader::ReadFour(Vector& value) {
    ReadThree(value);
    Read(value.w);
}

std::string GuiReader::Rest() {
    using Traits = std::istream::traits_type;
    constexpr Traits::int_type kEnd = Traits::eof();
    std::string rest;
    if (!stream.good())
        return rest;
    // Skips only what separates the fields of a line. The line end stays, so that an empty field
    // is the empty text and not the next line.
    for (Traits::int_type next = stream.peek(); next == ' ' || next == '\t' || next == '\r';
         next = stream.peek())
        stream.get();
    for (Traits::int_type next = stream.peek();
         next != kEnd && next != '\n' && rest.size() < kFieldLimit; next = stream.peek())
        rest += Traits::to_char_type(stream.get());
    // A zero byte ends a text when it is drawn or measured.
    rest.resize(std::min(rest.size(), rest.find('\0')));
    if (!rest.empty() && rest.back() == '\r' && stream.peek() == '\n')
        rest.pop_back();
    return rest;
}

void GuiReader::EndLine() {
    stream.clear(stream.rdstate() & ~std::ios::failbit);
    stream.ignore(kSkipLimit, '\n');
}

void GuiReader::SkipComments() {
    while (stream.good()) {
        stream >> std::ws;
        if (stream.peek() != '/')
            return;
        stream.get();
        const bool comment = stream.peek() == '/';
        stream.unget();
        if (!comment)
            return;
        EndLine();
    }
}

std::string ReplaceEscapes(const std::string& text) {
    return str_replace("\\n", "\n", str_replace("%", "%%", text));
}
