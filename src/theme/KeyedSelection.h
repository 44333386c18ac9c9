// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>
#include <vector>

#include "livelist/ListSelection.h"
#include "livelist/LiveRowModel.h"

namespace elmworth {

/// What a KeyedList or a KeyedGrid does with its rows: which are selected, and which one the
/// keyboard acts on. Both go by what the rows show, wherever they move. See RowSelection.
class KeyedSelection : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    /// Where the row stands that the keyboard acts on, or -1.
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged FINAL)

 public:
    using QObject::QObject;

    [[nodiscard]] virtual int currentRow() const = 0;

    /// A click on the row at `row`; see ListSelection.
    Q_INVOKABLE void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        clickRow(row, modifiers);
    }
    /// Moves the current row by so many, as the arrow keys do; with `extends` what lies between is
    /// selected.
    Q_INVOKABLE void moveCurrent(int rows, bool extends = false) { step(rows, extends); }
    Q_INVOKABLE virtual void selectAll() = 0;
    Q_INVOKABLE virtual void clear() = 0;

 protected:
    virtual void clickRow(int row, Qt::KeyboardModifiers modifiers) = 0;
    virtual void step(int rows, bool extends) = 0;

 Q_SIGNALS:
    /// Another row is current, or it stands somewhere else.
    void currentRowChanged();
    /// Something else is selected.
    void changed();
};

/// The selection of the rows of `model`, which outlives it. See ListSelection for `Lines`.
template <class Lines>
class RowSelection final : public KeyedSelection {
 public:
    using Row = typename Lines::Row;
    using Key = typename Lines::Key;

    /// In a list that `selectsOne`, Shift and Ctrl make no difference.
    explicit RowSelection(const LiveRowModel<Row>& model, bool selectsOne = false)
        : model_(model), selectsOne_(selectsOne) {}

    [[nodiscard]] const typename ListSelection<Lines>::Keys& keys() const noexcept {
        return selection_.keys();
    }
    [[nodiscard]] bool contains(const Key& key) const { return keys().contains(key); }
    [[nodiscard]] const auto& current() const noexcept { return selection_.current(); }

    [[nodiscard]] int currentRow() const override {
        const auto at = current() ? Lines::find(*current(), rows()) : std::nullopt;
        return at ? static_cast<int>(*at) : -1;
    }
    void selectAll() override {
        if (selectsOne_) return;
        selection_.selectAll(rows());
        tell();
    }
    void clear() override {
        if (keys().empty() && !current()) return;
        selection_.clear();
        tell();
    }

    /// What was selected is gone: nothing is selected, and the arrow keys go on from there.
    void clearKeepingPlace() {
        selection_.clearKeepingPlace();
        tell();
    }
    /// Without a current row the arrow keys go on from `place`.
    void stayAt(typename Lines::Place place) {
        if (!current()) selection_.stayAt(std::move(place));
    }
    /// Call after the rows of the model have changed.
    void rowsChanged() {
        selection_.rowsChanged(rows());
        if (current()) Q_EMIT currentRowChanged();
    }

 private:
    void clickRow(int row, Qt::KeyboardModifiers modifiers) override {
        const auto at = static_cast<std::size_t>(row);
        if (row < 0 || at >= rows().size() || !Lines::isSelectable(rows()[at])) return;
        if (!selectsOne_ && modifiers.testFlag(Qt::ShiftModifier)) {
            selection_.extendTo(rows(), at);
        } else if (!selectsOne_ && modifiers.testFlag(Qt::ControlModifier)) {
            selection_.toggle(rows(), at);
        } else {
            selection_.select(rows(), at);
        }
        tell();
    }
    void step(int steps, bool extends) override {
        const auto reached = selection_.stepFrom(rows(), steps);
        if (!reached) return;
        if (extends && !selectsOne_) {
            selection_.extendTo(rows(), *reached);
        } else {
            selection_.select(rows(), *reached);
        }
        tell();
    }
    [[nodiscard]] const std::vector<Row>& rows() const { return model_.rows(); }
    void tell() {
        Q_EMIT changed();
        Q_EMIT currentRowChanged();
    }

    const LiveRowModel<Row>& model_;
    bool selectsOne_;
    ListSelection<Lines> selection_;
};

}  // namespace elmworth
