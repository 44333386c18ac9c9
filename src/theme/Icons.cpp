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
    Icon{u"arrow.clockwise", 0xE042},
    Icon{u"arrow.down.doc.fill", 0xF090},
    Icon{u"arrow.right", 0xE5C8},
    Icon{u"building.2", 0xEA40},
    Icon{u"calendar", 0xE935},
    Icon{u"chart.bar.fill", 0xE26B},
    Icon{u"checkmark", 0xE5CA},
    Icon{u"checkmark.circle", 0xE92D},
    Icon{u"checkmark.circle.fill", 0xE86C},
    Icon{u"chevron.down", 0xE5CF},
    Icon{u"chevron.left", 0xE5CB},
    Icon{u"chevron.right", 0xE5CC},
    Icon{u"chevron.up.chevron.down", 0xE5D7},
    Icon{u"circle", 0xE836},
    Icon{u"clock", 0xE8B5},
    Icon{u"clock.fill", 0xE924},
    Icon{u"doc.on.doc", 0xE14D},
    Icon{u"doc.richtext.fill", 0xEF42},
    Icon{u"doc.text", 0xE873},
    Icon{u"doc.text.fill", 0xE873},
    Icon{u"dollarsign", 0xE227},
    Icon{u"ellipsis", 0xE5D3},
    Icon{u"envelope", 0xE0E1},
    Icon{u"exclamationmark.circle", 0xE001},
    Icon{u"exclamationmark.triangle.fill", 0xE002},
    Icon{u"flag.checkered", 0xF06E},
    Icon{u"folder", 0xE2C8},
    Icon{u"folder.fill", 0xE2C7},
    Icon{u"gauge.with.dots.needle.67percent", 0xE9E4},
    Icon{u"gearshape", 0xE8B8},
    Icon{u"gearshape.fill", 0xE8B8},
    Icon{u"hourglass", 0xE88B},
    Icon{u"line.3.horizontal", 0xE5D2},
    Icon{u"lock.fill", 0xE897},
    Icon{u"macwindow", 0xE069},
    Icon{u"magnifyingglass", 0xE8B6},
    Icon{u"menubar.rectangle", 0xE069},
    Icon{u"minus", 0xE15B},
    Icon{u"moon.zzz.fill", 0xEF44},
    Icon{u"paperplane.fill", 0xE163},
    Icon{u"pencil", 0xE3C9},
    Icon{u"person.2", 0xE7FC},
    Icon{u"person.2.fill", 0xE7FB},
    Icon{u"person.fill", 0xE7FD},
    Icon{u"play.fill", 0xE037},
    Icon{u"plus", 0xE145},
    Icon{u"power", 0xE8AC},
    Icon{u"record.circle", 0xE837},
    Icon{u"stop", 0xE047},
    Icon{u"stop.fill", 0xE047},
    Icon{u"sum", 0xE24A},
    Icon{u"tablecells", 0xE265},
    Icon{u"trash", 0xE872},
    Icon{u"tray", 0xE156},
    Icon{u"tray.full", 0xE97F},
    Icon{u"tray.full.fill", 0xE168},
    Icon{u"xmark", 0xE5CD},
    Icon{u"xmark.circle.fill", 0xE5C9},
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
