// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

/// Reads a tool's arguments. Wrong arguments are one line on standard error that begins with
/// `program`.
/// @return the status to end with, after the help was shown or, `badStatus`, after an error;
///     nothing if the tool can go on
[[nodiscard]] inline std::optional<int> ParseCommandLine(CLI::App& app, std::string_view program,
                                                         int badStatus, int argc, char** argv) {
    try {
        app.parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return app.exit(error);  // help was asked for
        std::string message = error.what();
        std::ranges::replace(message, '\n', ' ');
        std::cerr << program << ": " << message << '\n';
        return badStatus;
    }
}
