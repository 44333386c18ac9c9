// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// elmworth-make-library FILE ENTRIES [NOW]: makes a library to try things with.

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "LibraryGenerator.h"
#include "platform/ISO8601.h"

int main(int argc, char** argv) {
    using namespace elmworth;
    const unsigned long entries = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const auto now = parseISO8601(argc > 3 ? argv[3] : "2026-03-18T10:00:00Z");
    if (argc > 4 || entries == 0 || !now) {
        std::fputs("Usage: elmworth-make-library FILE ENTRIES [NOW, like 2026-03-18T10:00:00Z]\n",
                   stderr);
        return 2;
    }
    try {
        bench::generateLibrary(argv[1], bench::LibraryShape::ofEntries(entries, *now));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
