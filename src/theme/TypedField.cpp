// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/TypedField.h"

#include <algorithm>

namespace elmworth {

QString TypedField::text() const {
    return typed_ ? *typed_ : valueText();
}

void TypedField::edit(const QString& text) {
    if (text == this->text()) return;
    typed_ = text;
    Q_EMIT textChanged();
    const bool isUnderstood = take(text);
    if (isUnderstood) setProblem({});
    setValid(isUnderstood);
}

void TypedField::finish() {
    if (!isValid_) return setProblem(complaint());
    settle();
    if (typed_) show();
}

void TypedField::show() {
    typed_.reset();
    Q_EMIT textChanged();
    setProblem({});
    setValid(true);
}

void TypedField::follow() {
    if (!typed_) Q_EMIT textChanged();
}

TextSpan TypedField::step(int cursor, int steps) {
    const auto part = partAt(cursor);
    finish();
    if (!part || !isValid_) return {cursor, cursor};
    move(*part, steps);
    return spanOf(*part, cursor);
}

TextSpan TypedField::page(int cursor, int steps) {
    finish();
    if (!isValid_) return {cursor, cursor};
    move(pagePart(), steps);
    return spanOf(pagePart(), cursor);
}

std::optional<DatePart> TypedField::partAt(int cursor) const {
    if (cursor < 0) return smallestPart();
    const auto spans = parts();
    const auto found = std::find_if(spans.begin(), spans.end(),
                                    [=](const auto& span) { return cursor <= span.end; });
    if (found != spans.end()) return found->part;
    return spans.empty() ? std::nullopt : std::optional(spans.back().part);
}

TextSpan TypedField::spanOf(DatePart part, int cursor) const {
    const auto spans = parts();
    const auto found = std::find_if(spans.begin(), spans.end(),
                                    [=](const auto& span) { return span.part == part; });
    return found != spans.end() ? TextSpan{found->begin, found->end} : TextSpan{cursor, cursor};
}

void TypedField::setValid(bool isValid) {
    if (isValid == isValid_) return;
    isValid_ = isValid;
    Q_EMIT validityChanged();
}

void TypedField::setProblem(const QString& problem) {
    if (problem == problem_) return;
    problem_ = problem;
    Q_EMIT problemChanged();
}

}  // namespace elmworth
