// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A tool of the build: "elmworth-manual FILE" writes the manual page.

#include <filesystem>
#include <iostream>

#include "command/ManualPage.h"
#include "platform/AtomicFile.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: elmworth-manual FILE\n";
        return 2;
    }
    try {
        elmworth::writeAtomically(argv[1], elmworth::manualPage(elmworth::describeProgram()),
                                  elmworth::FileAccess::forUmask(elmworth::currentUmask()));
    } catch (const std::filesystem::filesystem_error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
