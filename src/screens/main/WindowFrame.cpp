// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/WindowFrame.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace elmworth {

namespace {

int common(const QRect& one, const QRect& other) {
    const QRect both = one.intersected(other);
    return both.isEmpty() ? 0 : both.width() * both.height();
}

/// A start within [first, first + room) for something that is `length` long.
int fittedStart(int start, int length, int first, int room) {
    return std::max(first, std::min(start, first + room - length));
}

}  // namespace

std::optional<WindowFrame> WindowFrame::parse(const QString& text) {
    QStringList words = text.split(u' ');
    const bool isMaximized = words.size() == 5 && words.last() == u"maximized";
    if (isMaximized) words.removeLast();
    if (words.size() != 4) return std::nullopt;
    std::array<int, 4> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool isNumber = false;
        numbers[i] = words[static_cast<qsizetype>(i)].toInt(&isNumber);
        if (!isNumber || std::abs(numbers[i]) > 100'000) return std::nullopt;
    }
    const QRect area(numbers[0], numbers[1], numbers[2], numbers[3]);
    return area.isEmpty() ? std::nullopt : std::optional(WindowFrame{area, isMaximized});
}

QString WindowFrame::text() const {
    return QStringLiteral("%1 %2 %3 %4%5")
        .arg(area.x())
        .arg(area.y())
        .arg(area.width())
        .arg(area.height())
        .arg(isMaximized ? QStringLiteral(" maximized") : QString());
}

QRect WindowFrame::areaOn(const QList<QRect>& screens, const QSize& smallest) const {
    const QRect screen = *std::max_element(
        screens.begin(), screens.end(),
        [this](const auto& a, const auto& b) { return common(a, area) < common(b, area); });
    const QSize size = area.size().boundedTo(screen.size()).expandedTo(smallest);
    return {fittedStart(area.x(), size.width(), screen.x(), screen.width()),
            fittedStart(area.y(), size.height(), screen.y(), screen.height()), size.width(),
            size.height()};
}

}  // namespace elmworth
