// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/rewrite.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace guiview {

namespace fs = std::filesystem;

bool RewriteFile(const std::string& path, const std::string& content) {
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    if (error)
        return false;
    fs::path draft = target;
    draft += ".guiview";
    {
        std::ofstream file(draft, std::ios::binary | std::ios::trunc);
        file << content;
        file.close();
        if (!file) {
            fs::remove(draft, error);
            return false;
        }
    }
    fs::permissions(draft, fs::status(target).permissions(), error);
    if (!error)
        fs::rename(draft, target, error);
    if (error) {
        fs::remove(draft);
        return false;
    }
    return true;
}

}  // namespace guiview
