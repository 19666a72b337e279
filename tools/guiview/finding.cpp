// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/finding.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <tuple>
#include <utility>

namespace guiview {

namespace {

const char* NameOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

}  // namespace

void Findings::Error(const std::string& file, Location location, std::string message) {
    findings.push_back({file, location, Severity::Error, std::move(message)});
}

void Findings::Warn(const std::string& file, Location location, std::string message) {
    findings.push_back({file, location, Severity::Warning, std::move(message)});
}

bool Findings::HasErrors() const {
    return std::ranges::any_of(
        findings, [](const Finding& finding) { return finding.severity == Severity::Error; });
}

void Findings::Sort(const std::string& first) {
    const auto key = [&](const Finding& finding) {
        return std::tuple(finding.severity, finding.file != first, std::string_view(finding.file),
                          finding.location.line, finding.location.column);
    };
    std::ranges::stable_sort(findings, {}, key);
}

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

std::string Findings::AsText() const {
    std::string text;
    for (const Finding& finding : findings) {
        text += finding.file + ':' + std::to_string(finding.location.line) + ':'
                + std::to_string(finding.location.column) + ": " + NameOf(finding.severity) + ": "
                + finding.message + '\n';
    }
    return text;
}

std::string Findings::AsJson() const {
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const Finding& finding : findings) {
        list.push_back({{"file", finding.file},
                        {"line", finding.location.line},
                        {"column", finding.location.column},
                        {"severity", NameOf(finding.severity)},
                        {"message", finding.message}});
    }
    // A layout may hold bytes that are not UTF-8. In JSON they are replaced.
    return list.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace guiview
