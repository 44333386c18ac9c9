// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/SystemImages.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace elmworth {

namespace {

struct SystemImage {
    std::u16string_view name;
    char16_t glyph;
};

constexpr char16_t emptySquare = 0xE3C6;

// Sorted by name. The font has one weight, so that some outlined and filled names share a glyph.
constexpr std::array images{
    SystemImage{u"arrow.clockwise", 0xE042},
    SystemImage{u"arrow.down.doc.fill", 0xF090},
    SystemImage{u"arrow.right", 0xE5C8},
    SystemImage{u"building.2", 0xEA40},
    SystemImage{u"calendar", 0xE935},
    SystemImage{u"chart.bar.fill", 0xE26B},
    SystemImage{u"checkmark", 0xE5CA},
    SystemImage{u"checkmark.circle", 0xE92D},
    SystemImage{u"checkmark.circle.fill", 0xE86C},
    SystemImage{u"chevron.down", 0xE5CF},
    SystemImage{u"chevron.left", 0xE5CB},
    SystemImage{u"chevron.right", 0xE5CC},
    SystemImage{u"chevron.up.chevron.down", 0xE5D7},
    SystemImage{u"circle", 0xE836},
    SystemImage{u"clock", 0xE8B5},
    SystemImage{u"clock.fill", 0xE924},
    SystemImage{u"doc.on.doc", 0xE14D},
    SystemImage{u"doc.richtext.fill", 0xEF42},
    SystemImage{u"doc.text", 0xE873},
    SystemImage{u"doc.text.fill", 0xE873},
    SystemImage{u"dollarsign", 0xE227},
    SystemImage{u"ellipsis", 0xE5D3},
    SystemImage{u"envelope", 0xE0E1},
    SystemImage{u"exclamationmark.circle", 0xE001},
    SystemImage{u"exclamationmark.triangle.fill", 0xE002},
    SystemImage{u"flag.checkered", 0xF06E},
    SystemImage{u"folder", 0xE2C8},
    SystemImage{u"folder.fill", 0xE2C7},
    SystemImage{u"gauge.with.dots.needle.67percent", 0xE9E4},
    SystemImage{u"gearshape", 0xE8B8},
    SystemImage{u"gearshape.fill", 0xE8B8},
    SystemImage{u"hourglass", 0xE88B},
    SystemImage{u"line.3.horizontal", 0xE5D2},
    SystemImage{u"lock.fill", 0xE897},
    SystemImage{u"macwindow", 0xE069},
    SystemImage{u"magnifyingglass", 0xE8B6},
    SystemImage{u"menubar.rectangle", 0xE069},
    SystemImage{u"minus", 0xE15B},
    SystemImage{u"moon.zzz.fill", 0xEF44},
    SystemImage{u"paperplane.fill", 0xE163},
    SystemImage{u"pencil", 0xE3C9},
    SystemImage{u"person.2", 0xE7FC},
    SystemImage{u"person.2.fill", 0xE7FB},
    SystemImage{u"person.fill", 0xE7FD},
    SystemImage{u"play.fill", 0xE037},
    SystemImage{u"plus", 0xE145},
    SystemImage{u"power", 0xE8AC},
    SystemImage{u"record.circle", 0xE837},
    SystemImage{u"stop", 0xE047},
    SystemImage{u"stop.fill", 0xE047},
    SystemImage{u"sum", 0xE24A},
    SystemImage{u"tablecells", 0xE265},
    SystemImage{u"trash", 0xE872},
    SystemImage{u"tray", 0xE156},
    SystemImage{u"tray.full", 0xE97F},
    SystemImage{u"tray.full.fill", 0xE168},
    SystemImage{u"xmark", 0xE5CD},
    SystemImage{u"xmark.circle.fill", 0xE5C9},
};

constexpr bool byName(const SystemImage& one, const SystemImage& other) {
    return one.name < other.name;
}
static_assert(std::is_sorted(images.begin(), images.end(), byName));

}  // namespace

QChar systemImageGlyph(QStringView name) {
    const SystemImage wanted{{name.utf16(), static_cast<std::size_t>(name.size())}, 0};
    const auto* found = std::lower_bound(images.begin(), images.end(), wanted, byName);
    return found != images.end() && found->name == wanted.name ? found->glyph : emptySquare;
}

QStringList systemImageNames() {
    QStringList names;
    for (const auto& image : images) {
        names
            << QStringView(image.name.data(), static_cast<qsizetype>(image.name.size())).toString();
    }
    return names;
}

}  // namespace elmworth
