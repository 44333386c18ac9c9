// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/DateTextField.h"

#include <algorithm>

namespace elmworth {

QString DateTextField::text() const {
    return typed_ ? *typed_ : valueText();
}

void DateTextField::edit(const QString& text) {
    if (text == this->text()) return;
    typed_ = text;
    Q_EMIT textChanged();
    const bool isUnderstood = take(text);
    if (isUnderstood) setProblem({});
    setValid(isUnderstood);
}

void DateTextField::finish() {
    if (!isValid_) return setProblem(complaint());
    settle();
    if (typed_) show();
}

void DateTextField::show() {
    typed_.reset();
    Q_EMIT textChanged();
    setProblem({});
    setValid(true);
}

void DateTextField::follow() {
    if (!typed_) Q_EMIT textChanged();
}

TextSpan DateTextField::step(int cursor, int steps) {
    const auto part = partAt(cursor);
    finish();
    if (!part || !isValid_) return {cursor, cursor};
    move(*part, steps);
    return spanOf(*part, cursor);
}

TextSpan DateTextField::page(int cursor, int steps) {
    finish();
    if (!isValid_) return {cursor, cursor};
    move(pagePart(), steps);
    return spanOf(pagePart(), cursor);
}

std::optional<DatePart> DateTextField::partAt(int cursor) const {
    if (cursor < 0) return smallestPart();
    const auto spans = parts();
    const auto found = std::find_if(spans.begin(), spans.end(),
                                    [=](const auto& span) { return cursor <= span.end; });
    if (found != spans.end()) return found->part;
    return spans.empty() ? std::nullopt : std::optional(spans.back().part);
}

TextSpan DateTextField::spanOf(DatePart part, int cursor) const {
    const auto spans = parts();
    const auto found = std::find_if(spans.begin(), spans.end(),
                                    [=](const auto& span) { return span.part == part; });
    return found != spans.end() ? TextSpan{found->begin, found->end} : TextSpan{cursor, cursor};
}

void DateTextField::setValid(bool isValid) {
    if (isValid == isValid_) return;
    isValid_ = isValid;
    Q_EMIT validityChanged();
}

void DateTextField::setProblem(const QString& problem) {
    if (problem == problem_) return;
    problem_ = problem;
    Q_EMIT problemChanged();
}

}  // namespace elmworth
