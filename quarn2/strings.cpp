// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/strings.h"

#include <fstream>

#include "quarn2/trace.h"

std::string ReadFile(const std::string& filename) {
    TraceFrame frame("ReadFile", "");
    std::ifstream file(filename);
    std::string result;
    std::string line;
    // The end is noticed only by a read that finds nothing, so a text that ends with a line break
    // gives one empty line too many. Removing the last line break corrects that.
    bool more = file.is_open();
    while (more) {
        more = static_cast<bool>(std::getline(file, line)) && !file.eof();
        result += line;
        result += '\n';
        line.clear();
    }
    if (!result.empty())
        result.pop_back();
    return result;
}

std::uint32_t substr_count(std::string_view haystack, std::string_view needle) {
    TraceFrame frame("substr_count", "");
    if (needle.empty())
        return 0;
    std::uint32_t count = 0;
    for (std::size_t position = haystack.find(needle); position != std::string_view::npos;
         position = haystack.find(needle, position + needle.size()))
        ++count;
    return count;
}

std::string str_replace(std::string_view needle, std::string_view replacement,
                        std::string_view subject) {
    TraceFrame frame("str_replace", "");
    if (needle.empty())
        return std::string(subject);
    std::string result;
    for (std::size_t found = subject.find(needle); found != std::string_view::npos;
         found = subject.find(needle)) {
        result += subject.substr(0, found);
        result += replacement;
        subject.remove_prefix(found + needle.size());
    }
    result += subject;
    return result;
}
