// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Lets other programs look at the works from outside:
//
//   reliability_works names                    the names of all works
//   reliability_works prepare NAME FOLDER ROWS makes a home with what a work begins with
//   reliability_works perform NAME FOLDER      says "go?", waits for a line, and does the work,
//   with
//                                              what Home::perform announces, each as one line; a
//                                              refusal goes to standard error, with status 1
//   reliability_works found                    reads names of folders, each on a line, and says for
//                                              each how many bytes it found there, and these

#include <sys/prctl.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "reliability/Works.h"

namespace {

using namespace elmworth::test;

/// Unbuffered, as one system call.
void say(std::string_view word) {
    const std::string line = std::string(word) + '\n';
    if (::write(STDOUT_FILENO, line.data(), line.size()) < 0) ::_exit(3);
}

int perform(const Work& work, const Home& home, Home::Part part) {
    ::prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY, 0, 0, 0);  // strace comes when everything is loaded
    say("go?");
    std::string line;
    std::getline(std::cin, line);
    const std::string refusal = home.perform(work, say, part);
    std::fputs(refusal.c_str(), stderr);
    return refusal.empty() ? 0 : 1;
}

int tellFound() {
    for (std::string folder; std::getline(std::cin, folder);) {
        const std::string text = Home(folder, 0).found();
        std::cout << text.size() << '\n' << text << std::flush;
    }
    return 0;
}

int run(const std::vector<std::string>& words) {
    if (words.size() == 1 && words[0] == "found") return tellFound();
    if (words.size() == 1 && words[0] == "names") {
        for (const auto& work : allWorks()) std::cout << work.name << '\n';
        return 0;
    }
    if (words.size() == 4 && words[0] == "prepare") {
        Home(words[2], std::stoi(words[3])).prepare(workNamed(words[1]));
        return 0;
    }
    if (words.size() < 3 || words[0] != "perform") return 2;
    Home::Part part;
    if (words.size() > 3) part.first = std::stoul(words[3]);
    if (words.size() > 4) part.count = std::stoul(words[4]);
    return perform(workNamed(words[1]), Home(words[2], 0), part);
}

}  // namespace

int main(int argc, char** argv) {
    return run({argv + 1, argv + argc});
}
