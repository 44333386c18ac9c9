// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/Icons.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace elmworth {

namespace {

struct Icon {
    std::u16string_view name;
    char16_t glyph;
};

constexpr char16_t emptySquare = 0xE3C6;

// Sorted by name. The font has one weight, so that some outlined and filled names share a glyph.
constexpr std::array images{
    Icon{u"arrow-clockwise", 0xE042},
    Icon{u"arrow-right", 0xE5C8},
    Icon{u"bar-chart", 0xE26B},
    Icon{u"buildings", 0xEA40},
    Icon{u"calendar", 0xE935},
    Icon{u"check", 0xE5CA},
    Icon{u"check-circle", 0xE92D},
    Icon{u"check-circle-filled", 0xE86C},
    Icon{u"chevron-left", 0xE5CB},
    Icon{u"chevron-right", 0xE5CC},
    Icon{u"chevrons-up-down", 0xE5D7},
    Icon{u"circle", 0xE836},
    Icon{u"clock", 0xE8B5},
    Icon{u"clock-filled", 0xE924},
    Icon{u"copy", 0xE14D},
    Icon{u"cross", 0xE5CD},
    Icon{u"cross-circle", 0xE5C9},
    Icon{u"document", 0xE873},
    Icon{u"document-down", 0xF090},
    Icon{u"document-rich", 0xEF42},
    Icon{u"dollar", 0xE227},
    Icon{u"ellipsis", 0xE5D3},
    Icon{u"envelope", 0xE0E1},
    Icon{u"exclamation-circle", 0xE001},
    Icon{u"flag", 0xF06E},
    Icon{u"folder", 0xE2C8},
    Icon{u"folder-filled", 0xE2C7},
    Icon{u"gauge", 0xE9E4},
    Icon{u"gear", 0xE8B8},
    Icon{u"hourglass", 0xE88B},
    Icon{u"lock", 0xE897},
    Icon{u"magnifier", 0xE8B6},
    Icon{u"menu", 0xE5D2},
    Icon{u"minus", 0xE15B},
    Icon{u"moon", 0xEF44},
    Icon{u"paper-plane", 0xE163},
    Icon{u"pencil", 0xE3C9},
    Icon{u"people", 0xE7FC},
    Icon{u"people-filled", 0xE7FB},
    Icon{u"person", 0xE7FD},
    Icon{u"play", 0xE037},
    Icon{u"plus", 0xE145},
    Icon{u"power", 0xE8AC},
    Icon{u"record", 0xE837},
    Icon{u"stop", 0xE047},
    Icon{u"sum", 0xE24A},
    Icon{u"table", 0xE265},
    Icon{u"trash", 0xE872},
    Icon{u"tray", 0xE156},
    Icon{u"tray-full", 0xE97F},
    Icon{u"tray-full-filled", 0xE168},
    Icon{u"warning", 0xE002},
    Icon{u"window", 0xE069},
};

constexpr bool byName(const Icon& one, const Icon& other) {
    return one.name < other.name;
}
static_assert(std::is_sorted(images.begin(), images.end(), byName));

}  // namespace

QChar iconGlyph(QStringView name) {
    const Icon wanted{{name.utf16(), static_cast<std::size_t>(name.size())}, 0};
    const auto* found = std::lower_bound(images.begin(), images.end(), wanted, byName);
    return found != images.end() && found->name == wanted.name ? found->glyph : emptySquare;
}

QStringList iconNames() {
    QStringList names;
    for (const auto& image : images) {
        names
            << QStringView(image.name.data(), static_cast<qsizetype>(image.name.size())).toString();
    }
    return names;
}

}  // namespace elmworth
