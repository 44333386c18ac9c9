// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "livelist/LiveListModel.h"
#include "store/PersistentID.h"

namespace elmworth {

/// One of several records to choose from.
struct Choice {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool isChosen MEMBER isChosen)

 public:
    PersistentID id;  ///< nil for the choice of none
    QString text;
    bool isChosen = false;

    friend bool operator==(const Choice&, const Choice&) = default;
};

/// A choice of one of many records, or of none, which can be searched by what is typed.
class ChoiceModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The view's model has it")
    /// The name of what is chosen.
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    /// Whether something else than the choice of none is chosen.
    Q_PROPERTY(bool isSet READ isSet NOTIFY changed FINAL)
    /// All of these words stand in the texts of `rows`. While there are any, the choice of none is
    /// no row.
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
    /// The roles are the properties of `Choice`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// Where the chosen one stands in `rows`; -1 when a search hides it.
    Q_PROPERTY(int chosenRow READ chosenRow NOTIFY rowsChanged FINAL)

 public:
    using QObject::QObject;

    [[nodiscard]] const QString& title() const noexcept { return title_; }
    [[nodiscard]] bool isSet() const noexcept { return !chosen_.isNil(); }
    [[nodiscard]] const QString& search() const noexcept { return search_; }
    void setSearch(const QString& search);
    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] int chosenRow() const;
    [[nodiscard]] const std::vector<Choice>& rows() const noexcept { return rows_.rows(); }

    /// Offers `choices`, of which `chosen` is chosen; it has the name `title`, and may be none of
    /// them.
    void offer(std::vector<Choice> choices, const PersistentID& chosen, const QString& title);

    /// Chooses the row at `row`, and empties the search. Does nothing when there is none.
    Q_INVOKABLE void choose(int row);

 Q_SIGNALS:
    void changed();
    void searchChanged();
    void rowsChanged();
    /// Somebody chose; the owner takes the choice over.
    void picked(const elmworth::PersistentID& id);

 private:
    void showRows();

    std::vector<Choice> choices_;
    LiveListModel<Choice> rows_;
    PersistentID chosen_;
    QString title_;
    QString search_;
};

}  // namespace elmworth
