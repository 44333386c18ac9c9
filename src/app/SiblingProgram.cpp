// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SiblingProgram.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <system_error>

namespace elmworth {

std::filesystem::path siblingPath(const std::string& name) {
    std::error_code error;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    const auto apart = (folder / ELMWORTH_PROGRAMS_FROM_COMMANDS / name).lexically_normal();
    return !std::filesystem::exists(folder / name, error) && std::filesystem::exists(apart, error)
               ? apart
               : folder / name;
}

int execSibling(const std::string& name, const std::vector<std::string>& arguments) {
    const auto sibling = siblingPath(name);
    std::vector<std::string> words{sibling.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (auto& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(sibling.c_str(), pointers.data());
    std::fprintf(stderr, "%s can't be started: %s.\n", sibling.c_str(), std::strerror(errno));
    return 1;
}

}  // namespace elmworth
